#include "CodecCapabilities.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "DtmfCodecCapabilities.h"
#include "ExpectAbort.h"

namespace {

using namespace tessel::rva;

// The base made concrete, so that any codec id and band reach its constructor.
struct PlainCodecCapabilities : CodecCapabilities {
    PlainCodecCapabilities(CodecId codecId, BandType bandType) : CodecCapabilities(codecId, bandType, 20, 240, 1) {}
    CodecCapabilities* clone() const override { return new PlainCodecCapabilities(*this); }
};

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    const char* const kBadCodec = "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)";
    EXPECT_ABORT(PlainCodecCapabilities(CodecId(2), BandTypeWb), kBadCodec);
    EXPECT_ABORT(PlainCodecCapabilities(CodecId(-1), BandType(2)), kBadCodec);
    EXPECT_ABORT(PlainCodecCapabilities(CodecIdDtmf, BandType(-1)),
                 "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");
}

// Both concrete classes start from band 1, 20 ms, 240 ms and one channel; the codec id
// alone keeps them apart. The setters store without checks; the three counts keep their
// low 32 bits and read back sign-extended (~0UL is 18446744073709551615). A clone
// carries every field.
TEST(CodecCapabilitiesTest, DtmfDiffersFromAmrByCodecAloneAndStoresUncheckedSignExtendedValues) {
    DtmfCodecCapabilities dtmf;
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdDtmf, BandTypeWb) == dtmf);
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdAmr, BandTypeWb) == AmrCodecCapabilities());
    EXPECT_FALSE(dtmf == AmrCodecCapabilities());

    dtmf.setBandType(BandType(2));
    EXPECT_EQ(2, dtmf.getBandType());
    const unsigned long setAndRead[][2] = {{2147483647UL, 2147483647UL}, {4294967295UL, ~0UL}, {8589934591UL, ~0UL}};
    for (const auto& value : setAndRead) {
        dtmf.setPacketTime(value[0]);
        dtmf.setMaxPacketTime(value[0]);
        dtmf.setChannelCount(value[0]);
        EXPECT_EQ(std::vector<unsigned long>(3, value[1]),
                  (std::vector<unsigned long>{dtmf.getPacketTime(), dtmf.getMaxPacketTime(), dtmf.getChannelCount()}));
    }
    EXPECT_TRUE(*std::unique_ptr<CodecCapabilities>(dtmf.clone()) == dtmf);
}

}  // namespace
