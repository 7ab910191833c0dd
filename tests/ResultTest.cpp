#include "Result.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

#include "ExpectAbort.h"
#include "GenericLog.h"
#include "LogCapture.h"

namespace {

using tessel::utilities::Logger;
using tessel::utilities::details::Level;
using tessel::utilities::result::ErrnoTrait;
using tessel::utilities::result::Result;

enum TestCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
struct TestTrait : tessel::utilities::result::ClassResultTrait<TestCode> {};
typedef Result<TestTrait> TestResult;

TestResult failure(TestCode code, const std::string& message, const std::string& context = "") {
    TestResult result(code);
    result << message;
    result.setContext(context);
    return result;
}

TEST(ResultTest, FormatsDescriptionCodeMessageAndContext) {
    const struct {
        TestResult result;
        const char* expected;
    } rows[] = {
        {failure(Success, "text is ignored", "so is context"), "Success"},
        {TestResult(UnknownError), "Unknown error (Code 1001)"},
        {failure(InvalidParam, "abc"), "Invalid Param (Code 1002): abc"},
        {failure(InvalidParam, "", "x"), "Invalid Param (Code 1002): {x}"},
        {failure(InvalidConfiguration, "m", "x"), "Invalid Configuration (Code 1003): m {x}"},
        {TestResult(static_cast<TestCode>(1234)), "Invalid error (Unreachable) (Code 1234)"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.expected, row.result.format());
    EXPECT_STREQ("Success", TestTrait::describe(Success));
    EXPECT_EQ(std::string(std::strerror(EINVAL)) + " (Code 22): path", (Result<ErrnoTrait>(EINVAL) << "path").format());
}

// An enumeration with its own text.
enum Colour { Red, Green };
std::ostream& operator<<(std::ostream& out, Colour colour) { return out << (colour == Red ? "red" : "green"); }

// What an output string stream prints, piece after piece: a null text prints nothing,
// nullptr prints "nullptr", an enumeration with its own operator<< prints its text, one
// without prints its number.
TEST(ResultTest, AppendsWhatAStringStreamPrintsWithoutSeparators) {
    const char* const noText = nullptr;
    TestResult result(InvalidParam);
    result << "Bad rate: " << 9 << ' ' << std::string("and") << -1 << 4294967295U << InvalidParam << 2.5 << noText
           << "|" << nullptr << "|" << Green << Red << true << std::string_view("!");
    EXPECT_EQ("Bad rate: 9 and-1429496729510022.5|nullptr|greenred1!", result.mMessage);
}

TEST(ResultTest, FoldingKeepsTheFirstFailureAndChainsTheRestInOrder) {
    TestResult folded = TestResult::success();
    folded &= TestResult::success();
    EXPECT_TRUE(folded.isSuccess());
    TestResult chain = failure(InvalidParam, "A", "ctx");
    chain &= TestResult::success();
    chain &= failure(InvalidConfiguration, "B");
    folded &= chain;  // a success becomes the folded-in failure, chain included
    folded &= TestResult(UnknownError);
    EXPECT_EQ(InvalidParam, folded.getCode());
    EXPECT_EQ("Invalid Param (Code 1002): A {ctx} && Invalid Configuration (Code 1003): B && Unknown error (Code 1001)",
              folded.format());
}

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
    std::string records;
    for (const rvatest::AndroidRecord& record : android.all()) {
        records += std::to_string(record.priority) + record.tag + ":" + record.message + "@" +
                   std::to_string(record.stderrBytesBefore) + "\n";
    }
    EXPECT_EQ("5ORVA:rates 7 differ@0\n7TESSEL:100% %s %d %n@22\n5ORVA:count=3@45\n", records);
}

TEST(GenericLogDeathTest, FailedAssertionLogsOneFatalLineAndAborts) {
    const int value = 42;
    TESSEL_ASSERT(value == 42, "never printed");
    EXPECT_ABORT(TESSEL_ASSERT(value == 3, "value " << value << " is not " << 3),
                 "F/TESSEL tests/ResultTest\\.cpp:[0-9]+: Assertion value == 3 failed: value 42 is not 3\n");
}

}  // namespace
