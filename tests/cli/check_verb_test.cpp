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

Outcome CheckFamily(const char* family, const QStringList& words, const std::string& input = {}) {
    return RunCommand(QStringList{"check", "--family", family} + words, input);
}

TEST(CheckFamilies, EachHasItsCheckWordAsItStandsOnTheWire) {
    const std::string leadOfReply(68, 'A');
    const struct {
        const char* family;
        std::string frame;
        const char* result;
    } rows[] = {
        {"native", "@01RD", "17"},
        {"native-sum", "@02RD", "F8"},
        {"native-fill", "@03RD", "15"},
        {"modbus-ascii", ":010300100001", "EB"},
        {"modbus-ascii", ":FF01", "00"},
        {"modbus-ascii", ":ff01", "00"},
        {"modbus-ascii-bcd", ":01031001", "7A"},
        {"modbus-rtu", "01 03 00 10 00 01", "85 CF"},
        {"modbus-rtu", "010300100001", "85 CF"},
        {"modbus-rtu", " 01  03 0010 00 01 ", "85 CF"},
        {"novax", "81 81 52 12 00 00", "53 12"},
        {"novax", "81 81 43 12 65 FF", "A9 11"},
        {"novax", "FA 00 FE FF 03 C8 6A FF", "2B 05"},
        {"hct615d", "AA AA AA AA AA AA AA 07 02 01 01 00", "0B 05"},
        {"hct615d", leadOfReply + "0702010100" + std::string(34, '0') + "1234", "51 23"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = CheckFamily(row.family, {QString::fromStdString(row.frame)});
        EXPECT_EQ(outcome.status, 0) << row.family << row.frame;
        EXPECT_EQ(outcome.results, std::string(row.result) + "\n") << row.family << row.frame;
    }
}

TEST(CheckFamilies, WholeFrameIsRight) {
    const std::string leadOfReply(68, 'A');
    const std::string covered = "0702010100" + std::string(34, '0') + "1234";
    const struct {
        const char* family;
        std::string frame;
    } rows[] = {
        {"native", "@01RD17"},
        {"native", "@01RD17\\0D"},
        {"native", "@01RD17\r"},
        {"native-sum", "@02RDF8\\0D"},
        {"native-fill", "@03RD1500\\0D"},
        {"native-fill", "@03RD150000"},
        {"native-fill", "@03RD00C80064006C"},
        {"modbus-ascii", ":010300100001EB\\0D\\0A"},
        {"modbus-ascii", ":010300100001EB"},
        {"modbus-ascii", ":FF0100"},
        {"modbus-ascii-bcd", ":010310017A"},
        {"modbus-rtu", "01 03 00 10 00 01 85 CF"},
        {"modbus-rtu", "01 83 02 c0 f1"},
        {"novax", "81 81 52 12 00 00 53 12"},
        {"novax", "FA 00 FE FF 03 C8 6A FF 2B 05"},
        {"hct615d", "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05"},
        {"hct615d", leadOfReply + covered + "512300000000"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = CheckFamily(row.family, {"--verify", QString::fromStdString(row.frame)});
        EXPECT_EQ(outcome.status, 0) << row.family << row.frame;
        EXPECT_EQ(outcome.results, "正确\n") << row.family << row.frame;
    }
}

TEST(CheckFamilies, WrongFrameIsStatus1AndHasTheRightWord) {
    const struct {
        const char* family;
        const char* frame;
        const char* words;
    } rows[] = {
        {"native", "@01RD18\\0D", "错误，帧中为 18，应为 17"},
        {"native-sum", "@02RDF9", "错误，帧中为 F9，应为 F8"},
        {"native-fill", "@03RD1600", "错误，帧中为 16，应为 15"},
        {"native-fill", "@03RD00C80064006D", "错误，帧中为 6D，应为 6C"},
        {"modbus-ascii", ":010300100001EC", "错误，帧中为 EC，应为 EB"},
        {"modbus-ascii-bcd", ":010310017B", "错误，帧中为 7B，应为 7A"},
        {"modbus-rtu", "01 03 00 10 00 01 CF 85", "错误，帧中为 CF 85，应为 85 CF"},
        {"novax", "81 81 52 12 00 00 12 53", "错误，帧中为 12 53，应为 53 12"},
        {"hct615d", "AA AA AA AA AA AA AA 07 02 01 01 00 05 0B", "错误，帧中为 05 0B，应为 0B 05"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = CheckFamily(row.family, {"--verify", row.frame});
        EXPECT_EQ(outcome.status, 1) << row.family;
        EXPECT_EQ(outcome.results, std::string(row.words) + "\n");
        EXPECT_EQ(outcome.problems, "");
    }
}

TEST(CheckFamilies, TextThatIsNoFrameIsRefusedWithTheReason) {
    const struct {
        const char* family;
        QStringList words;
        const char* line;
    } rows[] = {
        {"modbus-rtu", {"01 03 0G"}, "\"01 03 0G\" 第 8 个字符 \"G\" 不是十六进制数字"},
        {"modbus-rtu", {"01 03 0 10"}, "\"01 03 0 10\" 第 8 个字符 \" \" 不是十六进制数字"},
        {"modbus-rtu", {"01 3"}, "\"01 3\" 十六进制数字的个数是单数"},
        {"modbus-rtu", {"01"}, "\"01\" 帧太短"},
        {"modbus-rtu", {"--verify", "01 03 85"}, "\"01 03 85\" 帧太短"},
        {"native", {"01RD"}, "\"01RD\" 帧不以 \"@\" 开头"},
        {"native", {"@"}, "\"@\" 帧太短"},
        {"native", {"--verify", "@17"}, "\"@17\" 帧太短"},
        {"modbus-ascii", {"010300100001"}, "\"010300100001\" 帧不以 \":\" 开头"},
        {"modbus-ascii", {":01030"}, "\":01030\" 十六进制数字的个数是单数"},
        {"modbus-ascii", {":01x3"}, "\":01x3\" 第 4 个字符 \"x\" 不是十六进制数字"},
        {"novax", {"81 81 52"}, "\"81 81 52\" NOVAX 的帧连同校验码为 8 字节 (请求) 或 10 字节 (回答)"},
        {"novax", {"01 01 52 12 00 00"}, "\"01 01 52 12 00 00\" 请求的第 1 字节是地址加 80，不会小于 80"},
        {"hct615d", {"07 02"}, "\"07 02\" HCT615D 的帧连同校验码为 14 字节 (请求) 或 64 字节 (回答)"},
    };
    for (const auto& row : rows) EXPECT_TRUE(IsProblem(CheckFamily(row.family, row.words), 2, row.line));
}

TEST(CheckFamilies, FrameWhoseSumLeavesSixteenBitsIsRefused) {
    const QString frame = ":" + QString("FF").repeated(200);
    const Outcome outcome = CheckFamily("modbus-ascii", {frame});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.problems, HasSubstr("\" 太长，校验和超出 16 位\n"));
}

TEST(CheckFamilies, LinesAreVerifiedAsCsv) {
    const Outcome outcome = CheckFamily("modbus-rtu", {"--verify", "--format", "csv"},
                                        "010300100001 85CF\n01 03 00 10 00 01 85 CE\nxx\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.results,
              "input,check,found,expected\n"
              "010300100001 85CF,right,85 CF,85 CF\n"
              "01 03 00 10 00 01 85 CE,wrong,85 CE,85 CF\n"
              "xx,,,\n");
    EXPECT_EQ(outcome.problems, "第 3 行: \"xx\" 第 1 个字符 \"x\" 不是十六进制数字\n");
}

TEST(CheckFamilies, OneFrameIsVerifiedAsJson) {
    EXPECT_EQ(CheckFamily("native", {"--verify", "--format", "json", "@01RD18"}).results,
              "[\n  {\"input\": \"@01RD18\", \"check\": \"wrong\", \"found\": \"18\", "
              "\"expected\": \"17\"}\n]\n");
}

TEST(CheckFamilies, HelpTellsThemWithAnExample) {
    const Outcome outcome = RunCommand({"check", "--help"});
    EXPECT_THAT(outcome.results,
                HasSubstr("\n  modbus-rtu        CRC-16，两个字节，低字节在前 (31 至 35、51)\n"));
    EXPECT_THAT(outcome.results,
                HasSubstr("\n  $ commtest-cli check --family modbus-rtu \"01 03 00 10 00 01\"\n  85 CF\n"));
}

TEST(CheckFamilies, WrongWordsAreBadUsage) {
    EXPECT_TRUE(
        IsProblem(CheckFamily("crc", {"01"}), 2,
                  "选项 --family 的值 \"crc\" 不对，应为 native、native-sum、native-fill、modbus-ascii、"
                  "modbus-ascii-bcd、modbus-rtu、novax、hct615d。用法请看 commtest-cli check --help"));
    EXPECT_TRUE(IsProblem(CheckFamily("native", {"--protocol", "11", "@01RD"}), 2,
                          "选项 --family 和 --protocol 只能用一个。用法请看 commtest-cli check --help"));
    EXPECT_TRUE(IsProblem(Check("11", {"--verify", "@01RD17"}), 2,
                          "缺少选项 --family。用法请看 commtest-cli check --help"));
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
