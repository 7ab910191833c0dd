#include "CodecConfig.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"

namespace {

using namespace tessel::rva;

// Any codec id and band; refuses the wide band and counts the questions about bands.
struct NarrowOnlyConfig : CodecConfig {
    using CodecConfig::CodecConfig;
    bool isSupportedBandType(BandType bandType) const override {
        ++mQueries;
        return bandType != BandTypeWb;
    }
    CodecConfig* clone() const noexcept override { return new NarrowOnlyConfig(*this); }
    mutable int mQueries = 0;
};

TEST(CodecConfigTest, SetBandTypeKeepsTheOldBandOnRefusalAndAsksTheCodecOnlyAboutValidBands) {
    NarrowOnlyConfig config(CodecIdDtmf, BandTypeWb, 99, 20, 240);
    EXPECT_EQ("Success", config.setBandType(BandTypeNb).format());
    EXPECT_EQ("Invalid Param (Code 1002): Bad band type: 5", config.setBandType(static_cast<BandType>(5)).format());
    EXPECT_EQ("Invalid Param (Code 1002): Bad band type: 1", config.setBandType(BandTypeWb).format());
    EXPECT_EQ(BandTypeNb, config.getBandType());
    EXPECT_EQ(2, config.mQueries);  // band 5 never reached the codec
}

TEST(CodecConfigTest, CheckFoldsEveryFailingPacketTimeRule) {
    const auto check = [](unsigned int packetTime, unsigned int maxPacketTime) {
        return NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 99, packetTime, maxPacketTime).check().format();
    };
    const std::string bad = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(bad + "Packet time must be greater than 0 && " + bad + "Max packet time must be greater than 0",
              check(0, 0));
    EXPECT_EQ(bad + "Packet time '40' must be lesser or equal than max packet time '20'", check(40, 20));
    EXPECT_EQ("Success", check(20, 20));
    EXPECT_EQ("Success", check(240, 3000000000U));  // compared unsigned
}

TEST(CodecConfigTest, EqualityComparesCodecIdBandAndPayloadTypeButNotPacketTimes) {
    const DtmfCodecConfig dtmf;  // DTMF, wide band, payload type 99, 20/240
    EXPECT_TRUE(dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 99, 40, 60));
    EXPECT_FALSE(dtmf == NarrowOnlyConfig(CodecIdAmr, BandTypeWb, 99, 20, 240));
    EXPECT_FALSE(dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeNb, 99, 20, 240));
    EXPECT_FALSE(dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 100, 20, 240));
}

// The assignment copies the codec id too, yet the object stays a DTMF one.
TEST(CodecConfigTest, AssignmentCopiesAllFiveFieldsAndACloneIsAnIndependentCopy) {
    const NarrowOnlyConfig source(CodecIdAmr, BandTypeNb, -5, 0, 4294967295U);
    DtmfCodecConfig dtmf;
    static_cast<CodecConfig&>(dtmf) = source;
    EXPECT_EQ(source.toString(), dtmf.toString());

    std::unique_ptr<CodecConfig> clone(dtmf.clone());
    EXPECT_NE(nullptr, dynamic_cast<DtmfCodecConfig*>(clone.get()));
    EXPECT_EQ(source.toString(), clone->toString());
    clone->setPayloadType(7);
    EXPECT_EQ(source.toString(), dtmf.toString());
}

TEST(CodecConfigDeathTest, ConstructorAndCheckCodecIdAbortWithTheFailedCondition) {
    const char* const kBadCodec = "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)";
    EXPECT_ABORT(NarrowOnlyConfig(static_cast<CodecId>(2), BandTypeWb, 99, 20, 240), kBadCodec);
    EXPECT_ABORT(NarrowOnlyConfig(static_cast<CodecId>(-1), static_cast<BandType>(7), 99, 20, 240), kBadCodec);
    EXPECT_ABORT(NarrowOnlyConfig(CodecIdAmr, static_cast<BandType>(2), 99, 20, 240),
                 "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");

    const std::string kMismatch = "F/TESSEL .*Assertion candidateCodecId == requiredCodecId failed: Expecting codec ";
    EXPECT_ABORT(CodecConfig::checkCodecId(CodecIdAmr, CodecIdDtmf), kMismatch + "AMR instead of DTMF\n");
    EXPECT_ABORT(CodecConfig::checkCodecId(CodecIdDtmf, CodecIdAmr), kMismatch + "DTMF instead of AMR\n");
}

}  // namespace
