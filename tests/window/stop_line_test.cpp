#include "window/stop_line.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTextBlock>

#include "commands/search_panel.h"
#include "runtime/runtime_error.h"
#include "session/events.h"
#include "session/grid_editing.h"
#include "session/records.h"
#include "session/start_stop.h"
#include "window/record_view.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class StopLineTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NativeBench& session = bench.session;
    MainForm& form = bench.Form();
    QWidget window;
    StateLine line{bench.binder, bench.theme, &window};
    RecordView* record = MakeCommPane(bench.binder, bench.theme, 1, &window);

    StopLineTest() {
        record->setGeometry(0, 0, 400, 60);
        window.resize(400, 200);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        new StopLine(bench.binder, line, *record);
        session.line.Ports = {{1, u"/dev/ttyUSB0"}, {2, u"/dev/ttyUSB1"}};
    }

    void RunUntil(std::int64_t time) {
        session.line.RunUntil(time);
        bench.binder.Look();
    }
    void Start() {
        session.Start();
        bench.binder.Look();
    }
    void Stop() {
        session.Stop();
        bench.binder.Look();
    }
    // The second exchange is refused by the instrument.
    void StopByException() {
        const Text protocol(form.protocols.Of(31).name);
        session.Add(u"仪表乙", protocol, u"310100", BehindFiveCommands(NineWords()));
        session.Choose(protocol, u"仪表乙");
        form.CurrentRow = 6;
        form.CommandCode = 50;
        session.WillAnswer({"01 03 02 00 64 B9 AF", "01 86 02 C3 A1"});
        session.Start();
        RunUntil(600);
    }

    bool IsFailure() const { return line.Shown().look == StateMessage::Look::Failure; }
    std::string Head() const { return line.Shown().head.toStdString(); }
    std::string Says() const { return line.Shown().text.toStdString(); }
    std::string Action() const { return line.Shown().action.toStdString(); }
    std::string FirstLineInView() const {
        return record->cursorForPosition(QPoint(10, 12)).block().text().toStdString();
    }
};

TEST_F(StopLineTest, SaysNothingBeforeTheFirstStart) { EXPECT_EQ(Says(), ""); }

TEST_F(StopLineTest, StopByTheUserIsToldQuietlyUntilTheNextStart) {
    session.AnswersEachFrame(frames::kDynamicReply);
    Start();
    EXPECT_EQ(Says(), "");
    RunUntil(450);
    Stop();
    EXPECT_EQ(Head(), "已停止");
    EXPECT_EQ(Says(), "按 停止通讯，第 2 次之后");
    EXPECT_FALSE(IsFailure());
    Start();
    EXPECT_EQ(Says(), "");
}

TEST_F(StopLineTest, ExceptionIsAFailureInTheWordsOfTheInstrument) {
    StopByException();
    EXPECT_TRUE(IsFailure());
    EXPECT_EQ(line.Shown().glyph, Glyph::Warning);
    EXPECT_EQ(Head(), "已停止");
    EXPECT_EQ(Says(), "第 2 次，注意：写入非法数值！ 该指令无效");
    EXPECT_EQ(Action(), "查看记录");
}

TEST_F(StopLineTest, WordsOnAnExceptionStayWhenAnotherProtocolIsChosen) {
    StopByException();
    session.Choose(kNativeProtocol, u"仪表甲");
    bench.binder.Look();
    EXPECT_EQ(Says(), "第 2 次，注意：写入非法数值！ 该指令无效");
}

TEST_F(StopLineTest, ActionOnAnExceptionMovesTheRecordToItsBlock) {
    StopByException();
    for (int block = 0; block < 20; ++block) form.Record().PutOnTop({u"甲\r\n乙\r\n"});
    bench.binder.Look();
    EXPECT_EQ(FirstLineInView(), "甲");
    line.Shown().act();
    EXPECT_EQ(FirstLineInView().substr(0, 10), "第 2 次,");
    EXPECT_TRUE(record->hasFocus());
}

TEST_F(StopLineTest, ActionOnAnExceptionBringsTheRecordBack) {
    StopByException();
    form.ShowTypeStep = 1;
    ConShowCommand_Click(form);
    ASSERT_FALSE(form.Record().Visible());
    line.Shown().act();
    EXPECT_TRUE(form.Record().Visible());
}

TEST_F(StopLineTest, ExceptionWhoseBlockIsGoneHasNoAction) {
    StopByException();
    form.Record().Clear();
    bench.binder.Look();
    EXPECT_EQ(Says(), "第 2 次，注意：写入非法数值！ 该指令无效");
    EXPECT_EQ(Action(), "");
}

TEST_F(StopLineTest, LostPortIsNamedWithTheDeviceThatItHad) {
    Start();
    RunUntil(300);
    session.line.Ports = {{1, u"/dev/ttyUSB1"}};
    PortIsLost(form, u"设备已断开");
    bench.binder.Look();
    EXPECT_TRUE(IsFailure());
    EXPECT_EQ(Says(), "COM1 (/dev/ttyUSB0) 已断开，插回后可继续");
    EXPECT_EQ(Action(), "串口设置");
    line.Shown().act();
    EXPECT_EQ(form.SSTab2.Chosen(), 1);
}

TEST_F(StopLineTest, PortThatIsChangedBehindTheLossIsNotTheLostOne) {
    Start();
    RunUntil(300);
    PortIsLost(form, u"设备已断开");
    bench.binder.Look();
    session.line.SetCommPort(2);
    bench.binder.Look();
    EXPECT_EQ(Says(), "COM1 (/dev/ttyUSB0) 已断开，插回后可继续");
}

TEST_F(StopLineTest, RefusedPortHasItsReasonBehindTheFixedText) {
    session.line.Occupied = true;
    session.line.Problem = u"设备 /dev/ttyUSB0 正被另一个程序使用";
    Start();
    RunUntil(300);
    EXPECT_TRUE(IsFailure());
    EXPECT_EQ(Says(), "系统串口被占用,无法打开！ COM1，设备 /dev/ttyUSB0 正被另一个程序使用");
    session.line.Problem.clear();
    Start();
    RunUntil(2000);
    EXPECT_EQ(Says(), "系统串口被占用,无法打开！ COM1 (/dev/ttyUSB0)");
}

TEST_F(StopLineTest, RunTimeErrorNamesTheFieldThatEndedThePolling) {
    form.CommandCode = 60;
    form.ConDataNub.Set(u"多");
    Start();
    RunUntil(300);
    ASSERT_TRUE(form.IsRunning());
    EXPECT_TRUE(IsFailure());
    EXPECT_EQ(Says(), "实时错误 '13': 类型不匹配，参数个数 多 不是数值");
    form.ConDataNub.Set(u"16");
    bench.binder.Look();
    EXPECT_EQ(Says(), "实时错误 '13': 类型不匹配，参数个数 多 不是数值");
    Stop();
    EXPECT_EQ(Says(), "按 停止通讯，第 0 次之后");
}

TEST_F(StopLineTest, QuestionsForAddressesStopQuietly) {
    Start();
    session.dialogs.Answers = {u""};
    bench.binder.Event([this] { form.Check1.Set(true); });
    EXPECT_EQ(Says(), "填写仪表地址，第 0 次之后");
    EXPECT_FALSE(IsFailure());
}

TEST_F(StopLineTest, SearchStopsQuietly) {
    Start();
    bench.binder.Event([this] { FindMeter_Click(form, 1); });
    EXPECT_EQ(Says(), "仪表搜索，第 0 次之后");
    Start();
    StartOrStop(form, {StopCause::SearchOver});
    bench.binder.Look();
    EXPECT_EQ(Says(), "仪表搜索结束，第 0 次之后");
}

TEST_F(StopLineTest, SearchThatTheUserStopsIsBrokenOff) {
    form.CommandCode = 1031;
    Start();
    Stop();
    EXPECT_EQ(Head(), "已停止");
    EXPECT_EQ(Says(), "搜索中止，第 0 次之后");
    EXPECT_FALSE(IsFailure());
}

TEST_F(StopLineTest, IntervalTellsTheNextTurn) {
    form.IntervalLastRun = u"10:23";
    form.IntervalMinutes = 10;
    form.TimeSetup.Click = {};
    form.TimeSetup.Set(true);
    Start();
    StartOrStop(form, {StopCause::Interval});
    bench.binder.Look();
    EXPECT_EQ(Head(), "间歇性通讯");
    EXPECT_EQ(Says(), "10:33 开始下一次，每 10 分钟");
    form.IntervalLastRun = u"23:55";
    bench.binder.Look();
    EXPECT_EQ(Says(), "每 10 分钟");
    form.TimeSetup.Set(false);
    bench.binder.Look();
    EXPECT_EQ(Head(), "已停止");
    EXPECT_EQ(Says(), "间歇性通讯，第 0 次之后");
}

TEST_F(StopLineTest, StopForTheCellEditorSaysHowToGoOn) {
    session.AnswersEachFrame(frames::kDynamicReply);
    Start();
    RunUntil(450);
    StopInShortWay(form, StopCause::Editor);
    bench.binder.Look();
    EXPECT_EQ(Head(), "编辑时停止");
    EXPECT_EQ(Says(), "第 2 次之后，按 F5 继续");
    EXPECT_EQ(line.Shown().look, StateMessage::Look::Quiet);
    Start();
    EXPECT_EQ(Says(), "");
}

}  // namespace
}  // namespace commtest::testing
