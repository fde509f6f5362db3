#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>

#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

// The catalogue list with three instruments, of which the second is the current row.
class ListOrderTest : public GridViewTest {
  protected:
    Grid& list = form.MSHFlexGrid1[1];
    GridView* listView = nullptr;

    ListOrderTest() {
        form.SSTab2.Show(1);
        listView = Add(1);
        Fill({u"表乙", u"表丙", u"表甲"}, {u"B.HEX", u"C.HEX", u"A.HEX"});
        list.Select(2, 3);
        Look();
    }

    void Fill(const std::vector<Text>& names, const std::vector<Text>& files) {
        list.SetSize(static_cast<int>(names.size()) + 1, 5);
        for (int col = 1; col < 5; ++col) list.SetCell(0, col, u"列" + FromUtf8(std::to_string(col)));
        for (std::size_t row = 0; row < names.size(); ++row) {
            const int at = static_cast<int>(row) + 1;
            list.SetCell(at, 0, u"00" + FromUtf8(std::to_string(at)));
            list.SetCell(at, 1, kNativeProtocol);
            list.SetCell(at, 3, names[row]);
            list.SetCell(at, 4, files[row]);
        }
    }

    void ClickHeading(int col) {
        QHeaderView& header = *listView->horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(col) + header.sectionSize(col) / 2, 10));
    }

    std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (int row = 0; row < listView->model()->rowCount(); ++row) {
            if (!listView->isRowHidden(row))
                files.push_back(listView->model()->index(row, 4).data().toString().toStdString());
        }
        return files;
    }
};

TEST_F(ListOrderTest, ClickOnAHeadingOrdersTheViewAndLeavesTheGridAlone) {
    ClickHeading(4);
    EXPECT_THAT(Files(), ElementsAre("A.HEX", "B.HEX", "C.HEX"));
    EXPECT_EQ(ToUtf8(list.Cell(1, 4)), "B.HEX");
    ClickHeading(4);
    EXPECT_THAT(Files(), ElementsAre("C.HEX", "B.HEX", "A.HEX"));
    ClickHeading(4);
    EXPECT_THAT(Files(), ElementsAre("B.HEX", "C.HEX", "A.HEX"));
}

TEST_F(ListOrderTest, CurrentRowIsThatOfTheGridWhereverItStands) {
    ClickHeading(4);
    EXPECT_EQ(std::pair(list.Row, list.Col), std::pair(2, 3));
    EXPECT_EQ(listView->currentIndex().row(), 2);
    EXPECT_EQ(listView->currentIndex().data().toString().toStdString(), "表丙");
    EXPECT_EQ(listView->selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(ListOrderTest, ClickOnARowTakesTheInstrumentThatIsShownThere) {
    ClickHeading(4);
    form.ConMeterName[0].Click = nullptr;
    form.ConCommTypeList.Set(kNativeProtocol);
    const QPoint first = listView->visualRect(listView->model()->index(0, 3)).center();
    QTest::mouseClick(listView->viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(list.Row, 3);
    EXPECT_EQ(ToUtf8(form.ConMeterName[0].Value()), "表甲");
}

TEST_F(ListOrderTest, OtherContentsAreOrderedAnew) {
    ClickHeading(4);
    Fill({u"表乙", u"表丙", u"表甲"}, {u"B.HEX", u"0.HEX", u"A.HEX"});
    Look();
    EXPECT_THAT(Files(), ElementsAre("0.HEX", "A.HEX", "B.HEX"));
    Fill({u"表乙", u"表丙", u"表甲", u"表丁"}, {u"D.HEX", u"C.HEX", u"B.HEX", u"A.HEX"});
    Look();
    EXPECT_THAT(Files(), ElementsAre("A.HEX", "B.HEX", "C.HEX", "D.HEX"));
}

TEST_F(ListOrderTest, FilterAndTypedLettersFindRowsInTheOrderShown) {
    Fill({u"品乙", u"其它", u"品甲"}, {u"B.HEX", u"0.HEX", u"A.HEX"});
    Look();
    ClickHeading(4);
    listView->FilterBy(u"品"_s);
    EXPECT_THAT(Files(), ElementsAre("A.HEX", "B.HEX"));
    listView->FilterBy({});
    list.Select(2, 3);
    Look();
    listView->keyboardSearch(u"品"_s);
    EXPECT_EQ(list.Row, 3);
}

TEST_F(ListOrderTest, OrderedHeadingIsToldToThoseWhoHearIt) {
    const auto spoken = [this](int col) {
        return listView->model()->headerData(col, Qt::Horizontal, Qt::AccessibleTextRole).toString();
    };
    ClickHeading(4);
    EXPECT_EQ(spoken(4).toStdString(), "列4，升序");
    ClickHeading(4);
    EXPECT_EQ(spoken(4).toStdString(), "列4，降序");
    EXPECT_EQ(spoken(3).toStdString(), "");
}

TEST_F(ListOrderTest, OrderedHeadingIsPaintedInTheAccent) {
    const auto hasAccent = [this](int col) {
        const QHeaderView& header = *listView->horizontalHeader();
        const QImage picture = listView->horizontalHeader()->viewport()->grab().toImage();
        const int left = header.sectionViewportPosition(col);
        for (int x = left; x < left + header.sectionSize(col); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y) == bench.theme.Now().accent) return true;
            }
        }
        return false;
    };
    EXPECT_FALSE(hasAccent(3));
    ClickHeading(3);
    EXPECT_TRUE(hasAccent(3));
    EXPECT_FALSE(hasAccent(4));
}

TEST_F(ListOrderTest, MenuOfAHeadingOrdersByTheKeyboard) {
    list.Select(1, 4);
    Look();
    listView->setFocus();
    QTest::keyClick(listView, Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    auto* menu = listView->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().last()->text().toStdString(), "按此列排序");
    menu->actions().last()->trigger();
    EXPECT_THAT(Files(), ElementsAre("A.HEX", "B.HEX", "C.HEX"));
}

TEST_F(ListOrderTest, ParametersStayInTheirOrder) {
    QHeaderView& header = *view->horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(1) + 20, 10));
    EXPECT_EQ(Shown(1, 1), "参数1");
    EXPECT_EQ(Shown(10, 1), "参数10");
    EXPECT_EQ(view->selectionModel()->selectedColumns().size(), 0);
}

}  // namespace
}  // namespace commtest::testing
