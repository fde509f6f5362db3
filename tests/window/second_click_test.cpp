#include "window/second_click.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

namespace commtest::testing {
namespace {

// What stands under the pointer by the second press.
class Underneath : public QWidget {
  public:
    int presses = 0;
    int releases = 0;
    int keys = 0;

  protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

class SecondClickTest : public ::testing::Test {
  protected:
    static constexpr QPoint kFirst{40, 30};
    Underneath widget;
    SecondClick secondClick{nullptr};
    int doubleClicks = 0;

    SecondClickTest() {
        widget.resize(200, 100);
        widget.show();
    }

    void Await() {
        secondClick.Await(widget.mapToGlobal(kFirst), [this] { ++doubleClicks; });
    }
    void Press(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&widget, button, {}, place);
    }
    void Release(QPoint place) { QTest::mouseRelease(&widget, Qt::LeftButton, {}, place); }
    void Click(QPoint place) {
        Press(place);
        Release(place);
    }
};

TEST_F(SecondClickTest, SecondPressRunsTheDoubleClickAndGoesNoFurther) {
    Await();
    Press(kFirst);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(widget.presses, 0);
    Release(kFirst);
    EXPECT_EQ(widget.releases, 0);
}

TEST_F(SecondClickTest, PressThatComesAsADoubleClickIsTheSecondOne) {
    Await();
    const QPointF place(kFirst);
    QMouseEvent event(QEvent::MouseButtonDblClick, place, widget.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(widget.presses, 0);
}

TEST_F(SecondClickTest, ThirdClickPasses) {
    Await();
    Click(kFirst);
    Click(kFirst);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(widget.presses, 1);
    EXPECT_EQ(widget.releases, 1);
}

TEST_F(SecondClickTest, PressAFewPixelsAwayIsStillTheSecondOne) {
    Await();
    Press(kFirst + QPoint(QApplication::startDragDistance() - 1, 0));
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(SecondClickTest, PressElsewherePassesAndEndsTheWait) {
    Await();
    Click(kFirst + QPoint(QApplication::startDragDistance(), 0));
    EXPECT_EQ(widget.presses, 1);
    EXPECT_EQ(widget.releases, 1);
    Click(kFirst);
    EXPECT_EQ(widget.presses, 2);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(SecondClickTest, LatePressPasses) {
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(20);
    Await();
    QTest::qWait(40);
    Click(kFirst);
    QApplication::setDoubleClickInterval(interval);
    EXPECT_EQ(doubleClicks, 0);
    EXPECT_EQ(widget.presses, 1);
    EXPECT_EQ(widget.releases, 1);
}

TEST_F(SecondClickTest, OtherButtonPasses) {
    Await();
    Press(kFirst, Qt::RightButton);
    EXPECT_EQ(doubleClicks, 0);
    EXPECT_EQ(widget.presses, 1);
}

TEST_F(SecondClickTest, KeysAndMovesPassWhileItWaits) {
    Await();
    QTest::mouseMove(&widget, kFirst + QPoint(1, 0));
    QTest::keyClick(&widget, Qt::Key_A);
    EXPECT_EQ(widget.keys, 1);
    Press(kFirst);
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(SecondClickTest, NothingIsSwallowedUnasked) {
    Click(kFirst);
    EXPECT_EQ(widget.presses, 1);
    EXPECT_EQ(widget.releases, 1);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(SecondClickTest, DoubleClickMayAwaitAnother) {
    secondClick.Await(widget.mapToGlobal(kFirst), [this] {
        ++doubleClicks;
        Await();
    });
    Click(kFirst);
    Click(kFirst);
    EXPECT_EQ(doubleClicks, 2);
    EXPECT_EQ(widget.presses, 0);
}

TEST_F(SecondClickTest, WaitEndsWithItsOwner) {
    auto owned = std::make_unique<SecondClick>(nullptr);
    owned->Await(widget.mapToGlobal(kFirst), [this] { ++doubleClicks; });
    owned.reset();
    Click(kFirst);
    EXPECT_EQ(doubleClicks, 0);
    EXPECT_EQ(widget.presses, 1);
}

}  // namespace
}  // namespace commtest::testing
