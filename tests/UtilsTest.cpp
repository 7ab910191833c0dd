#include "Utils.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tessel::rva::Utils;

TEST(UtilsTest, AcceptsUnprivilegedPortsAndNumericAddressesOnly) {
    for (const int port : {-65536, -1, 0, 1023, 65536}) {
        EXPECT_FALSE(Utils::isValidSocketPort(port)) << port;
    }
    for (const int port : {1024, 49150, 65535}) {
        EXPECT_TRUE(Utils::isValidSocketPort(port)) << port;
    }

    const struct {
        std::string text;
        bool v4;
        bool v6;
    } rows[] = {
        {"192.168.0.1", true, false},
        {"255.255.255.255", true, false},
        {"::1", false, true},
        {"::ffff:10.0.0.1", false, true},
        {"", false, false},
        {"localhost", false, false},
        {"10.0.0", false, false},
        {"256.0.0.1", false, false},
        {"10.0.0.1:5060", false, false},
        {"[::1]", false, false},
        {" 10.0.0.1", false, false},
        {std::string("10.0.0.1\0garbage", 16), true, false},  // read up to the first NUL
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.v4, Utils::isValidIpV4(row.text));
        EXPECT_EQ(row.v6, Utils::isValidIpV6(row.text));
        EXPECT_EQ(row.v4 || row.v6, Utils::isValidIpAddress(row.text));
    }
}

}  // namespace
