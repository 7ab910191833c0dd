#include "DtmfCodecConfig.h"

#include <gtest/gtest.h>

namespace {

using namespace tessel::rva;

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
    CodecConfig::checkCodecId(CodecIdDtmf, config.getCodecId());  // returns for equal ids
}

}  // namespace
