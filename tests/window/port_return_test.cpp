#include "window/port_return.h"

#include <gtest/gtest.h>

#include <QTest>

#include "session/events.h"
#include "session/start_stop.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class PortReturnTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar notes{bench.theme};
    StateLine state{bench.binder, bench.theme, nullptr};
    PortReturn lostPort{bench.binder, state, notes, nullptr};

    MainForm& Form() { return bench.Form(); }

    void LosePort() {
        bench.binder.Event([this] { StartOrStop(Form(), {}); });
        PortIsLost(Form(), u"COM1 (/dev/ttyUSB0) 已断开");
    }
    QPushButton& Action(const QWidget& view) { return *view.findChild<QPushButton*>(); }
    std::string Said() { return state.Shown().text.toStdString(); }
};

TEST_F(PortReturnTest, PortThatIsBackIsSaidOnTheStateLineAndInANote) {
    LosePort();
    lostPort.TellBack("/dev/ttyUSB0");
    EXPECT_EQ(Said(), "COM1 已恢复 (/dev/ttyUSB0)");
    EXPECT_EQ(state.Shown().look, StateMessage::Look::Tinted);
    EXPECT_EQ(state.Shown().glyph, Glyph::Plug);
    EXPECT_EQ(state.Shown().action.toStdString(), "继续");
    EXPECT_EQ(notes.Text().toStdString(), "COM1 已恢复");
    EXPECT_TRUE(notes.Asks());
}

TEST_F(PortReturnTest, EachOfThemGoesOnWithTheSession) {
    for (const QWidget* view : {static_cast<QWidget*>(&state), static_cast<QWidget*>(&notes)}) {
        LosePort();
        lostPort.TellBack("/dev/ttyUSB0");
        Action(*view).click();
        EXPECT_TRUE(Form().IsRunning());
        EXPECT_EQ(Said(), "");
        EXPECT_EQ(notes.Text().toStdString(), "");
        bench.binder.Event([this] { StartOrStop(Form(), {.cause = StopCause::User}); });
    }
}

TEST_F(PortReturnTest, StartByAnyWayEndsTheOffer) {
    LosePort();
    lostPort.TellBack("/dev/ttyUSB0");
    bench.binder.Event([this] { StartOrStop(Form(), {}); });
    EXPECT_EQ(notes.Text().toStdString(), "");
    bench.binder.Event([this] { StartOrStop(Form(), {.cause = StopCause::User}); });
    EXPECT_EQ(Said(), "");
}

TEST_F(PortReturnTest, PortThatGoesAgainEndsTheOffer) {
    LosePort();
    lostPort.TellBack("/dev/ttyUSB0");
    lostPort.TellGone();
    bench.binder.Look();
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(PortReturnTest, OfferStandsAgainBehindAnotherWord) {
    LosePort();
    lostPort.TellBack("/dev/ttyUSB0");
    notes.Say("已存");
    EXPECT_EQ(notes.Text().toStdString(), "已存");
    QTest::mousePress(&notes, Qt::LeftButton);
    EXPECT_EQ(notes.Text().toStdString(), "COM1 已恢复");
}

TEST_F(PortReturnTest, NothingIsOfferedWhereTheUserStopped) {
    bench.binder.Event([this] { StartOrStop(Form(), {}); });
    bench.binder.Event([this] { StartOrStop(Form(), {.cause = StopCause::User}); });
    lostPort.TellBack("/dev/ttyUSB0");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(notes.Text().toStdString(), "");
}

}  // namespace
}  // namespace commtest::testing
