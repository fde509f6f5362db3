#include <gtest/gtest.h>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::Outcome;
using testing::RunInFolder;

Outcome Search(const QStringList& words) { return RunInFolder(QStringList("search") + words); }

TEST(SearchVerb, WrongValuesAreBadUsageInOneLine) {
    const struct {
        QStringList words;
        const char* line;
    } rows[] = {
        {{"--from", "-1"}, "选项 --from 的值 \"-1\" 不对，应为 0 到 255 的整数"},
        {{"--from", "9", "--to", "8"}, "选项 --to 的值 \"8\" 不对，应为 9 到 255 的整数"},
        {{"--to", "256"}, "选项 --to 的值 \"256\" 不对，应为 1 到 255 的整数"},
        {{"--baud", "9600,300"},
         "选项 --baud 的值 \"9600,300\" 不对，应为 "
         "1200、2400、4800、9600、19200、28800、38400、57600 中的几个，用逗号隔开"},
        {{"--baud", "9600,"},
         "选项 --baud 的值 \"9600,\" 不对，应为 "
         "1200、2400、4800、9600、19200、28800、38400、57600 中的几个，用逗号隔开"},
        {{"--format", "xml"}, "选项 --format 的值 \"xml\" 不对，应为 text、csv 或 json"},
        {{"now"}, "多余的参数 \"now\""},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(
            IsProblem(Search(row.words), 2, std::string(row.line) + "。用法请看 commtest-cli search --help"));
    }
}

TEST(SearchVerb, LastAddressThatTheProtocolDoesNotHaveIsRefused) {
    EXPECT_TRUE(IsProblem(
        Search({"--from", "120", "--to", "128", "--protocol", QString::fromUtf8("TQ特殊仪表协议-NOVAX")}), 2,
        "地址 128 超出协议 \"TQ特殊仪表协议-NOVAX\" 的范围。请用 --to 另给地址"));
}

TEST(SearchVerb, UnknownNamesAreBadUsage) {
    EXPECT_TRUE(IsProblem(Search({"--protocol", "TQ"}), 2,
                          "目录中没有协议 \"TQ\"。可用名称请看 commtest-cli list protocols"));
    EXPECT_TRUE(IsProblem(Search({"--instrument", "x"}), 2,
                          "目录中没有仪表 \"x\"。可用名称请看 commtest-cli list instruments"));
}

TEST(SearchVerb, PortThatCannotBeOpenedIsToldOnceAndWithoutAWordOnTheSearch) {
    EXPECT_TRUE(
        IsProblem(Search({"--port", "COM1=/dev/no-port-to-search", "--baud", "9600,19200"}), 3,
                  "系统串口被占用,无法打开！ 设备 /dev/no-port-to-search 不存在。请检查接线和设备名"));
}

}  // namespace

}  // namespace commtest
