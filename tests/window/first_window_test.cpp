#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include "session/grid_rows.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/first_geometry.h"
#include "window/grid_header.h"
#include "window/grid_view.h"
#include "window/main_window.h"
#include "window/statistics_label.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

// The first window on three screens at the scale of the run (QT_SCALE_FACTOR). The runs of this program try
// three scales with both Chinese fonts.
namespace commtest::testing {
namespace {

constexpr int kTitleBar = 28;
constexpr int kPanel = 32;  // of the desktop, at the lower edge

struct Screen {
    int width;  // in pixels of the device
    int height;
};

class FirstWindow : public ::testing::TestWithParam<Screen> {
  protected:
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{session.Form(), theme, settings};

    FirstWindow() {
        window.FitInto(Free());
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        QApplication::processEvents();
    }

    static QRect Free() {
        const qreal scale = qApp->devicePixelRatio();
        const int width = static_cast<int>(GetParam().width / scale);
        const int height = static_cast<int>(GetParam().height / scale);
        return {0, 0, width, height - kPanel};
    }

    template <typename Part>
    Part& The() {
        return *window.findChild<Part*>();
    }
    GridView& Parameters() { return The<CommunicationPage>().Parameters(); }
    // Of a cell, in logical pixels below its upper edge: how far its letters reach.
    int LowestInk(const QModelIndex& cell) {
        Parameters().scrollTo(cell);
        const QRect place = Parameters().visualRect(cell).adjusted(4, 1, -4, -1);
        const QImage picture = Parameters().viewport()->grab(place).toImage();
        const QColor ground = picture.pixelColor(0, 0);
        int lowest = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const int contrast = std::abs(picture.pixelColor(x, y).lightness() - ground.lightness());
                if (contrast > 60) lowest = y;
            }
        }
        return static_cast<int>(std::lround((lowest + 1) / picture.devicePixelRatio())) + 1;
    }
    int RowsInView() { return Parameters().viewport()->height() / Parameters().rowHeight(0); }
};

// Rows that show in each height of the window that the eighteen cases leave.
int RowsAt(int height) {
    switch (height) {
        case 700: return 14;
        case 660: return 13;
        case 480: return 8;
        case 452: return 6;
        case 324: return 6;  // as in the smallest contents, which scroll
        default: return 0;
    }
}

TEST_P(FirstWindow, StandsWithinTheFreeAreaFrameAndAll) {
    EXPECT_TRUE(Free().contains(FirstGeometryIn(Free()).place.adjusted(0, -kTitleBar, 0, 0)));
    EXPECT_EQ(window.width(), std::min(1366, Free().width()));
    EXPECT_EQ(window.height(), std::min(700, Free().height() - kTitleBar));
}

TEST_P(FirstWindow, HasTheMeasuresOfTheDesign) {
    EXPECT_EQ(The<ToolBar>().height(), 44);
    EXPECT_EQ(The<TabRow>().height(), 33);
    EXPECT_EQ(Parameters().horizontalHeader()->height(), 26);
    EXPECT_EQ(Parameters().rowHeight(0), 22);
    EXPECT_EQ(The<StatisticsLine>().height(), 25);
    EXPECT_EQ(The<QStatusBar>().height(), 24);
}

TEST_P(FirstWindow, ShowsAsManyRowsInEachFont) { EXPECT_EQ(RowsInView(), RowsAt(window.height())); }

TEST_P(FirstWindow, TextsOfARowShareTheirBaseline) {
    Grid& grid = session.Form().ParameterGrid();
    for (const int col : {column::kName, column::kAddress, column::kValue}) grid.SetCell(2, col, u"1H2");
    window.Views().Look();
    for (const int col : {column::kName, column::kAddress, column::kValue})
        EXPECT_EQ(LowestInk(Parameters().model()->index(1, col)), 15) << col;
}

TEST_P(FirstWindow, ContentsScrollOnlyWhereTheyDoNotFit) {
    const bool fits = Free().width() >= 880 && Free().height() - kTitleBar >= 446;
    const auto& scroll = *qobject_cast<QScrollArea*>(window.centralWidget());
    EXPECT_EQ(scroll.horizontalScrollBar()->maximum() > 0 || scroll.verticalScrollBar()->maximum() > 0,
              !fits);
    EXPECT_GE(scroll.widget()->width(), 880);
    EXPECT_GE(scroll.widget()->height(), 422);
}

INSTANTIATE_TEST_SUITE_P(Screens, FirstWindow,
                         ::testing::Values(Screen{1366, 768}, Screen{1920, 1080}, Screen{3840, 2160}),
                         [](const auto& screen) {
                             return "On" + std::to_string(screen.param.width) + "x" +
                                    std::to_string(screen.param.height);
                         });

}  // namespace
}  // namespace commtest::testing
