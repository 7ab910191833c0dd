#include "GenericLog.h"

#include <gtest/gtest.h>

#include "LogCapture.h"

namespace {

using tessel::utilities::Logger;
using tessel::utilities::details::Level;

TEST(GenericLogTest, WarningReachesTheAndroidLogBeforeStandardError) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    { Logger::Stream<Level::Warning>("ORVA") << "rates " << 7 << " differ"; }
    const std::string text = stderrCapture.text();

    ASSERT_EQ(1U, android.all().size());
    const rvatest::AndroidRecord& record = android.all()[0];
    EXPECT_EQ(5, record.priority);
    EXPECT_EQ("ORVA", record.tag);
    EXPECT_EQ("rates 7 differ", record.message);
    EXPECT_EQ(0, record.stderrBytesBefore);
    EXPECT_EQ("W/ORVA rates 7 differ\n", text);
}

TEST(GenericLogTest, TextIsNeverTakenAsAFormat) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    { Logger::Stream<Level::Fatal>("TESSEL") << "100% %s %d %n"; }
    EXPECT_EQ("F/TESSEL 100% %s %d %n\n", stderrCapture.text());
    ASSERT_EQ(1U, android.all().size());
    EXPECT_EQ(7, android.all()[0].priority);
    EXPECT_EQ("100% %s %d %n", android.all()[0].message);
}

TEST(GenericLogTest, AnEmptyStreamWritesNothing) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    { Logger::Stream<Level::Fatal> stream("TESSEL"); }
    { Logger::Stream<Level::Warning> stream("ORVA"); }
    EXPECT_EQ("", stderrCapture.text());
    EXPECT_TRUE(android.all().empty());
}

TEST(GenericLogTest, LogFormatsEachSinkWithItsOwnArguments) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    Logger::Stream<Level::Warning>("ORVA").log("%s=%d", "count", 3);
    EXPECT_EQ("W/ORVA count=3\n", stderrCapture.text());
    ASSERT_EQ(1U, android.all().size());
    EXPECT_EQ("count=3", android.all()[0].message);
}

TEST(GenericLogTest, PassingAssertionLogsNothing) {
    rvatest::AndroidLogCapture android;
    rvatest::StderrCapture stderrCapture;
    TESSEL_ASSERT(1 + 1 == 2, "never printed");
    EXPECT_EQ("", stderrCapture.text());
    EXPECT_TRUE(android.all().empty());
}

TEST(GenericLogDeathTest, FailedAssertionLogsOneFatalLineAndAborts) {
    const int value = 42;
    EXPECT_DEATH(TESSEL_ASSERT(value == 3, "value " << value << " is not " << 3),
                 "F/TESSEL tests/GenericLogTest\\.cpp:[0-9]+: Assertion value == 3 failed: value 42 is not 3\n");
}

}  // namespace
