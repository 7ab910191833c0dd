#include "Result.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace tessel::utilities::result::tests {

enum TestCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
typedef Result<ClassResultTrait<TestCode>> TestResult;

TestResult failure(TestCode code, const std::string& message, const std::string& context = "") {
    TestResult result(code);
    (result << message).setContext(context);
    return result;
}

// An enumeration with its own text.
enum Colour { Red, Green };
std::ostream& operator<<(std::ostream& out, Colour colour) { return out << (colour == Red ? "red" : "green"); }

// A message is what an output string stream prints, piece after piece: a null text prints
// nothing, nullptr prints "nullptr", an enumeration with its own operator<< prints its
// text, one without prints its number.
TEST(ResultTest, FormatsDescriptionCodeMessageContextAndFoldedChains) {
    EXPECT_EQ("Success", failure(Success, "text is ignored", "so is context").format());
    // format() of a success does not ask the trait.
    EXPECT_STREQ("Success", ClassResultTrait<TestCode>::describe(Success));
    EXPECT_EQ("Unknown error (Code 1001)", TestResult(UnknownError).format());
    EXPECT_EQ("Invalid Param (Code 1002): abc", failure(InvalidParam, "abc").format());
    EXPECT_EQ("Invalid Param (Code 1002): {x}", failure(InvalidParam, "", "x").format());
    EXPECT_EQ("Invalid Configuration (Code 1003): m {x}", failure(InvalidConfiguration, "m", "x").format());
    EXPECT_EQ("Invalid error (Unreachable) (Code 1234)", TestResult(static_cast<TestCode>(1234)).format());
    EXPECT_EQ(std::string(std::strerror(EINVAL)) + " (Code 22): path", (Result<ErrnoTrait>(EINVAL) << "path").format());
    const char* const noText = nullptr;
    TestResult result(InvalidParam);
    result << "Bad rate: " << 9 << ' ' << std::string("and") << -1 << 4294967295U << InvalidParam << 2.5 << noText
           << "|" << nullptr << "|" << Green << Red << true << std::string_view("!");
    EXPECT_EQ("Bad rate: 9 and-1429496729510022.5|nullptr|greenred1!", result.mMessage);
    // Folding keeps the first failure and chains the rest, in order.
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

}  // namespace tessel::utilities::result::tests
