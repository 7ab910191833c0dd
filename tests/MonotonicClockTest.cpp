#include "MonotonicClock.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <string>

#include "ExpectAbort.h"

namespace {
bool failClock = false;
}  // namespace

// Stands in for the C library's clock_gettime in this test program (the library's calls
// resolve to it too), so the clock's failure path can be reached.
extern "C" int clock_gettime(clockid_t clock, struct timespec* time) {
    if (failClock) {
        errno = EINVAL;
        return -1;
    }
    return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
}

namespace {

using tessel::rva::common::MonotonicClock;

TEST(MonotonicClockTest, ReadingsNeverDecreaseAndFollowTheMonotonicClock) {
    timespec reference;
    clock_gettime(CLOCK_MONOTONIC, &reference);
    std::int64_t previous = MonotonicClock::getTime();
    EXPECT_GE(previous, static_cast<std::int64_t>(reference.tv_sec) * 1000 + reference.tv_nsec / 1000000);
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t now = MonotonicClock::getTime();
        ASSERT_GE(now, previous);
        previous = now;
    }
}

TEST(MonotonicClockDeathTest, UnreadableClockIsFatal) {
    const std::string expected =
        std::string("F/TESSEL common/src/MonotonicClock\\.cpp:[0-9]+: Assertion result == 0 failed: ") +
        "clock_gettime failed 22 " + std::strerror(EINVAL) + " \\(Code 22\\)\n";
    EXPECT_ABORT(
        {
            failClock = true;
            MonotonicClock::getTime();
        },
        expected);
}

}  // namespace
