#include "MonotonicClock.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <string>

#include "ExpectAbort.h"

static int clockError = 0;                      // clock_gettime fails with it when it is not 0,
static const timespec* clockReading = nullptr;  // else reads it when it is set, else the system clock

// The library's calls resolve to this one too.
extern "C" int clock_gettime(clockid_t id, timespec* time) noexcept {
    if (clockError != 0) return errno = clockError, -1;
    return clockReading != nullptr ? (*time = *clockReading, 0)
                                   : static_cast<int>(syscall(SYS_clock_gettime, id, time));
}

namespace tessel::rva::common::tests {

// Seconds times 1000 plus whole milliseconds of the nanoseconds.
TEST(MonotonicClockTest, ReadsWholeMillisecondsOfTheMonotonicClock) {
    const timespec readings[] = {{0, 999999}, {4000000, 123000000}};
    clockReading = &readings[0];
    EXPECT_EQ(0, MonotonicClock::getTime());
    clockReading = &readings[1];
    EXPECT_EQ(4000000123, MonotonicClock::getTime());
    clockReading = nullptr;
}

TEST(MonotonicClockDeathTest, UnreadableClockIsFatal) {
    EXPECT_ABORT((clockError = EINVAL, MonotonicClock::getTime()),
                 std::string("F/TESSEL common/src/MonotonicClock\\.cpp:[0-9]+: Assertion result == 0 failed: ") +
                     "clock_gettime failed 22 " + std::strerror(EINVAL) + " \\(Code 22\\)\n");
}

}  // namespace tessel::rva::common::tests
