#include "Utils.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tessel::rva::Utils;

TEST(UtilsTest, AcceptsExactlyTheUnprivilegedPorts) {
    const struct {
        int port;
        bool valid;
    } rows[] = {{-1, false},   {0, false},    {1023, false}, {1024, true},
                {49150, true}, {65535, true}, {65536, false}, {-65536, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.port);
        EXPECT_EQ(row.valid, Utils::isValidSocketPort(row.port));
    }
}

TEST(UtilsTest, AcceptsOnlyNumericAddressesOfEitherFamily) {
    const struct {
        std::string text;
        bool v4;
        bool v6;
    } rows[] = {
        {"192.168.0.1", true, false},
        {"0.0.0.0", true, false},
        {"255.255.255.255", true, false},
        {"::1", false, true},
        {"fe80::1:2:3:4", false, true},
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
