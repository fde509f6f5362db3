#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSettings>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include "window/grid_view_bench.h"
#include "window/main_window.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CatalogueListTest : public GridViewTest {
  protected:
    Grid& list = form.MSHFlexGrid1[1];
    GridView* listView = nullptr;
    std::vector<std::string> clicks;

    CatalogueListTest() {
        listView = Add(1);
        list.SetSize(4, 5);
        list.SetCell(2, 1, kNativeProtocol);
        list.SetCell(2, 3, u"仪表甲");
        form.SSTab2.Choose(1);
        Look();
        Note(form.ConCommTypeList, "protocol");
        Note(form.ConMeterName[0], "instrument");
    }

    void Note(ListControl& control, const std::string& name) {
        control.Click = [this, name, click = control.Click] {
            clicks.push_back(name);
            click();
        };
    }

    QPoint PlaceInList() const { return listView->visualRect(listView->model()->index(1, 2)).center(); }
    void ClickList() { QTest::mouseClick(listView->viewport(), Qt::LeftButton, {}, PlaceInList()); }
};

TEST_F(CatalogueListTest, ClickChoosesTheInstrumentOfTheRowAndTheFirstPage) {
    ClickList();
    EXPECT_EQ(ToUtf8(form.ConMeterName[0].Value()), "仪表甲");
    EXPECT_EQ(list.Row, 2);
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    EXPECT_THAT(clicks, ElementsAre("instrument"));
    EXPECT_EQ(Shown(1, 1), "给定值");
}

TEST_F(CatalogueListTest, ClickChoosesTheProtocolIfItIsAnother) {
    list.SetCell(2, 1, u"ModBus-RTU协议");
    ClickList();
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.Value()), "ModBus-RTU协议");
    EXPECT_EQ(clicks.front(), "protocol");
}

TEST_F(CatalogueListTest, SecondPressChoosesAgainWhateverStandsThereByThen) {
    ClickList();
    clicks.clear();
    listView->hide();
    const QPoint place = view->viewport()->mapFromGlobal(listView->viewport()->mapToGlobal(PlaceInList()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    // The protocol brings its first instrument, then the row's own is chosen.
    EXPECT_THAT(clicks, ElementsAre("protocol", "instrument", "instrument"));
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CatalogueGrid);
    EXPECT_EQ(Current(), std::pair(0, 0));
}

TEST_F(CatalogueListTest, EnterChoosesWithoutWaitingForASecondClick) {
    list.Select(2, 2);
    Look();
    QTest::keyClick(listView, Qt::Key_Return);
    EXPECT_EQ(form.SSTab2.Chosen(), 0);
    clicks.clear();
    Click(1, 9);
    EXPECT_EQ(Current(), std::pair(1, 9));
    EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(CatalogueListTest, ClickOnTheParametersAwaitsNoSecondOne) {
    Click(1, 9);
    Click(1, 9);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::ParameterGrid);
}

// The real way of a double click: the first click takes the list away, the second one falls on the page that
// stands there by then.
TEST(CatalogueInTheWindow, DoubleClickLeavesTheOtherPageAlone) {
    NativeBench session;
    AddLongInstrument(session);
    Theme theme(Theme::Choice::Light);
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    MainWindow window(session.Form(), theme, settings);
    window.show();
    (void)QTest::qWaitForWindowActive(&window);
    session.Form().SSTab2.Choose(2);
    window.Views().Look();
    const Grid& list = session.Form().MSHFlexGrid1[1];
    int row = 1;
    while (row < list.Rows() && list.Cell(row, 3) != kLongInstrument) ++row;
    ASSERT_LT(row, list.Rows());
    auto* listView = FindNamed<GridView>(window, u"仪表清单"_s);
    ASSERT_TRUE(listView->isVisible());
    int choices = 0;
    session.Form().ConMeterName[0].Click = [&choices, click = session.Form().ConMeterName[0].Click] {
        ++choices;
        click();
    };
    const QPoint place = listView->visualRect(listView->model()->index(row - 1, 2)).center();
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {},
                       listView->viewport()->mapTo(&window, place));
    EXPECT_EQ(choices, 3);  // the click, then the protocol's first one and the row's
    EXPECT_EQ(session.Form().SSTab2.Chosen(), 0);
    EXPECT_EQ(session.Form().ParameterGrid().Row, 0);
}

}  // namespace
}  // namespace commtest::testing
