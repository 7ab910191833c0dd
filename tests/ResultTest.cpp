#include "Result.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace {

using tessel::utilities::result::ClassResultTrait;
using tessel::utilities::result::ErrnoTrait;
using tessel::utilities::result::Result;

enum TestCode : std::int32_t { Success = 1000, UnknownError, InvalidParam, InvalidConfiguration };
struct TestTrait : ClassResultTrait<TestCode> {};
typedef Result<TestTrait> TestResult;

TestResult failure(TestCode code, const std::string& message) { return TestResult(code) << message; }

TEST(ResultTest, FormatsDescriptionCodeMessageAndContext) {
    TestResult successWithText = TestResult::success();
    successWithText << "ignored";
    successWithText.setContext("ignored too");

    TestResult contextOnly(InvalidParam);
    contextOnly.setContext("x");
    TestResult messageAndContext = failure(InvalidParam, "m");
    messageAndContext.setContext("x");

    const struct {
        const char* name;
        TestResult result;
        const char* expected;
    } rows[] = {
        {"success", TestResult::success(), "Success"},
        {"success with text", successWithText, "Success"},
        {"bare failure", TestResult(UnknownError), "Unknown error (Code 1001)"},
        {"message", failure(InvalidParam, "abc"), "Invalid Param (Code 1002): abc"},
        {"context only", contextOnly, "Invalid Param (Code 1002): {x}"},
        {"message and context", messageAndContext, "Invalid Param (Code 1002): m {x}"},
        {"configuration", failure(InvalidConfiguration, "bad"), "Invalid Configuration (Code 1003): bad"},
        {"outside the enumeration", TestResult(static_cast<TestCode>(1234)), "Invalid error (Unreachable) (Code 1234)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.expected, row.result.format());
    }
}

TEST(ResultTest, AppendsPrintedValuesWithoutSeparators) {
    TestResult result(InvalidParam);
    result << "Bad rate: " << 9 << ' ' << std::string("and") << -1 << 4294967295U << InvalidParam << 2.5;
    EXPECT_EQ("Bad rate: 9 and-1429496729510022.5", result.mMessage);
    EXPECT_TRUE(result.mChained.empty());
    EXPECT_TRUE(result.mContext.empty());
}

TEST(ResultTest, FoldingKeepsTheFirstFailureAndChainsTheRestInOrder) {
    TestResult folded = TestResult::success();
    folded &= TestResult::success();
    EXPECT_TRUE(folded.isSuccess());

    folded &= failure(InvalidConfiguration, "A");
    folded &= TestResult::success();
    folded &= failure(InvalidParam, "B");
    folded &= TestResult(UnknownError);

    EXPECT_EQ(InvalidConfiguration, folded.getCode());
    EXPECT_EQ("A", folded.mMessage);
    EXPECT_EQ(
        "Invalid Configuration (Code 1003): A && Invalid Param (Code 1002): B && Unknown error (Code 1001)",
        folded.format());
}

TEST(ResultTest, FoldingAChainIntoASuccessGivesTheChainUnchanged) {
    TestResult chain = failure(InvalidParam, "first");
    chain.setContext("ctx");
    chain &= failure(InvalidConfiguration, "second");

    TestResult folded = TestResult::success();
    folded &= chain;
    EXPECT_EQ(InvalidParam, folded.getCode());
    EXPECT_EQ(chain.mMessage, folded.mMessage);
    EXPECT_EQ(chain.mContext, folded.mContext);
    EXPECT_EQ(chain.mChained, folded.mChained);

    // Folding a chain into another failure flattens it behind a single " && ".
    TestResult outer = failure(UnknownError, "outer");
    outer &= chain;
    EXPECT_EQ(
        "Unknown error (Code 1001): outer && Invalid Param (Code 1002): first {ctx} && "
        "Invalid Configuration (Code 1003): second",
        outer.format());
}

TEST(ResultTest, CopiesAreIndependentOfTheSharedSuccess) {
    TestResult copy = TestResult::success();
    copy << "changed";
    EXPECT_TRUE(TestResult::success().mMessage.empty());
    EXPECT_EQ(&TestResult::success(), &TestResult::success());
}

TEST(ResultTest, ErrnoTraitDescribesWithStrerror) {
    EXPECT_EQ("Success", Result<ErrnoTrait>(0).format());
    EXPECT_TRUE(Result<ErrnoTrait>(0).isSuccess());
    EXPECT_EQ(std::string(std::strerror(EINVAL)) + " (Code 22)", Result<ErrnoTrait>(EINVAL).format());
    EXPECT_EQ(std::string(std::strerror(ENOENT)) + " (Code 2): path",
              (Result<ErrnoTrait>(ENOENT) << "path").format());
}

}  // namespace
