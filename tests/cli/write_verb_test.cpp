#include <gtest/gtest.h>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::Outcome;
using testing::RunInFolder;

const QStringList kInstrument = {"--protocol", QString::fromUtf8("TQ仪表协议"), "--instrument",
                                 QString::fromUtf8("HX-D10智能数字显示控制仪")};

// No frame leaves in these tests: the port does not exist.
Outcome Write(const QStringList& words) {
    return RunInFolder(QStringList("write") + kInstrument + words +
                       QStringList{"--port", "COM1=/dev/no-port-to-write"});
}

TEST(WriteVerb, RowAndValueAreNeeded) {
    EXPECT_TRUE(IsProblem(Write({"--value", "1"}), 2, "缺少选项 --row。用法请看 commtest-cli write --help"));
    EXPECT_TRUE(IsProblem(Write({"--row", "13"}), 2, "缺少选项 --value。用法请看 commtest-cli write --help"));
    EXPECT_TRUE(
        IsProblem(Write({"--row", "0", "--value", "1"}), 2,
                  "选项 --row 的值 \"0\" 不对，应为 1 到 32767 的整数。用法请看 commtest-cli write --help"));
}

TEST(WriteVerb, WriteTypeIsOneOfThree) {
    EXPECT_TRUE(IsProblem(
        Write({"--row", "13", "--value", "1", "--write-type", "3"}), 2,
        "选项 --write-type 的值 \"3\" 不对，应为 0 到 2 的整数。用法请看 commtest-cli write --help"));
}

TEST(WriteVerb, RowWithoutWIsRefused) {
    EXPECT_TRUE(IsProblem(
        Write({"--row", "4", "--value", "1"}), 2,
        "第 4 行 仪表型号: 注意:参数没有W属性,数据无法修改！ 属性请看 commtest-cli list parameters"));
}

TEST(WriteVerb, RowBehindTheParametersIsRefused) {
    EXPECT_TRUE(IsProblem(Write({"--row", "999", "--value", "1"}), 2,
                          "第 999 行: 没有第 999 行。行号请看 commtest-cli list parameters"));
}

Outcome WriteFirstRowOf(const char* protocol, const char* instrument) {
    return RunInFolder({"write", "--protocol", QString::fromUtf8(protocol), "--instrument",
                        QString::fromUtf8(instrument), "--row", "1", "--value", "1"});
}

TEST(WriteVerb, ProtocolWithoutAWriteIsRefused) {
    EXPECT_TRUE(
        IsProblem(WriteFirstRowOf("TQ仪表协议-定制异或和", "HX-D13智能双回路显示仪"), 2,
                  "第 1 行 恢复出厂设置: 协议 \"TQ仪表协议-定制异或和\" 不能写参数。请换用能写的协议和仪表"));
    EXPECT_TRUE(
        IsProblem(WriteFirstRowOf("TQ特殊仪表协议-HCT615D", "HX-H42超声波流量表"), 2,
                  "第 1 行 仪表型号: 协议 \"TQ特殊仪表协议-HCT615D\" 不能写参数。请换用能写的协议和仪表"));
}

TEST(WriteVerb, ValueThatIsNoNumberIsRefusedBeforeThePortIsTouched) {
    EXPECT_TRUE(IsProblem(Write({"--row", "13", "--value", "12,3x"}), 2,
                          "第 13 行 量程下限: \"12,3x\" 不是数字，没有写入"));
}

TEST(WriteVerb, ValueBeyondTheRowIsRefusedBeforeThePortIsTouched) {
    // A row with decimals of its own: nothing has to be read first.
    EXPECT_TRUE(
        IsProblem(Write({"--row", "16", "--value", "9999999999"}), 2,
                  "第 16 行 满度修正系数: \"9999999999\" 超出此行的范围，没有写入 (实时错误 '6': 溢出)"));
}

TEST(WriteVerb, PortThatCannotBeOpenedIsToldWithTheReason) {
    const char* const line =
        "系统串口被占用,无法打开！ 设备 /dev/no-port-to-write 不存在。请检查接线和设备名";
    EXPECT_TRUE(IsProblem(Write({"--row", "13", "--value", "1"}), 3, line));
    EXPECT_TRUE(IsProblem(Write({"--row", "1", "--value", "-1", "--yes"}), 3, line));
}

}  // namespace

}  // namespace commtest
