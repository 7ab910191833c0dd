#include <gtest/gtest.h>

#include <memory>

#include "AmrCodecCapabilities.h"
#include "CodecCapabilities.h"
#include "DtmfCodecCapabilities.h"

namespace {

using namespace tessel::rva;

// The smallest concrete form of the base: any codec id and band, the base's comparison.
class PlainCodecCapabilities : public CodecCapabilities {
public:
    PlainCodecCapabilities(CodecId codecId, BandType bandType, int packetTime = 20, int maxPacketTime = 240,
                           int channelCount = 1)
        : CodecCapabilities(codecId, bandType, packetTime, maxPacketTime, channelCount) {}
    CodecCapabilities* clone() const override { return new PlainCodecCapabilities(*this); }
};

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    const char* const kBadCodec = "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)";
    const char* const kBadBand = "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)";
    EXPECT_DEATH(PlainCodecCapabilities(static_cast<CodecId>(2), BandTypeWb), kBadCodec);
    EXPECT_DEATH(PlainCodecCapabilities(static_cast<CodecId>(-1), BandTypeNb), kBadCodec);
    EXPECT_DEATH(PlainCodecCapabilities(static_cast<CodecId>(2), static_cast<BandType>(2)), kBadCodec);
    EXPECT_DEATH(PlainCodecCapabilities(CodecIdAmr, static_cast<BandType>(2)), kBadBand);
    EXPECT_DEATH(PlainCodecCapabilities(CodecIdDtmf, static_cast<BandType>(-1)), kBadBand);
}

TEST(CodecCapabilitiesTest, SetBandTypeStoresAnyValueWithoutAborting) {
    for (int band : {-1, 2, 0x7fffffff}) {
        SCOPED_TRACE(band);
        DtmfCodecCapabilities dtmf;
        dtmf.setBandType(static_cast<BandType>(band));
        EXPECT_EQ(band, dtmf.getBandType());
    }
}

TEST(CodecCapabilitiesTest, CountsKeepTheLow32BitsAndReadBackSignExtended) {
    const struct {
        const char* name;
        void (CodecCapabilities::*set)(unsigned long);
        unsigned long (CodecCapabilities::*get)() const;
    } counts[] = {
        {"packet time", &CodecCapabilities::setPacketTime, &CodecCapabilities::getPacketTime},
        {"max packet time", &CodecCapabilities::setMaxPacketTime, &CodecCapabilities::getMaxPacketTime},
        {"channel count", &CodecCapabilities::setChannelCount, &CodecCapabilities::getChannelCount},
    };
    const struct {
        unsigned long stored;
        unsigned long read;
    } values[] = {
        {2147483647UL, 2147483647UL}, {2147483648UL, 18446744071562067968UL}, {4294967295UL, 18446744073709551615UL},
        {4294967296UL, 0UL},          {8589934591UL, 18446744073709551615UL},
    };
    for (const auto& count : counts) {
        for (const auto& value : values) {
            SCOPED_TRACE(testing::Message() << count.name << " " << value.stored);
            DtmfCodecCapabilities dtmf;
            (dtmf.*count.set)(value.stored);
            EXPECT_EQ(value.read, (dtmf.*count.get)());
        }
    }
}

TEST(CodecCapabilitiesTest, EqualityComparesTheCodecAndEachGenericField) {
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdDtmf, BandTypeWb, 20, 240, 1) == DtmfCodecCapabilities());
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdAmr, BandTypeWb, 20, 240, 1) == AmrCodecCapabilities());

    const struct {
        const char* name;
        void (*mutate)(CodecCapabilities&);
    } rows[] = {
        {"band", [](CodecCapabilities& c) { c.setBandType(BandTypeNb); }},
        {"packet time", [](CodecCapabilities& c) { c.setPacketTime(40); }},
        {"max packet time", [](CodecCapabilities& c) { c.setMaxPacketTime(120); }},
        {"channel count", [](CodecCapabilities& c) { c.setChannelCount(2); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const DtmfCodecCapabilities original;
        DtmfCodecCapabilities changed;
        row.mutate(changed);
        EXPECT_FALSE(original == changed);
        EXPECT_FALSE(changed == original);
        EXPECT_TRUE(original != changed);
    }

    // Same generic fields, different codecs.
    const DtmfCodecCapabilities dtmf;
    const AmrCodecCapabilities amr;
    const CodecCapabilities& dtmfBase = dtmf;
    const CodecCapabilities& amrBase = amr;
    EXPECT_FALSE(dtmfBase == amrBase);
    EXPECT_FALSE(amrBase == dtmfBase);
    EXPECT_TRUE(dtmfBase != amrBase);
    EXPECT_TRUE(amrBase != dtmfBase);
}

TEST(CodecCapabilitiesTest, CopiesAndClonesAreIndependent) {
    DtmfCodecCapabilities original;
    original.setBandType(BandTypeNb);
    original.setPacketTime(30);
    original.setChannelCount(2);

    std::unique_ptr<CodecCapabilities> clone(original.clone());
    ASSERT_NE(nullptr, dynamic_cast<DtmfCodecCapabilities*>(clone.get()));
    EXPECT_NE(&original, clone.get());
    EXPECT_TRUE(*clone == original);

    clone->setChannelCount(1);
    EXPECT_EQ(2UL, original.getChannelCount());

    DtmfCodecCapabilities assigned;
    assigned = original;
    EXPECT_TRUE(assigned == original);

    // The base assignment copies the codec id too.
    PlainCodecCapabilities target(CodecIdDtmf, BandTypeWb);
    target = PlainCodecCapabilities(CodecIdAmr, BandTypeNb, 10, 50, 3);
    EXPECT_TRUE(target == PlainCodecCapabilities(CodecIdAmr, BandTypeNb, 10, 50, 3));
}

}  // namespace
