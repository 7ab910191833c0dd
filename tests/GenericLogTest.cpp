#include "GenericLog.h"

#include <gtest/gtest.h>

#include "ExpectAbort.h"
#include "LogCapture.h"

namespace {

using tessel::utilities::Logger;
using tessel::utilities::details::Level;

TEST(GenericLogTest, EachRecordReachesTheAndroidLogThenStandardError) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    { Logger::Stream<Level::Warning>("ORVA") << "rates " << 7 << " differ"; }
    { Logger::Stream<Level::Fatal>("TESSEL") << "100% %s %d %n"; }  // never taken as a format
    { Logger::Stream<Level::Fatal> empty("TESSEL"); }               // writes nothing
    Logger::Stream<Level::Warning>("ORVA").log("%s=%d", "count", 3);

    EXPECT_EQ("W/ORVA rates 7 differ\nF/TESSEL 100% %s %d %n\nW/ORVA count=3\n", stderrCapture.text());
    const struct {
        int priority;
        const char* tag;
        const char* message;
        long stderrBytesBefore;
    } expected[] = {{5, "ORVA", "rates 7 differ", 0}, {7, "TESSEL", "100% %s %d %n", 22}, {5, "ORVA", "count=3", 45}};
    ASSERT_EQ(3U, android.all().size());
    for (size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(expected[i].message);
        EXPECT_EQ(expected[i].priority, android.all()[i].priority);
        EXPECT_EQ(expected[i].tag, android.all()[i].tag);
        EXPECT_EQ(expected[i].message, android.all()[i].message);
        EXPECT_EQ(expected[i].stderrBytesBefore, android.all()[i].stderrBytesBefore);
    }
}

TEST(GenericLogDeathTest, FailedAssertionLogsOneFatalLineAndAborts) {
    const int value = 42;
    TESSEL_ASSERT(value == 42, "never printed");
    EXPECT_ABORT(TESSEL_ASSERT(value == 3, "value " << value << " is not " << 3),
                 "F/TESSEL tests/GenericLogTest\\.cpp:[0-9]+: Assertion value == 3 failed: value 42 is not 3\n");
}

}  // namespace
