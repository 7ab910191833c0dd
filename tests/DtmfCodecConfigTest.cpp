#include "DtmfCodecConfig.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using tessel::rva::BandType;
using tessel::rva::BandTypeNb;
using tessel::rva::BandTypeWb;
using tessel::rva::CodecConfig;
using tessel::rva::CodecIdDtmf;
using tessel::rva::DtmfCodecConfig;

TEST(DtmfCodecConfigTest, FreshConfigurationPassesCheckAndPrintsItsDefaults) {
    const DtmfCodecConfig config;
    EXPECT_EQ("Success", config.check().format());
    EXPECT_EQ(
        "    Codec: DTMF (1)\n"
        "    BandType: 16kHz (1)\n"
        "    PayloadType: 99\n"
        "    PacketTime: 20\n"
        "    MaxPacketTime: 240\n",
        config.toString());
}

TEST(DtmfCodecConfigTest, SetBandTypeAcceptsBothBandsAndKeepsTheLastOneOnRefusal) {
    const struct {
        int band;
        const char* expected;
        BandType after;
    } steps[] = {
        {0, "Success", BandTypeNb},
        {2, "Invalid Param (Code 1002): Bad band type: 2", BandTypeNb},
        {1, "Success", BandTypeWb},
        {-1, "Invalid Param (Code 1002): Bad band type: -1", BandTypeWb},
    };
    DtmfCodecConfig config;
    for (const auto& step : steps) {
        SCOPED_TRACE(step.band);
        EXPECT_EQ(step.expected, config.setBandType(static_cast<BandType>(step.band)).format());
        EXPECT_EQ(step.after, config.getBandType());
    }
}

TEST(DtmfCodecConfigTest, CopiesAndClonesAreIndependentDtmfConfigurations) {
    DtmfCodecConfig source;
    ASSERT_TRUE(source.setBandType(BandTypeNb).isSuccess());
    source.setPayloadType(101);
    source.setPacketTime(30);
    source.setMaxPacketTime(60);
    const std::string text = source.toString();

    std::unique_ptr<CodecConfig> clone(source.clone());
    ASSERT_NE(&source, clone.get());
    ASSERT_NE(nullptr, dynamic_cast<DtmfCodecConfig*>(clone.get()));
    EXPECT_EQ(CodecIdDtmf, clone->getCodecId());
    EXPECT_TRUE(*clone == source);
    EXPECT_EQ(text, clone->toString());
    clone->setPayloadType(102);
    EXPECT_FALSE(*clone == source);
    EXPECT_EQ(text, source.toString());

    const DtmfCodecConfig copy(source);
    EXPECT_EQ(text, copy.toString());
    DtmfCodecConfig assigned;
    assigned = source;
    EXPECT_EQ(text, assigned.toString());
}

}  // namespace
