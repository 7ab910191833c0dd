#include "RtcpConfig.h"

#include <gtest/gtest.h>

namespace {

using tessel::rva::RtcpConfig;

TEST(RtcpConfigTest, DefaultsAndTheDisabledConfiguration) {
    const RtcpConfig defaults;
    EXPECT_TRUE(defaults == RtcpConfig(5000, 0, 800, 64, false));
    EXPECT_TRUE(defaults != RtcpConfig::disabledRtcpConfig);

    EXPECT_TRUE(RtcpConfig(0, 0, 0, 0, false) == RtcpConfig::disabledRtcpConfig);
    EXPECT_FALSE(RtcpConfig(0, 0, 0, 0, false) != RtcpConfig::disabledRtcpConfig);
    EXPECT_TRUE(RtcpConfig(0, 0, 0, 0, true) != RtcpConfig::disabledRtcpConfig);
    EXPECT_FALSE(RtcpConfig(0, 0, 0, 0, true) == RtcpConfig::disabledRtcpConfig);
}

TEST(RtcpConfigTest, EveryFieldTakesPartInEquality) {
    const RtcpConfig base(5000, 0, 800, 64, false);
    const struct {
        const char* name;
        RtcpConfig other;
    } rows[] = {
        {"interval", RtcpConfig(5001, 0, 800, 64, false)},
        {"rr", RtcpConfig(5000, 1, 800, 64, false)},
        {"rs", RtcpConfig(5000, 0, 801, 64, false)},
        {"as", RtcpConfig(5000, 0, 800, 65, false)},
        {"reduced size mode", RtcpConfig(5000, 0, 800, 64, true)},
        {"rr and rs swapped", RtcpConfig(5000, 800, 0, 64, false)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(base == row.other);
        EXPECT_FALSE(row.other == base);
        EXPECT_TRUE(base != row.other);
    }
}

TEST(RtcpConfigTest, StoresZeroAndTheLargestValueUnchanged) {
    for (const unsigned int value : {0U, 4294967295U}) {
        SCOPED_TRACE(value);
        RtcpConfig rtcp;
        rtcp.setInterval(value);
        rtcp.setRr(value);
        rtcp.setRs(value);
        rtcp.setAs(value);
        rtcp.setReducedSizeMode(true);
        EXPECT_EQ(value, rtcp.getInterval());
        EXPECT_EQ(value, rtcp.getRr());
        EXPECT_EQ(value, rtcp.getRs());
        EXPECT_EQ(value, rtcp.getAs());
        EXPECT_TRUE(rtcp == RtcpConfig(value, value, value, value, true));
    }
}

}  // namespace
