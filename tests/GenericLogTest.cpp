#include "GenericLog.h"

#include <gtest/gtest.h>

#include "ExpectAbort.h"
#include "LogCapture.h"

namespace tessel::utilities::tests {

using details::Level;

// Android priority 5 or 7, then "<letter>/<tag> <text>" on standard error; '%' in a text
// is printed as it is, and an empty stream writes nothing.
TEST(GenericLogTest, EachRecordReachesTheAndroidLogThenStandardError) {
    EXPECT_TRUE(Level::Fatal == 33 && Level::Warning == 35);
    rvatest::AndroidLogCapture android;
    testing::internal::CaptureStderr();
    { Logger::Stream<Level::Warning>("ORVA") << "rates " << 7 << " differ"; }
    { Logger::Stream<Level::Fatal>("TESSEL") << "100% %s %d %n"; }
    { Logger::Stream<Level::Fatal> empty("TESSEL"); }
    Logger::Stream<Level::Warning>("ORVA").log("%s=%d", "count", 3);
    EXPECT_EQ("W/ORVA rates 7 differ\nF/TESSEL 100% %s %d %n\nW/ORVA count=3\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ("5 ORVA: rates 7 differ @0\n7 TESSEL: 100% %s %d %n @22\n5 ORVA: count=3 @45\n", android.text);
}

TEST(GenericLogDeathTest, FailedAssertionLogsOneFatalLineAndAborts) {
    const int value = 42;
    TESSEL_ASSERT(value == 42, "never printed");
    EXPECT_ABORT(TESSEL_ASSERT(value == 3, "value " << value << " is not " << 3),
                 "F/TESSEL tests/GenericLogTest\\.cpp:[0-9]+: Assertion value == 3 failed: value 42 is not 3\n");
}

}  // namespace tessel::utilities::tests
