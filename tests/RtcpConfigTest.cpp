#include "RtcpConfig.h"

#include <gtest/gtest.h>

namespace {

using tessel::rva::RtcpConfig;

TEST(RtcpConfigTest, StoresAnyValueAndComparesEveryField) {
    const RtcpConfig defaults;
    EXPECT_TRUE(defaults == RtcpConfig(5000, 0, 800, 64, false));
    EXPECT_TRUE(RtcpConfig(0, 0, 0, 0, false) == RtcpConfig::disabledRtcpConfig);
    const RtcpConfig others[] = {RtcpConfig::disabledRtcpConfig,      RtcpConfig(5001, 0, 800, 64, false),
                                 RtcpConfig(5000, 1, 800, 64, false), RtcpConfig(5000, 0, 801, 64, false),
                                 RtcpConfig(5000, 0, 800, 65, false), RtcpConfig(5000, 0, 800, 64, true),
                                 RtcpConfig(5000, 800, 0, 64, false)};  // the last with rr and rs swapped
    for (const RtcpConfig& other : others) {
        EXPECT_FALSE(defaults == other) << "row " << &other - others;
    }

    for (const unsigned int n : {0U, 4294967295U}) {
        const RtcpConfig rtcp(n, ~n, n, ~n, true);
        EXPECT_TRUE(rtcp.getInterval() == n && rtcp.getRr() == ~n && rtcp.getRs() == n && rtcp.getAs() == ~n);
    }
}

}  // namespace
