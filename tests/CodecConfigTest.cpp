#include "CodecConfig.h"

#include <gtest/gtest.h>

#include <memory>

#include "DtmfCodecConfig.h"
#include "ExpectAbort.h"

namespace tessel::rva::tests {

// Any codec id, band and packet times; refuses the wide band.
struct NarrowOnlyConfig : CodecConfig {
    using CodecConfig::CodecConfig;
    bool isSupportedBandType(BandType bandType) const override { return bandType != BandTypeWb; }
    CodecConfig* clone() const noexcept override { return new NarrowOnlyConfig(*this); }
};

// Every failing packet-time rule is reported, in order; a refused band leaves the old one.
TEST(CodecConfigTest, CheckRefusedBandsEqualityAndCopiesOfAllFiveFields) {
    const auto check = [](unsigned int packetTime, unsigned int maxPacketTime) {
        return NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 99, packetTime, maxPacketTime).check().format();
    };
    const std::string bad = "Invalid Configuration (Code 1003): ";
    EXPECT_EQ(bad + "Packet time must be greater than 0 && " + bad + "Max packet time must be greater than 0",
              check(0, 0));
    EXPECT_EQ(bad + "Packet time '40' must be lesser or equal than max packet time '20'", check(40, 20));
    EXPECT_EQ("Success", check(20, 20));
    EXPECT_EQ("Success", check(240, 3000000000U));  // compared unsigned
    NarrowOnlyConfig config(CodecIdDtmf, BandTypeNb, 99, 20, 240);
    EXPECT_EQ("Invalid Param (Code 1002): Bad band type: 1", config.setBandType(BandTypeWb).format());
    EXPECT_EQ(BandTypeNb, config.getBandType());
    // Equality reads codec id, band and payload type, not the packet times. The assignment
    // copies all five fields, the codec id too, yet the object stays a DTMF one.
    DtmfCodecConfig dtmf;
    EXPECT_TRUE(dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 99, 40, 60));
    EXPECT_FALSE(dtmf == NarrowOnlyConfig(CodecIdAmr, BandTypeWb, 99, 20, 240) ||
                 dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeNb, 99, 20, 240) ||
                 dtmf == NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 100, 20, 240));
    EXPECT_EQ("Success", dtmf.check().format());
    EXPECT_EQ(NarrowOnlyConfig(CodecIdDtmf, BandTypeWb, 99, 20, 240).toString(), dtmf.toString());
    const NarrowOnlyConfig source(CodecIdAmr, BandTypeNb, -5, 0, 4294967295U);
    static_cast<CodecConfig&>(dtmf) = source;
    std::unique_ptr<CodecConfig> clone(dtmf.clone());
    EXPECT_NE(nullptr, dynamic_cast<DtmfCodecConfig*>(clone.get()));
    EXPECT_EQ(source.toString(), clone->toString());
    EXPECT_EQ(source.toString(), NarrowOnlyConfig(source).toString());
}

TEST(CodecConfigDeathTest, ConstructorAndCheckCodecIdAbortWithTheFailedCondition) {
    EXPECT_ABORT(NarrowOnlyConfig(CodecId(-1), BandType(7), 99, 20, 240),
                 "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)");
    EXPECT_ABORT(NarrowOnlyConfig(CodecIdAmr, BandType(2), 99, 20, 240),
                 "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");
    CodecConfig::checkCodecId(CodecIdDtmf, CodecIdDtmf);  // returns for equal ids
    EXPECT_ABORT(
        CodecConfig::checkCodecId(CodecIdAmr, CodecIdDtmf),
        "F/TESSEL .*Assertion candidateCodecId == requiredCodecId failed: Expecting codec AMR instead of DTMF\n");
}

}  // namespace tessel::rva::tests
