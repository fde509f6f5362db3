#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using ::testing::HasSubstr;
using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;

Outcome Check(const char* protocol, const QStringList& words, const std::string& input = {}) {
    return RunCommand(QStringList{"check", "--protocol", protocol} + words, input);
}

TEST(CheckVerb, EachProtocolHasItsCheckWord) {
    const struct {
        const char* protocol;
        const char* frame;
        const char* result;
    } rows[] = {
        {"2", "010300000001", "01 0300000001"},
        {"2", "01", "01 "},
        {"3", "01 03", "90 9D"},
        {"3", " 42 33 31 7B 49 44 2E 56 42 5A", "98 98"},
        {"11", "@01RD", "@01RD17\\0D"},
        {"11", "@ACz25E*EE4*FE58E x9CWB", "@ACz25E*EE4*FE58E x9CWB72\\0D"},
        {"11", "@0", "@0"},
        {"21", ":0103020064", "96"},
        {"21", "FF01", "100"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = Check(row.protocol, {row.frame});
        EXPECT_EQ(outcome.status, 0) << row.frame;
        EXPECT_EQ(outcome.results, std::string(row.result) + "\n");
        EXPECT_EQ(outcome.problems, "");
    }
}

TEST(CheckVerb, FrameMayBeginWithADash) {
    // The exclusive or of "7#" is 37 xor 23.
    EXPECT_EQ(Check("11", {"-7#"}).results, "@7#14\\0D\n");
    EXPECT_EQ(Check("11", {"--", "--7#"}).results, "@-7#39\\0D\n");
}

TEST(CheckVerb, HelpBehindTwoDashesIsAFrame) {
    // The exclusive or of "-help" is 2D ^ 68 ^ 65 ^ 6C ^ 70.
    EXPECT_EQ(Check("11", {"--", "--help"}).results, "@-help3C\\0D\n");
    EXPECT_EQ(Check("21", {"--", "-h"}).status, 0);
}

TEST(CheckVerb, OtherProtocolsAreBadUsage) {
    for (const char* code : {"31", "12", "0", "011", "x"}) {
        EXPECT_TRUE(IsProblem(Check(code, {"@01RD"}), 2,
                              "选项 --protocol 的值 \"" + std::string(code) +
                                  "\" 不对，应为 2、3、11 或 21。用法请看 commtest-cli check --help"));
    }
    EXPECT_TRUE(IsProblem(RunCommand({"check", "@01RD"}), 2,
                          "缺少选项 --protocol。用法请看 commtest-cli check --help"));
}

TEST(CheckVerb, TwoFramesAreBadUsage) {
    EXPECT_TRUE(
        IsProblem(Check("3", {"01", "03"}), 2, "多余的参数 \"03\"。用法请看 commtest-cli check --help"));
}

TEST(CheckVerb, OptionGivenTwiceIsBadUsage) {
    EXPECT_TRUE(IsProblem(Check("3", {"--protocol", "11", "01"}), 2,
                          "选项 --protocol 给出了两次。用法请看 commtest-cli check --help"));
    EXPECT_TRUE(IsProblem(Check("3", {"--format", "csv", "--format", "csv", "01"}), 2,
                          "选项 --format 给出了两次。用法请看 commtest-cli check --help"));
}

TEST(CheckVerb, FrameThatIsNotHexadecimalIsTold) {
    EXPECT_TRUE(IsProblem(Check("3", {"35 41 GH"}), 2, "对不起，数据串中含有非法字符,无法完成校验！"));
}

TEST(CheckVerb, EmptyFrameGivesAnEmptyLine) {
    for (const char* protocol : {"2", "3", "11", "21"}) {
        const Outcome outcome = Check(protocol, {""});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.results, "\n");
    }
}

TEST(CheckVerb, WithoutAFrameEachLineOfTheInputIsChecked) {
    const Outcome outcome = Check("11", {}, "@01RD\n\nx7#\r\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.results, "@01RD17\\0D\n\n@7#14\\0D\n");
}

TEST(CheckVerb, RefusedLineStandsEmptyAndIsToldWithItsNumber) {
    const Outcome outcome = Check("3", {}, "01 03\nZZ\n\n01 03\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.results, "90 9D\n\n\n90 9D\n");
    EXPECT_EQ(outcome.problems, "第 2 行: 对不起，数据串中含有非法字符,无法完成校验！\n");
}

TEST(CheckVerb, FramesAsCsv) {
    EXPECT_EQ(Check("11", {"--format", "csv"}, "@01RD\n\n").results, "input,result\n@01RD,@01RD17\\0D\n,\n");
}

TEST(CheckVerb, FramesAsJsonHoldTheirCarriageReturn) {
    EXPECT_EQ(Check("11", {"--format", "json"}, "@01RD\n\n").results,
              "[\n"
              "  {\"input\": \"@01RD\", \"result\": \"@01RD17\\r\"},\n"
              "  {\"input\": \"\", \"result\": \"\"}\n"
              "]\n");
    EXPECT_EQ(Check("3", {"--format", "json"}, "ZZ\n").results,
              "[\n"
              "  {\"input\": \"ZZ\", \"error\": \"对不起，数据串中含有非法字符,无法完成校验！\"}\n"
              "]\n");
}

TEST(CheckVerb, NumberFormatsBelongToConvert) {
    EXPECT_TRUE(IsProblem(
        Check("3", {"--format", "0", "01"}), 2,
        "选项 --format 的值 \"0\" 不对，应为 text、csv 或 json。用法请看 commtest-cli check --help"));
}

TEST(CheckVerb, HelpTellsTheProtocolsAndTheTwoDashes) {
    const Outcome outcome = RunCommand({"check", "--help"});
    EXPECT_THAT(outcome.results, HasSubstr("\n  21  ModBus-ASCII 的 LRC\n"));
    EXPECT_THAT(outcome.results, HasSubstr("以 -- 开头的帧写在单独的 -- 之后。\n"));
}

}  // namespace

}  // namespace commtest
