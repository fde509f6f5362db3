#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "catalogue/catalogue_connection.h"
#include "cli/command_line_runner.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;
using testing::RunInFolder;

const QStringList kInstrument = {"--protocol", QString::fromUtf8("TQ仪表协议"), "--instrument",
                                 QString::fromUtf8("HX-D10智能数字显示控制仪")};

Outcome Poll(const QStringList& words) { return RunInFolder(QStringList("poll") + kInstrument + words); }

TEST(PollVerb, WrongValuesAreBadUsageInOneLine) {
    const struct {
        QStringList words;
        const char* line;
    } rows[] = {
        {{"--address", "x"}, "选项 --address 的值 \"x\" 不对，应为 0 到 65535 的整数"},
        {{"--address", "-1"}, "选项 --address 的值 \"-1\" 不对，应为 0 到 65535 的整数"},
        {{"--interval", "1.5"}, "选项 --interval 的值 \"1.5\" 不对，应为 0 到 3600000 的整数"},
        {{"--count", "0"}, "选项 --count 的值 \"0\" 不对，应为 1 到 32767 的整数"},
        {{"--exchanges", "0"}, "选项 --exchanges 的值 \"0\" 不对，应为 1 到 2000000000 的整数"},
        {{"--seconds", "0"}, "选项 --seconds 的值 \"0\" 不对，应为大于 0 的秒数"},
        {{"--seconds", "soon"}, "选项 --seconds 的值 \"soon\" 不对，应为大于 0 的秒数"},
        {{"--command", "33"}, "选项 --command 的值 \"33\" 不对，应为 10、20、31、40、50、60、80、90、91"},
        {{"--show", "octal"}, "选项 --show 的值 \"octal\" 不对，应为 ascii 或 hex"},
        {{"--face", "latin"}, "选项 --face 的值 \"latin\" 不对，应为 chinese 或 english"},
        {{"--format", "xml"}, "选项 --format 的值 \"xml\" 不对，应为 text、csv、json 或 jsonl"},
        {{"--port", "ttyUSB0"},
         "选项 --port 的值 \"ttyUSB0\" 不对，应为 COM1、COM1=设备 或 /dev/ttyUSB0 的形式"},
        {{"--port", "COM0"}, "选项 --port 的值 \"COM0\" 不对，应为 COM1、COM1=设备 或 /dev/ttyUSB0 的形式"},
        {{"--settings", "9600,X,8,1"},
         "选项 --settings 的值 \"9600,X,8,1\" 不对，应为 9600,N,8,1 的形式 (波特率,校验 N/O/E,数据位 5 至 "
         "8,停止位 "
         "1/1.5/2)"},
        {{"--settings", "2,N,8,1"},
         "选项 --settings 的值 \"2,N,8,1\" 不对，应为 9600,N,8,1 的形式 (波特率,校验 N/O/E,数据位 5 至 "
         "8,停止位 "
         "1/1.5/2)"},
        {{"--until", "25:00"},
         "选项 --until 的值 \"25:00\" 不对，应为 HH:MM[:SS]，或将来的 2026-11-23 06:30"},
        {{"--until", "2020-01-01 06:30"},
         "选项 --until 的值 \"2020-01-01 06:30\" 不对，应为 HH:MM[:SS]，或将来的 2026-11-23 06:30"},
        {{"--retries", "101"}, "选项 --retries 的值 \"101\" 不对，应为 0 到 100 的整数"},
        {{"--trace", "-"}, "选项 --trace 的值 \"-\" 不对，应为文件名"},
        {{"--trace", "/tmp/a", "--record", "/tmp/../tmp/a"}, "选项 --record 和 --trace 是同一个文件"},
        {{"now"}, "多余的参数 \"now\""},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(
            IsProblem(Poll(row.words), 2, std::string(row.line) + "。用法请看 commtest-cli poll --help"));
    }
}

TEST(PollVerb, OptionsOfTheRecordHaveToFitEachOther) {
    const char* const help = "。用法请看 commtest-cli poll --help";
    EXPECT_TRUE(
        IsProblem(Poll({"--append"}), 2, std::string("选项 --append 要和 --record 文件 一起用") + help));
    EXPECT_TRUE(IsProblem(Poll({"--append", "--record", "-"}), 2,
                          std::string("选项 --append 要和 --record 文件 一起用") + help));
    EXPECT_TRUE(IsProblem(Poll({"--record", "-", "--format", "csv"}), 2,
                          std::string("选项 --record - 和 --format csv 只能用一个") + help));
}

TEST(PollVerb, ProtocolAndInstrumentAreNeeded) {
    EXPECT_TRUE(
        IsProblem(RunInFolder({"poll"}), 2, "缺少选项 --protocol。用法请看 commtest-cli poll --help"));
    EXPECT_TRUE(IsProblem(RunInFolder({"poll", "--protocol", "x"}), 2,
                          "缺少选项 --instrument。用法请看 commtest-cli poll --help"));
}

TEST(PollVerb, UnknownNamesAreBadUsage) {
    EXPECT_TRUE(IsProblem(RunInFolder({"poll", "--protocol", "TQ", "--instrument", "x"}), 2,
                          "目录中没有协议 \"TQ\"。可用名称请看 commtest-cli list protocols"));
    EXPECT_TRUE(
        IsProblem(RunInFolder({"poll", "--protocol", QString::fromUtf8("TQ仪表协议"), "--instrument", "x"}),
                  2, "目录中没有仪表 \"x\"。可用名称请看 commtest-cli list instruments"));
}

TEST(PollVerb, InstrumentOfAnotherProtocolIsToldWithItsProtocol) {
    EXPECT_TRUE(IsProblem(RunInFolder({"poll", "--protocol", QString::fromUtf8("TQ仪表协议-定制累加和"),
                                       "--instrument", QString::fromUtf8("HX-D10智能数字显示控制仪")}),
                          2,
                          "仪表 \"HX-D10智能数字显示控制仪\" 属于协议 \"TQ仪表协议\"，不属于协议 "
                          "\"TQ仪表协议-定制累加和\"。请用 "
                          "--protocol 给出它的协议"));
    EXPECT_TRUE(IsProblem(
        RunInFolder({"poll", "--protocol", QString::fromUtf8("TQ仪表协议"), "--instrument", "M31"}), 2,
        "仪表 \"HX-M31智能数显表\" 属于协议 \"ModBus-RTU协议\"，不属于协议 \"TQ仪表协议\"。请用 --protocol "
        "给出它的协议"));
}

TEST(PollVerb, PartOfANameIsTakenWhereItFitsOneInstrument) {
    const QStringList port = {"--port", "COM1=/dev/no-port-to-poll", "--protocol",
                              QString::fromUtf8("TQ仪表协议")};
    EXPECT_TRUE(IsProblem(RunInFolder(QStringList{"poll", "--instrument", "D10"} + port), 3,
                          "系统串口被占用,无法打开！ 设备 /dev/no-port-to-poll 不存在。请检查接线和设备名"));
    EXPECT_TRUE(IsProblem(RunInFolder(QStringList{"poll", "--instrument", "HX-"} + port), 2,
                          "名称中有 \"HX-\" 的仪表有 4 种: "
                          "HX-D10智能数字显示控制仪、HX-F40智能流量积算仪、HX-P20智能PID调节仪、"
                          "HX-R16十六路巡检仪。请写全"));
}

TEST(PollVerb, ProtocolThatTheProgramDoesNotKnowIsRefused) {
    QTemporaryDir folder;
    RunCommand({"catalogue", "create", folder.path()});
    QtStore store;
    store.Open(LocalCatalogue(FolderFiles(folder.path())));
    store.AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"}, {u"协议规定", u"99", u"协议甲", u"61"});
    store.Close();
    EXPECT_TRUE(IsProblem(RunCommand({"poll", "--protocol", QString::fromUtf8("协议甲"), "--instrument", "x",
                                      "--folder", folder.path()}),
                          2, "本程序没有协议 \"协议甲\" 的通讯。可用协议请看 commtest-cli list protocols"));
}

TEST(PollVerb, PortThatCannotBeOpenedIsToldWithTheReason) {
    EXPECT_TRUE(IsProblem(Poll({"--port", "COM1=/dev/no-port-to-poll", "--exchanges", "1"}), 3,
                          "系统串口被占用,无法打开！ 设备 /dev/no-port-to-poll 不存在。请检查接线和设备名"));
    EXPECT_TRUE(
        IsProblem(Poll({"--port", "com998"}), 3,
                  "系统串口被占用,无法打开！ 本机没有第 998 个串口。请接上串口，或指定设备: COM998=设备"));
}

TEST(PollVerb, RecordFileThatCannotBeWrittenIsAProblem) {
    const Outcome outcome = Poll({"--record", "/dev/null/record"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.problems, ::testing::StartsWith("/dev/null/record 写不进去: "));
}

}  // namespace

}  // namespace commtest
