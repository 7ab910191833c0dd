#include "Utils.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cstring>
#include <string>
#include <vector>

#include "ExpectAbort.h"
#include "Interposed.h"
#include "MonotonicClock.h"

namespace {

using rvatest::Interposed;
using tessel::rva::Utils;
using tessel::rva::common::MonotonicClock;

// Ports 1024 to 65535; an IPv4 text is never tried as IPv6; a text is read up to its first NUL.
TEST(UtilsTest, AcceptsUnprivilegedPortsAndNumericAddressesOnly) {
    for (const int port : {-1, 0, 1023, 1024, 65535, 65536}) {
        EXPECT_EQ(port >= 1024 && port <= 65535, Utils::isValidSocketPort(port)) << port;
    }
    const struct {
        std::string text;
        bool v4, v6;
    } rows[] = {{"192.168.0.1", true, false},
                {"::ffff:10.0.0.1", false, true},
                {"", false, false},
                {"10.0.0.1:5060", false, false},
                {std::string("10.0.0.1\0garbage", 16), true, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.v4, Utils::isValidIpV4(row.text));
        EXPECT_EQ(row.v6, Utils::isValidIpV6(row.text));
        Interposed::families.clear();
        EXPECT_EQ(row.v4 || row.v6, Utils::isValidIpAddress(row.text));
        EXPECT_EQ(row.v4 ? 1U : 2U, Interposed::families.size());
    }
}

// Seconds times 1000 plus whole milliseconds of the nanoseconds.
TEST(MonotonicClockTest, ReadsWholeMillisecondsOfTheMonotonicClock) {
    const timespec readings[] = {{0, 999999}, {4000000, 123000000}};
    const std::int64_t expected[] = {0, 4000000123};
    for (int i = 0; i < 2; ++i) {
        Interposed::clock = &readings[i];
        EXPECT_EQ(expected[i], MonotonicClock::getTime());
    }
    Interposed::clock = nullptr;
    EXPECT_GT(MonotonicClock::getTime(), 0);
}

TEST(MonotonicClockDeathTest, UnreadableClockIsFatal) {
    EXPECT_ABORT((Interposed::clockError = EINVAL, MonotonicClock::getTime()),
                 std::string("F/TESSEL common/src/MonotonicClock\\.cpp:[0-9]+: Assertion result == 0 failed: ") +
                     "clock_gettime failed 22 " + std::strerror(EINVAL) + " \\(Code 22\\)\n");
}

}  // namespace
