#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include "commands/toolbar_commands.h"
#include "window/cell_editor.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/grid_header.h"
#include "window/grid_view.h"
#include "window/look.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/state_line.h"
#include "window/statistics_label.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/tool_window.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

// The heights that the design lays down, in pixels. They are the same in each font.
namespace commtest::testing {
namespace {

using ::testing::ElementsAre;

int TopIn(const QWidget& area, const QWidget& widget) { return widget.mapTo(&area, QPoint(0, 0)).y(); }

// What can be done about a line of words is a part of it.
template <typename Widget>
void ExpectVisibleOnesToBe28High(const QWidget& area) {
    for (const Widget* widget : area.findChildren<Widget*>()) {
        if (widget->isVisible() && LookOf(widget) != Look::LineAction) {
            EXPECT_EQ(widget->height(), 28) << widget->accessibleName().toStdString();
        }
    }
}

class DesignHeights : public ::testing::Test {
  protected:
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{session.Form(), theme, settings};

    DesignHeights() {
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        QApplication::processEvents();
    }

    template <typename Part>
    Part& The() {
        return *window.findChild<Part*>();
    }

    GridView& Parameters() { return The<CommunicationPage>().Parameters(); }

    void Resize(int width, int height) {
        window.resize(width, height);
        QApplication::processEvents();
    }
};

TEST_F(DesignHeights, LineActionsKeepTheirsWithTheFocus) {
    window.Notes().Offer("计数已清零", "撤销", [] {});
    QApplication::processEvents();
    auto& ofNote = *FindButton(window.Notes(), "撤销");
    EXPECT_EQ(ofNote.height(), 18);
    EXPECT_LE(ofNote.geometry().bottom(), window.Notes().rect().bottom());
    ofNote.setFocus();
    EXPECT_EQ(ofNote.height(), 18);
    window.State().AddSource(StateLine::Rank::Failure,
                             [] { return StateMessage{.text = "甲", .action = "查看记录"}; });
    QApplication::processEvents();
    auto& ofLine = *FindButton(window.State(), "查看记录");
    EXPECT_EQ(ofLine.height(), 24);
    ofLine.setFocus();
    EXPECT_EQ(ofLine.height(), 24);
}

TEST_F(DesignHeights, BandsHaveTheirs) {
    session.Form().FindFrame.SetVisible(true);
    window.Views().Look();
    EXPECT_EQ(The<ToolBar>().height(), 44);
    EXPECT_EQ(The<TabRow>().height(), 33);
    EXPECT_EQ(The<SearchPanel>().height(), 69);
    EXPECT_EQ(Parameters().horizontalHeader()->height(), 26);
    EXPECT_EQ(The<CommunicationStrip>().height(), 61);
    EXPECT_EQ(The<StatisticsLine>().height(), 25);
    EXPECT_EQ(The<QStatusBar>().height(), 24);
}

TEST_F(DesignHeights, RowsAreLowInALowWindow) {
    EXPECT_EQ(Parameters().rowHeight(0), 22);
    EXPECT_GE(Parameters().viewport()->height(), 14 * 22);
    Resize(1366, 799);
    EXPECT_EQ(Parameters().rowHeight(0), 22);
    Resize(1366, 800);
    EXPECT_EQ(Parameters().rowHeight(0), 24);
    Resize(1366, 700);
    EXPECT_EQ(Parameters().rowHeight(0), 22);
}

TEST_F(DesignHeights, EditorCoversItsCellAndTheEdgeAboveIt) {
    Parameters().setCurrentIndex(Parameters().model()->index(3, 10));
    session.Form().InputText.SetVisible(true);
    session.Form().Focus.Ask(FocusWish::Target::CellEditor);
    window.Views().Look();
    EXPECT_EQ(The<CellEditor>().geometry().top(), 3 * 22 - 1);
    EXPECT_EQ(The<CellEditor>().height(), 23);
}

TEST_F(DesignHeights, FieldsAndButtonsOfEachPageAre28) {
    session.Form().FindFrame.SetVisible(true);
    for (int tab = 0; tab < 5; ++tab) {
        session.Form().SSTab2.Choose(tab);
        window.Views().Look();
        QApplication::processEvents();
        ExpectVisibleOnesToBe28High<QComboBox>(window);
        ExpectVisibleOnesToBe28High<QAbstractSpinBox>(window);
        ExpectVisibleOnesToBe28High<QPushButton>(window);
    }
}

TEST_F(DesignHeights, SidebarShowsFourteenOptionsBetweenItsFieldsAndTicks) {
    const QWidget& contents = *The<Sidebar>().widget();
    std::vector<int> fields;
    for (const auto* field : contents.findChildren<QComboBox*>()) fields.push_back(TopIn(contents, *field));
    EXPECT_THAT(fields, ElementsAre(32, 83, 185));
    const auto& options = *contents.findChild<QScrollArea*>("optionList");
    EXPECT_EQ(TopIn(contents, options), 230);
    EXPECT_EQ(options.height(), 14 * 20);
    std::vector<int> ticks;
    for (const auto* tick : contents.findChildren<QCheckBox*>()) ticks.push_back(TopIn(contents, *tick));
    EXPECT_THAT(ticks, ElementsAre(551, 551, 575, 575, 599, 599));
}

TEST_F(DesignHeights, FieldsOfThePortPageAre36Apart) {
    session.Form().SSTab2.Choose(1);
    window.Views().Look();
    QApplication::processEvents();
    const auto& form = *window.findChild<QWidget*>("portForm");
    std::vector<int> fields;
    for (const auto* field : form.findChildren<QComboBox*>()) fields.push_back(TopIn(form, *field));
    EXPECT_THAT(fields, ElementsAre(36, 72, 108, 144, 180));
}

TEST(DesignHeightsOfTheTool, FieldsStandUnderTheirCaptions) {
    ViewBench bench;
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    ToolbarMenuCommand(bench.Form(), ToolbarEntry::ToolWindow);
    ToolWindow window(bench.Form(), bench.session.Tools(), bench.theme, settings);
    window.Follow();
    (void)QTest::qWaitForWindowActive(&window);
    const auto top = [&window](const char* name) { return TopIn(window, *FindNamed<QWidget>(window, name)); };
    EXPECT_EQ(top("输入数据"), 31);
    EXPECT_EQ(top("数据整理"), 91);
    EXPECT_EQ(top("输出结果"), 155);
    EXPECT_EQ(top("计算过程"), 219);
    EXPECT_EQ(window.findChild<QStatusBar*>()->height(), 24);
    ExpectVisibleOnesToBe28High<QPushButton>(window);
    ExpectVisibleOnesToBe28High<QComboBox>(window);
}

}  // namespace
}  // namespace commtest::testing
