#include "RtcpConfig.h"

#include <gtest/gtest.h>

namespace tessel::rva::tests {

TEST(RtcpConfigTest, StoresAnyValueAndComparesEveryField) {
    RtcpConfig rtcp;
    EXPECT_TRUE(rtcp == RtcpConfig(5000, 0, 800, 64, false) &&
                RtcpConfig::disabledRtcpConfig == RtcpConfig(0, 0, 0, 0, false));
    const RtcpConfig others[] = {RtcpConfig(5001, 0, 800, 64, false), RtcpConfig(5000, 1, 800, 64, false),
                                 RtcpConfig(5000, 0, 801, 64, false), RtcpConfig(5000, 0, 800, 65, false),
                                 RtcpConfig(5000, 0, 800, 64, true),  RtcpConfig(5000, 800, 0, 64, false)};
    for (const RtcpConfig& other : others) EXPECT_TRUE(rtcp != other) << "row " << &other - others;
    rtcp.setInterval(4294967295U), rtcp.setRr(1), rtcp.setRs(2), rtcp.setAs(3), rtcp.setReducedSizeMode(true);
    EXPECT_TRUE(rtcp == RtcpConfig(4294967295U, 1, 2, 3, true) && rtcp.getRs() == 2 && rtcp.getAs() == 3);
}

}  // namespace tessel::rva::tests
