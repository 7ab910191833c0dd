#include "CodecConfig.h"

#include <gtest/gtest.h>

#include <string>

#include "AmrCodecConfig.h"
#include "DtmfCodecConfig.h"
#include "LogCapture.h"

namespace {

using tessel::rva::AmrCodecConfig;
using tessel::rva::BandType;
using tessel::rva::BandTypeNb;
using tessel::rva::BandTypeWb;
using tessel::rva::CodecConfig;
using tessel::rva::CodecId;
using tessel::rva::CodecIdAmr;
using tessel::rva::CodecIdDtmf;
using tessel::rva::DtmfCodecConfig;

// A codec that refuses the wide band and counts how often it was asked.
class NarrowOnlyConfig : public CodecConfig {
public:
    NarrowOnlyConfig(CodecId codecId, BandType bandType, int payloadType = 99, unsigned int packetTime = 20,
                     unsigned int maxPacketTime = 240)
        : CodecConfig(codecId, bandType, payloadType, packetTime, maxPacketTime) {}

    bool isSupportedBandType(BandType bandType) const override {
        ++mSupportQueries;
        return bandType != BandTypeWb;
    }
    CodecConfig* clone() const override { return new NarrowOnlyConfig(*this); }

    mutable int mSupportQueries = 0;
};

TEST(CodecConfigTest, SetBandTypeKeepsTheOldBandOnRefusalAndAsksTheCodecOnlyAboutValidBands) {
    const struct {
        int band;
        const char* expected;
        BandType after;
        int queries;  // calls of isSupportedBandType so far
    } steps[] = {
        {1, "Invalid Param (Code 1002): Bad band type: 1", BandTypeWb, 1},
        {5, "Invalid Param (Code 1002): Bad band type: 5", BandTypeWb, 1},
        {-1, "Invalid Param (Code 1002): Bad band type: -1", BandTypeWb, 1},
        {0, "Success", BandTypeNb, 2},
        {1, "Invalid Param (Code 1002): Bad band type: 1", BandTypeNb, 3},
    };
    NarrowOnlyConfig config(CodecIdDtmf, BandTypeWb);  // the constructor does not ask the codec
    for (const auto& step : steps) {
        SCOPED_TRACE(step.band);
        const CodecConfig::Result result = config.setBandType(static_cast<BandType>(step.band));
        EXPECT_EQ(step.expected, result.format());
        EXPECT_EQ(step.after, config.getBandType());
        EXPECT_EQ(step.queries, config.mSupportQueries);
    }
}

TEST(CodecConfigTest, CheckFoldsEveryFailingPacketTimeRuleInOrder) {
    const struct {
        unsigned int packetTime;
        unsigned int maxPacketTime;
        const char* expected;
    } rows[] = {
        {20, 20, "Success"},
        {0, 0,
         "Invalid Configuration (Code 1003): Packet time must be greater than 0 && "
         "Invalid Configuration (Code 1003): Max packet time must be greater than 0"},
        {0, 20, "Invalid Configuration (Code 1003): Packet time must be greater than 0"},
        {20, 0,
         "Invalid Configuration (Code 1003): Max packet time must be greater than 0 && "
         "Invalid Configuration (Code 1003): Packet time '20' must be lesser or equal than max packet time '0'"},
        {40, 20,
         "Invalid Configuration (Code 1003): Packet time '40' must be lesser or equal than max packet time '20'"},
        {3000000000U, 240,
         "Invalid Configuration (Code 1003): Packet time '3000000000' must be lesser or equal than max packet time "
         "'240'"},
        {240, 3000000000U, "Success"},
        {4294967295U, 4294967295U, "Success"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.packetTime) + "/" + std::to_string(row.maxPacketTime));
        DtmfCodecConfig config;
        config.setPacketTime(row.packetTime);
        config.setMaxPacketTime(row.maxPacketTime);
        EXPECT_EQ(row.expected, config.check().format());
    }
}

TEST(CodecConfigTest, EqualityComparesCodecIdBandAndPayloadTypeOnly) {
    const DtmfCodecConfig dtmf;  // DTMF, 16kHz, payload type 99, 20/240
    const struct {
        const char* name;
        CodecId codecId;
        BandType bandType;
        int payloadType;
        unsigned int packetTime;
        unsigned int maxPacketTime;
        bool equal;
    } rows[] = {
        {"same fields, other class", CodecIdDtmf, BandTypeWb, 99, 20, 240, true},
        {"packet time", CodecIdDtmf, BandTypeWb, 99, 40, 240, true},
        {"max packet time", CodecIdDtmf, BandTypeWb, 99, 20, 60, true},
        {"codec id", CodecIdAmr, BandTypeWb, 99, 20, 240, false},
        {"band type", CodecIdDtmf, BandTypeNb, 99, 20, 240, false},
        {"payload type", CodecIdDtmf, BandTypeWb, 100, 20, 240, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const NarrowOnlyConfig other(row.codecId, row.bandType, row.payloadType, row.packetTime, row.maxPacketTime);
        EXPECT_EQ(row.equal, dtmf == other);
        EXPECT_EQ(row.equal, other == dtmf);
        EXPECT_EQ(!row.equal, dtmf != other);
    }
}

TEST(CodecConfigTest, CopyAndAssignmentCopyAllFiveFieldsIncludingTheCodecId) {
    const std::string amrText =
        "    Codec: AMR (0)\n"
        "    BandType: 8kHz (0)\n"
        "    PayloadType: -5\n"
        "    PacketTime: 0\n"
        "    MaxPacketTime: 4294967295\n";
    const NarrowOnlyConfig source(CodecIdAmr, BandTypeNb, -5, 0, 4294967295U);
    EXPECT_EQ(amrText, source.toString());

    const NarrowOnlyConfig copy(source);
    EXPECT_EQ(amrText, copy.toString());

    // Assigning an AMR configuration through the base changes the codec id of a DTMF
    // object, but not its class.
    AmrCodecConfig amr;
    ASSERT_TRUE(amr.setBandType(BandTypeNb).isSuccess());
    amr.setPayloadType(-5);
    amr.setPacketTime(0);
    amr.setMaxPacketTime(4294967295U);
    DtmfCodecConfig dtmf;
    CodecConfig& base = dtmf;
    base = amr;
    EXPECT_EQ(CodecIdAmr, dtmf.getCodecId());
    EXPECT_EQ(amrText, dtmf.toString());
    EXPECT_TRUE(dtmf.isSupportedBandType(BandTypeWb));  // still the DTMF override

    const CodecConfig& alias = base;
    base = alias;
    EXPECT_EQ(amrText, dtmf.toString());
}

TEST(CodecConfigTest, CheckCodecIdReturnsSilentlyForEqualIds) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    CodecConfig::checkCodecId(CodecIdAmr, CodecIdAmr);
    CodecConfig::checkCodecId(CodecIdDtmf, CodecIdDtmf);
    EXPECT_EQ("", stderrCapture.text());
    EXPECT_TRUE(android.all().empty());
}

TEST(CodecConfigDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    const char* const kBadCodec = "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)";
    const char* const kBadBand = "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)";
    EXPECT_DEATH(NarrowOnlyConfig(static_cast<CodecId>(2), BandTypeWb), kBadCodec);
    EXPECT_DEATH(NarrowOnlyConfig(static_cast<CodecId>(-1), BandTypeNb), kBadCodec);
    EXPECT_DEATH(NarrowOnlyConfig(static_cast<CodecId>(7), static_cast<BandType>(7)), kBadCodec);
    EXPECT_DEATH(NarrowOnlyConfig(CodecIdAmr, static_cast<BandType>(2)), kBadBand);
    EXPECT_DEATH(NarrowOnlyConfig(CodecIdDtmf, static_cast<BandType>(-1)), kBadBand);
}

TEST(CodecConfigDeathTest, CheckCodecIdAbortsWhenTheIdsDiffer) {
    EXPECT_DEATH(CodecConfig::checkCodecId(CodecIdAmr, CodecIdDtmf),
                 "F/TESSEL common/src/CodecConfig\\.cpp:[0-9]+: Assertion candidateCodecId == requiredCodecId "
                 "failed: Expecting codec AMR instead of DTMF\n");
    EXPECT_DEATH(CodecConfig::checkCodecId(CodecIdDtmf, CodecIdAmr),
                 "F/TESSEL common/src/CodecConfig\\.cpp:[0-9]+: Assertion candidateCodecId == requiredCodecId "
                 "failed: Expecting codec DTMF instead of AMR\n");
}

}  // namespace
