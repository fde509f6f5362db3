#include "window/state_line.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class StateLineTest : public ::testing::Test {
  protected:
    ViewBench bench;
    StateLine line{bench.binder, bench.theme, nullptr};
    std::optional<StateMessage> failure;
    int taken = 0;

    StateLineTest() {
        line.resize(800, line.height());
        line.show();
        using Rank = StateLine::Rank;
        line.AddSource(Rank::Operation, [] { return StateMessage{.text = "操作 逐个读取数据"}; });
        line.AddSource(Rank::Failure, [this] { return failure; });
    }

    void Fail() {
        failure = StateMessage{.look = StateMessage::Look::Failure,
                               .glyph = Glyph::Warning,
                               .head = "已停止",
                               .text = "COM1 已断开",
                               .action = "查看记录",
                               .act = [this] { ++taken; }};
        bench.binder.Look();
    }
    QPushButton& Action() { return *line.findChild<QPushButton*>(); }
};

TEST_F(StateLineTest, SourceOfTheSmallerRankIsHeardFirst) {
    EXPECT_EQ(line.Shown().text.toStdString(), "操作 逐个读取数据");
    EXPECT_FALSE(line.SaysMoreThanTheOperation());
    Fail();
    EXPECT_EQ(line.Shown().text.toStdString(), "COM1 已断开");
    EXPECT_TRUE(line.SaysMoreThanTheOperation());
    failure.reset();
    bench.binder.Look();
    EXPECT_EQ(line.Shown().text.toStdString(), "操作 逐个读取数据");
}

TEST_F(StateLineTest, ActionIsThereWhileThereIsOne) {
    EXPECT_FALSE(Action().isVisible());
    Fail();
    EXPECT_EQ(Action().text().toStdString(), "查看记录");
    Action().click();
    EXPECT_EQ(taken, 1);
}

TEST_F(StateLineTest, TellsWhoHearsIt) {
    EXPECT_EQ(line.accessibleName().toStdString(), "通讯状态");
    Fail();
    EXPECT_EQ(line.accessibleDescription().toStdString(), "已停止 COM1 已断开");
}

TEST_F(StateLineTest, ChangesOnlyWhenItSaysAnotherThing) {
    QSignalSpy changes(&line, &StateLine::Changed);
    bench.binder.Look();
    EXPECT_EQ(changes.count(), 0);
    Fail();
    bench.binder.Look();
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(StateLineTest, IsAlwaysAsHigh) {
    EXPECT_EQ(line.height(), 24);
    Fail();
    EXPECT_EQ(line.height(), 24);
}

}  // namespace
}  // namespace commtest::testing
