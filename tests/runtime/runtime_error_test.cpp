#include "runtime/runtime_error.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace commtest {
namespace {

TEST(RuntimeError, HasTheMessageOfItsNumber) {
    struct Row {
        int number;
        std::string message;
    };
    const Row rows[] = {
        {5, "无效的过程调用或参数"}, {6, "溢出"},        {9, "下标越界"},   {13, "类型不匹配"},
        {52, "文件名或文件号错误"},  {53, "文件未找到"}, {76, "路径未找到"}};
    for (const Row& row : rows) {
        EXPECT_EQ(RuntimeError(row.number).Number(), row.number);
        EXPECT_EQ(ToUtf8(RuntimeError(row.number).Message()), row.message);
    }
}

TEST(RuntimeError, NamedNumbersAreThoseOfTheMessages) {
    EXPECT_EQ(RuntimeError::kInvalidArgument, 5);
    EXPECT_EQ(RuntimeError::kOverflow, 6);
    EXPECT_EQ(RuntimeError::kSubscript, 9);
    EXPECT_EQ(RuntimeError::kTypeMismatch, 13);
    EXPECT_EQ(RuntimeError::kBadFile, 52);
    EXPECT_EQ(RuntimeError::kFileNotFound, 53);
    EXPECT_EQ(RuntimeError::kPathNotFound, 76);
}

TEST(RuntimeError, StandardMessageHasTheNumberAndABlankLine) {
    EXPECT_EQ(ToUtf8(RuntimeError(13).StandardMessage()), "实时错误 '13':\r\n\r\n类型不匹配");
    EXPECT_EQ(ToUtf8(RuntimeError(6).StandardMessage()), "实时错误 '6':\r\n\r\n溢出");
}

TEST(RuntimeError, FailingStatementOfTheStoreShowsTheEnginesText) {
    const RuntimeError error = RuntimeError::OfStore(u"no such table: 仪表_名称");
    EXPECT_EQ(ToUtf8(error.Message()), "no such table: 仪表_名称");
    EXPECT_EQ(ToUtf8(error.StandardMessage()), "数据库错误:\r\n\r\nno such table: 仪表_名称");
}

[[noreturn]] void Fail() { throw RuntimeError(RuntimeError::kTypeMismatch); }

TEST(PassOverErrors, FailingStepIsPassedOverAndTheNextOneRuns) {
    std::string ran;
    PassOverErrors([&] { ran += 'a'; },
                   [&] {
                       ran += 'b';
                       Fail();
                   },
                   [&] { ran += 'c'; });
    EXPECT_EQ(ran, "abc");
}

TEST(PassOverErrors, RestOfAFailingStepDoesNotRun) {
    int value = 1;
    PassOverErrors([&] {
        Fail();
        value = 2;
    });
    EXPECT_EQ(value, 1);
}

TEST(PassOverErrors, OtherExceptionsGoThrough) {
    bool nextRan = false;
    EXPECT_THROW(
        PassOverErrors([] { throw std::logic_error("a fault of the program"); }, [&] { nextRan = true; }),
        std::logic_error);
    EXPECT_FALSE(nextRan);
}

TEST(IsMet, ConditionThatFailsCountsAsNotMet) {
    EXPECT_FALSE(IsMet([]() -> bool { Fail(); }));
    EXPECT_TRUE(IsMet([] { return true; }));
    EXPECT_FALSE(IsMet([] { return false; }));
}

}  // namespace
}  // namespace commtest
