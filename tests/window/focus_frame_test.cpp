#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include "window/look.h"
#include "window/main_window.h"
#include "window/statistics_label.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class FocusFrameTest : public ::testing::TestWithParam<Theme::Choice> {
  protected:
    NativeBench session;
    Theme theme{GetParam()};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{session.Form(), theme, settings};

    FocusFrameTest() {
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
    }

    static int CountOf(QWidget& widget, const QColor& colour) {
        const QImage image = widget.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour;
        }
        return count;
    }

    // Pixels of the frame, which is of another colour around a filled button.
    int CameWithTheFocus(QWidget& widget) {
        const Look look = LookOf(&widget);
        const bool isFilled = look == Look::Primary || look == Look::ToolBarPrimary;
        const QColor& colour = isFilled ? theme.Now().text : theme.Now().accent;
        widget.clearFocus();
        QApplication::processEvents();
        const int before = CountOf(widget, colour);
        widget.setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        return CountOf(widget, colour) - before;
    }

    template <typename Control>
    void ExpectAFrameOnEach() {
        for (Control* control : window.findChildren<Control*>()) {
            const bool canHaveIt =
                control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus);
            if (!canHaveIt || control->focusProxy() != nullptr) continue;
            const QString name = control->metaObject()->className() + control->accessibleName();
            EXPECT_GE(CameWithTheFocus(*control), 2 * control->height()) << name.toStdString();
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Palettes, FocusFrameTest,
                         ::testing::Values(Theme::Choice::Light, Theme::Choice::Dark));

TEST_P(FocusFrameTest, EveryControlShowsThatItHasTheFocus) {
    for (int tab = 0; tab < 5; ++tab) {
        session.Form().SSTab2.Choose(tab);
        window.Views().Look();
        QApplication::processEvents();
        ExpectAFrameOnEach<QAbstractButton>();
        ExpectAFrameOnEach<QComboBox>();
        ExpectAFrameOnEach<QAbstractSpinBox>();
        ExpectAFrameOnEach<QPlainTextEdit>();
        ExpectAFrameOnEach<QTabBar>();
        ExpectAFrameOnEach<StatisticsLabel>();
    }
}

}  // namespace
}  // namespace commtest::testing
