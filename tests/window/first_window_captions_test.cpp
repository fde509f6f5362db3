#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

#include "session/port_settings.h"
#include "window/communication_page.h"
#include "window/first_geometry.h"
#include "window/grid_view.h"
#include "window/main_window.h"
#include "window/spoken_words.h"
#include "window/view_bench.h"

// The captions of the first window in each face, on two screens at the scale of the run (QT_SCALE_FACTOR),
// with the fonts of the run.
namespace commtest::testing {
namespace {

constexpr int kPanel = 32;  // of the desktop, at the lower edge

struct Sight {
    const char* face;
    int width;  // of the screen, in pixels of the device
    int height;
};

class FirstWindowCaptions : public ::testing::TestWithParam<Sight> {
  protected:
    const WindowFace& face = *FindFace(QString(GetParam().face));
    SpokenWords words{face};
    NativeBench session{face.session};
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{session.Form(), theme, settings};

    FirstWindowCaptions() {
        ShowPortStatus(session.Form());
        const qreal scale = qApp->devicePixelRatio();
        window.FitInto({0, 0, static_cast<int>(GetParam().width / scale),
                        static_cast<int>(GetParam().height / scale) - kPanel});
        window.ShowFirstSteps([] {});
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        QApplication::processEvents();
    }

    void Show(int tab, bool withSearch) {
        session.Form().SSTab2.Choose(tab);
        session.Form().FindFrame.SetVisible(withSearch);
        window.Views().Look();
        QApplication::processEvents();
        // A look of the timer's may have come behind the layout.
        QApplication::sendPostedEvents();
    }

    // A line that is cut off where there is no room says so by its size policy; some of the options are
    // beyond the edge of their list.
    static bool MustBeWhole(const QWidget& widget) {
        return widget.isVisible() && widget.sizePolicy().horizontalPolicy() != QSizePolicy::Ignored &&
               !widget.visibleRegion().isEmpty() &&
               widget.parentWidget()->objectName() != "optionListContents";
    }
    // Contents that the window is too small for scroll.
    bool Scrolls() const {
        const auto& scroll = *qobject_cast<QScrollArea*>(window.centralWidget());
        return scroll.horizontalScrollBar()->maximum() > 0;
    }
    void ExpectWhole(const QWidget& widget, const QString& text, int needed) const {
        EXPECT_GE(widget.width(), needed) << text.toStdString();
        if (Scrolls()) return;
        EXPECT_EQ(widget.visibleRegion().boundingRect().width(), widget.width()) << text.toStdString();
    }
    void ExpectCaptionsToBeWhole() const {
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            if (!button->text().isEmpty() && MustBeWhole(*button))
                ExpectWhole(*button, button->text(), button->minimumSizeHint().width());
        }
        for (const auto* label : window.findChildren<QLabel*>()) {
            if (!label->text().isEmpty() && !label->wordWrap() && MustBeWhole(*label))
                ExpectWhole(*label, label->text(), label->minimumSizeHint().width());
        }
    }
};

TEST_P(FirstWindowCaptions, OfEachPageAreWhole) {
    for (int tab = 0; tab < 5; ++tab) {
        SCOPED_TRACE(tab);
        Show(tab, false);
        ExpectCaptionsToBeWhole();
    }
}

TEST_P(FirstWindowCaptions, OfTheSearchPanelAreWhole) {
    Show(0, true);
    ExpectCaptionsToBeWhole();
}

TEST_P(FirstWindowCaptions, OfTheGridAreWhole) {
    const GridView& grid = window.findChild<CommunicationPage*>()->Parameters();
    const QFontMetrics metrics(grid.horizontalHeader()->font());
    for (int col = 0; col < grid.model()->columnCount(); ++col) {
        const QString heading = grid.model()->headerData(col, Qt::Horizontal).toString();
        EXPECT_GE(grid.columnWidth(col), metrics.horizontalAdvance(heading) + 16) << heading.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Sights, FirstWindowCaptions,
                         ::testing::Values(Sight{"chinese", 1366, 768}, Sight{"chinese", 1920, 1080},
                                           Sight{"english", 1366, 768}, Sight{"english", 1920, 1080}),
                         [](const auto& sight) {
                             return std::string(sight.param.face) + "On" + std::to_string(sight.param.width);
                         });

}  // namespace
}  // namespace commtest::testing
