#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sstream>
#include <utility>

#include "cli/command_line.h"
#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::IsProblem;
using ::testing::Not;
using testing::Outcome;
using testing::RunCommand;
using ::testing::StartsWith;

Outcome Convert(QStringList words, const std::string& input = {}) {
    words.prepend("convert");
    return RunCommand(words, input);
}

QJsonArray JsonOf(const Outcome& outcome) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.results)).array();
}

std::vector<std::string> NotesOf(const QStringList& words) {
    const Outcome outcome = Convert(words + QStringList{"--explain", "--format", "json"});
    std::vector<std::string> notes;
    for (const auto& note : JsonOf(outcome).at(0)["notes"].toArray()) {
        notes.push_back(note.toString().toStdString());
    }
    return notes;
}

TEST(ConvertVerb, EachFormatConvertsBothWays) {
    const struct {
        const char* format;
        const char* direction;
        const char* text;
        const char* result;
    } rows[] = {
        {"0", "--to-code", "1234", "D204"},
        {"0", "--to-value", "D284", "-1234"},
        {"1", "--to-code", "-890", "FC86"},
        {"1", "--to-value", "D867", "-10137"},
        {"2", "--to-code", "9558.75", "0E955B00"},
        {"2", "--to-value", "07C90000", "100.5"},
        {"3", "--to-code", "-0.1", "BDCCCCCD"},
        {"3", "--to-value", "4048F5C3", "3.14"},
        {"4", "--to-code", "-48514.75", "-48514.75"},
        {"4", "--to-value", "C304", "C304"},
        {"5", "--to-code", "737.64", "0200073764"},
        {"5", "--to-value", "0900000123", "-12.3"},
        {"6", "--to-code", "-1", "8001"},
        {"6", "--to-value", "C28A", "-17034"},
        {"7", "--to-code", "257", "01"},
        {"7", "--to-value", "C7", "199"},
        {"8", "--to-code", "999.9", "999.9"},
        {"8", "--to-value", "04A0000007C90000", "1100.5"},
        {"9", "--to-code", "86838", "86838"},
        {"9", "--to-value", "97688", "620168"},
        {"10", "--to-code", "471", "471"},
        {"10", "--to-value", "F13F", "F13F"},
        {"11", "--to-code", "1.11004", "1.11004"},
        {"11", "--to-value", "BF000000", "-0.5"},
        {"12", "--to-code", "-1000", "83E8"},
        {"12", "--to-value", "AE9B", "-20837"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = Convert({"--format", row.format, row.direction, row.text});
        EXPECT_EQ(outcome.status, 0) << row.format << row.direction;
        EXPECT_EQ(outcome.results, std::string(row.result) + "\n") << row.format << row.direction;
        EXPECT_EQ(outcome.problems, "");
    }
}

TEST(ConvertVerb, WithoutADirectionAValueBecomesACode) {
    EXPECT_EQ(Convert({"--format", "0", "1234"}).results, "D204\n");
}

TEST(ConvertVerb, NegativeNumberIsNoOptionWhereverItStands) {
    for (const QStringList& words : {QStringList{"--format", "0", "--to-code", "-1234"},
                                     {"-1234", "--format", "0"},
                                     {"--to-code", "-1234", "--format=0"},
                                     {"--format", "0", "--", "-1234"}}) {
        EXPECT_EQ(Convert(words).results, "D284\n") << words.join(' ').toStdString();
    }
    EXPECT_EQ(Convert({"--format", "12", "-.5"}).results, "8000\n");
}

TEST(ConvertVerb, TextThatHoldsNoDigitsOfItsCodeIsRefusedWithTheCharacter) {
    const struct {
        const char* format;
        const char* code;
        const char* reason;
    } rows[] = {
        {"0", "12G4", "第 3 个字符 \"G\" 不是十六进制数字"},
        {"0", "xyzw", "第 1 个字符 \"x\" 不是十六进制数字"},
        {"1", "", "没有数字"},
        {"1", "FB 2E", "第 3 个字符 \" \" 不是十六进制数字"},
        {"2", "温度", "第 1 个字符 \"温\" 不是十六进制数字"},
        {"3", "4120000O", "第 8 个字符 \"O\" 不是十六进制数字"},
        {"5", "02000012E1", "第 9 个字符 \"E\" 不是十进制数字"},
        {"6", "0x01", "第 2 个字符 \"x\" 不是十六进制数字"},
        {"7", "-1", "第 1 个字符 \"-\" 不是十六进制数字"},
        {"8", "04A0000007C9000.", "第 16 个字符 \".\" 不是十六进制数字"},
        {"9", "1G", "第 2 个字符 \"G\" 不是十六进制数字"},
        {"11", "BF0000Z0", "第 7 个字符 \"Z\" 不是十六进制数字"},
        {"12", "AE9+", "第 4 个字符 \"+\" 不是十六进制数字"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(IsProblem(Convert({"--format", row.format, "--to-value", row.code}), 2,
                              "\"" + std::string(row.code) + "\" 不是格式 " + row.format + " 的代码：" +
                                  row.reason + "。仍要换算请加 --lenient"));
    }
}

TEST(ConvertVerb, LenientGivesWhatTheCodecReads) {
    const struct {
        const char* format;
        const char* code;
        const char* result;
    } rows[] = {{"1", "", "0"}, {"9", "1G", "1"}, {"0", "12G45", "12G45"}, {"7", "-1", "0"}};
    for (const auto& row : rows) {
        const Outcome outcome = Convert({"--format", row.format, "--to-value", "--lenient", row.code});
        EXPECT_EQ(outcome.status, 0) << row.code;
        EXPECT_EQ(outcome.results, std::string(row.result) + "\n");
    }
    EXPECT_TRUE(IsProblem(Convert({"--format", "5", "--to-value", "--lenient", "02000012G4"}), 2,
                          "\"02000012G4\" 不是格式 5 能读出的代码：第 9 个字符 \"G\" 不是十进制数字"));
}

TEST(ConvertVerb, LenientIsForValuesAlone) {
    EXPECT_TRUE(IsProblem(Convert({"--format", "0", "--lenient", "5"}), 2,
                          "选项 --lenient 只用于 --to-value。用法请看 commtest-cli convert --help"));
}

TEST(ConvertVerb, FormatsThatConvertNothingTakeAnyText) {
    EXPECT_EQ(Convert({"--format", "4", "--to-value", "xyz"}).results, "xyz\n");
    EXPECT_EQ(Convert({"--format", "10", "--to-value", ""}).results, "\n");
}

TEST(ConvertVerb, WrongWordsAreBadUsageInOneLine) {
    const struct {
        QStringList words;
        const char* line;
    } rows[] = {
        {{"5"}, "缺少数值格式: --format 0 到 12"},
        {{"--format", "json", "5"}, "缺少数值格式: --format 0 到 12"},
        {{"--format", "13", "5"}, "选项 --format 的值 \"13\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", "-1", "5"}, "选项 --format 的值 \"-1\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", "0", "--format", "xml", "5"},
         "选项 --format 的值 \"xml\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", "0", "--format", "1", "5"}, "选项 --format 的值 \"1\" 多余"},
        {{"--format", "csv", "--format", "0", "--format", "json", "5"}, "选项 --format 的值 \"json\" 多余"},
        {{"--format", "0", "--to-code", "--to-value", "5"}, "选项 --to-code 和 --to-value 只能用一个"},
        {{"--format", "0", "5", "-6"}, "多余的参数 \"-6\""},
        {{"5", "--format"}, "选项 --format 的值缺少或多余"},
        {{"--format", "0", "-to-value", "5"}, "多余的参数 \"-to-value\""},
        {{"--format", "0", "5", "-t", "6"}, "多余的参数 \"-t\""},
        {{"--format", "0", "-5", "-6"}, "多余的参数 \"-6\""},
        {{"--format", "00", "5"}, "选项 --format 的值 \"00\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", "+3", "5"}, "选项 --format 的值 \"+3\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", " 3", "5"}, "选项 --format 的值 \" 3\" 不对，应为数值格式 0 到 12，或 text、csv、json"},
        {{"--format", "0", "--explain", "--explain", "5"}, "选项 --explain 给出了两次"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(IsProblem(Convert(row.words), 2,
                              std::string(row.line) + "。用法请看 commtest-cli convert --help"));
    }
}

TEST(ConvertVerb, TextThatTheCodecRefusesIsTold) {
    const struct {
        QStringList words;
        const char* line;
    } rows[] = {
        {{"--format", "0", "12:5"}, "\"12:5\" 不是数值"},
        {{"--format", "0", ""}, "\"\" 不是数值"},
        {{"--format", "0", "-x"}, "\"-x\" 不是数值"},
        {{"--format", "0", "1E+30"}, "\"1E+30\" 超出格式 0 的范围"},
        {{"--format", "5", "--to-value", "0A00001234"},
         "\"0A00001234\" 不是格式 5 能读出的代码：负数有两位以上小数时第 2 个字符是字母，读不出"},
        {{"--format", "5", "--to-value", "02000012G4"},
         "\"02000012G4\" 不是格式 5 能读出的代码：第 9 个字符 \"G\" 不是十进制数字"},
        {{"--format", "3", "--to-value", "7F800000"}, "\"7F800000\" 不是有限的数"},
        {{"--format", "0", "--format", "json", "12:5"}, "\"12:5\" 不是数值"},
    };
    for (const auto& row : rows) EXPECT_TRUE(IsProblem(Convert(row.words), 2, row.line));
}

TEST(ConvertVerb, LongRefusedTextIsQuotedByItsBeginning) {
    const std::string sixty = "012345678901234567890123456789012345678901234567890123456789";
    EXPECT_TRUE(IsProblem(Convert({"--format", "0", QString::fromStdString("x" + sixty.substr(1))}), 2,
                          "\"x" + sixty.substr(1) + "\" 不是数值"));
    EXPECT_TRUE(IsProblem(Convert({"--format", "0", QString::fromStdString("x" + sixty)}), 2,
                          "\"x" + sixty.substr(0, 58) + "…\" 不是数值"));
}

TEST(ConvertVerb, WithoutATextEachLineOfTheInputIsConverted) {
    const Outcome outcome = Convert({"--format", "0"}, "1\n-1\r\n12345");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.results, "0100\n0180\n3930\n");
    EXPECT_EQ(outcome.problems, "");
}

TEST(ConvertVerb, ByteOrderMarkInFrontOfTheFirstLineIsNoText) {
    const Outcome outcome = Convert({"--format", "0", "--format", "csv"},
                                    "\xEF\xBB\xBF"
                                    "1\n\xEF\xBB\xBF"
                                    "1\n");
    EXPECT_EQ(outcome.results, "input,result\n1,0100\n\\FEFF1,\n");
    EXPECT_EQ(outcome.problems, "第 2 行: \"\\FEFF1\" 不是数值\n");
}

TEST(ConvertVerb, WithATextTheInputIsLeftAlone) {
    EXPECT_EQ(Convert({"--format", "0", "1"}, "2\n").results, "0100\n");
}

TEST(ConvertVerb, EmptyInputGivesNoLine) {
    EXPECT_EQ(Convert({"--format", "0"}).results, "");
    EXPECT_EQ(Convert({"--format", "0", "--format", "csv"}).results, "input,result\n");
    EXPECT_EQ(Convert({"--format", "0", "--format", "json"}).results, "[\n]\n");
}

TEST(ConvertVerb, RefusedLineStandsEmptyAndIsToldWithItsNumber) {
    const Outcome outcome = Convert({"--format", "0"}, "1\n12:5\n\n-1\n1E+30\n2\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.results, "0100\n\n\n0180\n\n0200\n");
    EXPECT_EQ(outcome.problems,
              "第 2 行: \"12:5\" 不是数值\n"
              "第 3 行: \"\" 不是数值\n"
              "第 5 行: \"1E+30\" 超出格式 0 的范围\n");
}

TEST(ConvertVerb, LinesAsCsv) {
    const Outcome outcome = Convert({"--format", "0", "--format", "csv"}, "1\na,\"b\"\n-1\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.results, "input,result\n1,0100\n\"a,\"\"b\"\"\",\n-1,0180\n");
}

TEST(ConvertVerb, LinesAsJson) {
    const Outcome outcome = Convert({"--format", "json", "--format", "0"}, "1\na\"\x1B\xE2\x80\xAE\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.results,
              "[\n"
              "  {\"input\": \"1\", \"result\": \"0100\"},\n"
              "  {\"input\": \"a\\\"\\u001B\\u202E\", "
              "\"error\": \"\\\"a\\\"\\u001B\\u202E\\\" 不是数值\"}\n"
              "]\n");
    EXPECT_EQ(outcome.problems, "第 2 行: \"a\"\\1B\\202E\" 不是数值\n");
}

TEST(ConvertVerb, OneTextIsAnArrayOfJsonToo) {
    EXPECT_EQ(Convert({"--format", "0", "--format", "json", "1"}).results,
              "[\n  {\"input\": \"1\", \"result\": \"0100\"}\n]\n");
}

TEST(ConvertVerb, UserAtATerminalIsToldOnceWhatIsExpected) {
    for (const auto& [direction, expected] : {std::pair{"--to-code", "每行输入一个数值，Ctrl-D 结束\n"},
                                              std::pair{"--to-value", "每行输入一个代码，Ctrl-D 结束\n"}}) {
        std::istringstream lines("0000\n0000\n");
        std::ostringstream results;
        std::ostringstream problems;
        Console console({lines, true}, results, problems);
        EXPECT_EQ(RunCommandLine({"convert", "--format", "0", direction}, console), 0);
        EXPECT_EQ(problems.str(), expected);
    }
}

TEST(ConvertVerb, LinesEndWhereResultsCannotBeWritten) {
    std::istringstream lines("1\n2\n3\n");
    std::ostringstream results;
    std::ostringstream problems;
    results.setstate(std::ios::badbit);
    Console console({lines}, results, problems);
    EXPECT_EQ(RunCommandLine({"convert", "--format", "0"}, console), 3);
    EXPECT_EQ(problems.str(), "结果写不出去，请检查标准输出\n");
    std::string next;
    std::getline(lines, next);
    EXPECT_EQ(next, "1");
}

TEST(ConvertVerb, InputThatCannotBeReadIsAProblem) {
    std::istringstream lines;
    lines.setstate(std::ios::badbit);
    std::ostringstream results;
    std::ostringstream problems;
    Console console({lines}, results, problems);
    EXPECT_EQ(RunCommandLine({"convert", "--format", "0"}, console), 3);
    EXPECT_EQ(problems.str(), "标准输入读不出来，请检查它的来源\n");
}

TEST(ConvertVerb, TextIsUtf8AndControlCharactersAreShown) {
    EXPECT_EQ(Convert({"--format", "4"}, "温\x1B[2J\rx\n").results, "温\\1B[2J\\0Dx\n");
}

TEST(ConvertVerb, ExplanationStandsBehindTheResult) {
    EXPECT_EQ(Convert({"--format", "0", "--to-value", "0001", "--explain"}).results,
              "256\n"
              "\n"
              "双字节(原码)转换成数值\n"
              "\n"
              "第一步: 高低位对调,即   0001 ---> 0100\n"
              "\n"
              "第二步: 数据从十六进制转换成十进制,就是  0100 ---> 256\n"
              "\n"
              "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \n");
}

TEST(ConvertVerb, NotesStandBehindTheExplanation) {
    EXPECT_EQ(Convert({"--format", "9", "--to-value", "FF", "--explain"}).results,
              "255\n"
              "\n"
              "未编写\n"
              "\n"
              "注意: 格式 9 只能读出，数值不能写成代码\n");
}

TEST(ConvertVerb, ExplainedLinesHaveABlankLineBetween) {
    EXPECT_EQ(Convert({"--format", "7", "--explain"}, "11\n12:5\n12\n").results,
              "0B\n"
              "\n"
              "单字节数据直接转换,即从十六进制转换成十进制,就是  0B ---> 11\n"
              "\n"
              "\n"
              "\n"
              "0C\n"
              "\n"
              "单字节数据直接转换,即从十六进制转换成十进制,就是  0C ---> 12\n");
}

TEST(ConvertVerb, ExplanationAndNotesAsCsv) {
    EXPECT_EQ(Convert({"--format", "9", "--format", "csv", "--to-value", "--explain"}, "FF\n").results,
              "input,result,explanation,notes\n"
              "FF,255,未编写,格式 9 只能读出，数值不能写成代码\n");
}

TEST(ConvertVerb, ExplanationAndNotesAsJson) {
    const QJsonArray array =
        JsonOf(Convert({"--format", "0", "--format", "json", "--to-value", "--explain"}, "0080\nD204\n"));
    ASSERT_EQ(array.size(), 2);
    EXPECT_EQ(array[0]["result"].toString().toStdString(), "-0");
    EXPECT_THAT(array[0]["explanation"].toString().toStdString(),
                StartsWith("双字节(原码)转换成数值\r\n\r\n第一步: "));
    EXPECT_EQ(array[0]["notes"].toArray().size(), 1);
    EXPECT_EQ(array[1]["result"].toString().toStdString(), "1234");
    EXPECT_EQ(array[1]["notes"].toArray().size(), 0);
}

TEST(ConvertVerb, EachFormatHasItsExplanation) {
    const struct {
        const char* format;
        const char* direction;
        const char* text;
        const char* begin;
    } rows[] = {
        {"0", "--to-code", "1234", "双字节(原码)转换成数值\r\n\r\n第一步: 高低位对调,即   D204 ---> 04D2"},
        {"0", "--to-value", "0B800000", "自定义浮点数转换成具体数值的计算过程\r\n\r\n"},
        {"1", "--to-code", "-890", "双字节(补码)转换成数值\r\n\r\n"},
        {"2", "--to-code", "10", "具体数值转换成自定义浮点数的计算过程\r\n\r\n"},
        {"2", "--to-value", "04A00000", "自定义浮点数转换成具体数值的计算过程\r\n\r\n"},
        {"3", "--to-code", "10", "IEEE754浮点数转换成具体数值的计算过程\r\n\r\n第一步: 判断数据 10 "},
        {"4", "--to-value", "C304", "电量集中显示仪特殊数据转换成具体数值的计算过程\r\n\r\n"},
        {"5", "--to-code", "-5", "BCD码转换成具体数值的计算过程\r\n\r\n第一步: 将数据 0800000005 "},
        {"6", "--to-code", "1", "双字节(原码)转换成数值\r\n\r\n注意: 这里数据的高低位是不进行对调的!"},
        {"8", "--to-value", "04A0000007C90000", "所谓8个字节的累积值(合成数据)的计算过程\r\n\r\n"},
        {"10", "--to-value", "0123", "HCT615D流量表BCD码转换成具体数值的计算过程(定制)\r\n\r\n"},
        {"12", "--to-value", "0123", "TQ流量计数据转换成具体数值的计算过程\r\n\r\n暂时未编写"},
    };
    for (const auto& row : rows) {
        const QJsonArray array = JsonOf(
            Convert({"--format", row.format, row.direction, row.text, "--explain", "--format", "json"}));
        EXPECT_THAT(array.at(0)["explanation"].toString().toStdString(), StartsWith(row.begin))
            << row.format << row.direction;
    }
    EXPECT_THAT(Convert({"--format", "11", "--to-value", "41200000", "--explain"}).results,
                StartsWith("10\n\n注意: "));
}

TEST(ConvertVerb, ErrorOfAnExplainerLeavesWhatStandsByThen) {
    // The explainer of the BCD code ends before its last step; the code itself stands.
    const Outcome outcome = Convert({"--format", "5", "-12.34", "--explain"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.results, StartsWith("0A00001234\n\nBCD码转换成具体数值的计算过程\n"));
    EXPECT_THAT(outcome.results, HasSubstr("第四步: "));
    EXPECT_THAT(outcome.results, Not(HasSubstr("第五步: ")));
    EXPECT_EQ(outcome.problems, "");
}

TEST(ConvertVerb, WayBackToTheSameHasNoNote) {
    for (const QStringList& words : {QStringList{"--format", "0", "-1234"},
                                     {"--format", "0", "--to-value", "d204"},
                                     {"--format", "1", "--to-value", "FB2E"},
                                     {"--format", "2", "100.50"},
                                     {"--format", "2", "--to-value", "00C00000"},
                                     {"--format", "3", "--to-value", "BF000000"},
                                     {"--format", "5", "12.50"},
                                     {"--format", "5", "--to-value", "0900000123"},
                                     {"--format", "7", "200"},
                                     {"--format", "6", "32767"}}) {
        EXPECT_THAT(NotesOf(words), ::testing::IsEmpty()) << words.join(' ').toStdString();
    }
}

TEST(ConvertVerb, NotesTellWhatTheResultDoesNotKeep) {
    using ::testing::ElementsAre;
    EXPECT_THAT(NotesOf({"--format", "0", "203392"}),
                ElementsAre("代码 801A 读回为 6784，不是 203392：超出范围 -32767 到 32767，高位丢失"));
    EXPECT_THAT(NotesOf({"--format", "12", "-5"}),
                ElementsAre("代码 8005 读回为 -32763，不是 -5：格式 12 写原码、读补码，负数读不回来",
                            "换算过程按另一种读法，与结果不符"));
    EXPECT_THAT(NotesOf({"--format", "3", "--to-value", "4120"}),
                ElementsAre("数值 10 写回为 41200000，不是 4120：写出的代码是 8 个字符",
                            "校验码工具的“IEEE-754浮点数->数值”显示 0"));
    EXPECT_THAT(NotesOf({"--format", "3", "10"}), ElementsAre("换算过程是自定义浮点数的，不得出 41200000"));
}

TEST(ConvertVerb, CustomFloatOfAnyLengthIsExplainedAsOne) {
    const QJsonArray array =
        JsonOf(Convert({"--format", "2", "--to-value", "8001", "--explain", "--format", "json"}));
    EXPECT_EQ(array.at(0)["result"].toString().toStdString(), "-0.0039062");
    const std::string explanation = array.at(0)["explanation"].toString().toStdString();
    EXPECT_THAT(explanation, StartsWith("自定义浮点数转换成具体数值的计算过程\r\n\r\n第一步: 将数据 8001 "));
    EXPECT_THAT(explanation, HasSubstr("浮点数 8001 转换后的数值是  -0.00390625\r\n"));
}

TEST(ConvertVerb, HelpTellsTheNumberFormats) {
    const Outcome outcome = Convert({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.results, HasSubstr("\n数值格式:\n  0   双字节原码，低字节在前\n"));
    EXPECT_THAT(
        outcome.results,
        HasSubstr(
            "\n  4、10 不作换算\n\n例:\n  $ commtest-cli convert --format 0 --to-value D204\n  1234\n"));
    EXPECT_THAT(outcome.results, HasSubstr("以 -- 开头的数值或代码写在单独的 -- 之后。\n"));
}

}  // namespace

}  // namespace commtest
