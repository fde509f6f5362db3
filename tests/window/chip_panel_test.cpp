#include "window/chip_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include "support/native_instrument.h"
#include "window/catalogue_page.h"
#include "window/main_window.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

// The whole window on the page of the instruments: 仪表甲 (1101) has two chip records, 仪表终 (1102) none.
class ChipPanelTest : public ::testing::Test {
  protected:
    ChipPanelTest() {
        session.Add(u"仪表终", kNativeProtocol, u"1102", {{u"值", u"0010", u"2", u"RW", u"0"}});
        AddChip(u"A.HEX", u"2026-03-12");
        AddChip(u"B.HEX", u"2026-06-02");
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        form.SSTab2.Choose(2);
        Look();
    }

    void AddChip(const Text& file, const Text& day) {
        session.store->AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"实例", u"属性", u"功能简述"},
                              {Text(u"1101"), file, day, Text(u"标准"), Text(u"量产"), Text(u"带报警。")});
    }

    void Look() { window.Views().Look(); }

    // 显示数据 of the list's right-mouse menu.
    void Open() {
        GridView& list = page.List();
        list.PopUpMenu(QPoint(400, 300));
        auto* menu = list.findChild<QMenu*>();
        menu->actions().first()->trigger();
        menu->close();
        QApplication::processEvents();
    }

    std::vector<std::string> Fields() const {
        std::vector<std::string> fields;
        for (const char* name : {"仪表名称", "编号", "CPU文件名", "输入日期", "实例", "属性"})
            fields.push_back(FindNamed<QLineEdit>(panel, QString::fromUtf8(name))->text().toStdString());
        fields.push_back(panel.findChild<QPlainTextEdit*>()->toPlainText().toStdString());
        return fields;
    }

    // It is made when it is first seen.
    static CataloguePage& PageOf(MainWindow& window) {
        auto* pages = window.findChild<QStackedWidget*>();
        pages->setCurrentIndex(2);
        pages->setCurrentIndex(0);
        return *window.findChild<CataloguePage*>();
    }

    void Click(int row) {
        GridView& list = panel.List();
        const QModelIndex cell = list.model()->index(row - 1, 4);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(cell).center());
    }

    NativeBench session;
    MainForm& form = session.Form();
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    MainWindow window{form, theme, settings};
    CataloguePage& page = PageOf(window);
    ChipPanel& panel = page.Chips();
};

TEST_F(ChipPanelTest, OpensBesideTheListAndShowsTheFirstRecordAtOnce) {
    EXPECT_FALSE(panel.isVisible());
    Open();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(page.List().isVisible());
    EXPECT_GE(panel.width(), 440);
    EXPECT_EQ(window.focusWidget(), &panel.List());
    EXPECT_THAT(Fields(), ElementsAre("仪表甲", "1101", "A.HEX", "2026-03-12", "标准", "量产", "带报警。"));
    EXPECT_EQ(form.SSTab2.Chosen(), 2);
}

TEST_F(ChipPanelTest, ClickedRowShowsItsRecordAndStaysOnThePage) {
    Open();
    Click(2);
    EXPECT_THAT(Fields(), ElementsAre("仪表甲", "1101", "B.HEX", "2026-06-02", "标准", "量产", "带报警。"));
    EXPECT_EQ(form.MSHFlexGrid1[3].Row, 2);
    EXPECT_EQ(form.SSTab2.Chosen(), 2);
}

TEST_F(ChipPanelTest, RowWithoutARecordShowsNameAndCodeAlone) {
    Open();
    Click(3);
    EXPECT_THAT(Fields(), ElementsAre("仪表终", "1102", "", "", "", "", ""));
}

TEST_F(ChipPanelTest, KeysThatMoveTheRowChooseItsRecord) {
    Open();
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    EXPECT_EQ(Fields()[2], "B.HEX");
    QTest::keyClick(&panel.List(), Qt::Key_Down);
    EXPECT_EQ(Fields()[0], "仪表终");
}

TEST_F(ChipPanelTest, RowOfAnOrderedListShowsItsOwnRecord) {
    Open();
    panel.List().OrderBy(4);
    panel.List().OrderBy(4);
    Click(1);
    EXPECT_EQ(Fields()[2], "B.HEX");
    EXPECT_EQ(form.MSHFlexGrid1[3].Row, 2);
}

TEST_F(ChipPanelTest, ColumnsThatTheListBesideHasAreHidden) {
    Open();
    std::vector<int> hidden;
    for (int col = 0; col < panel.List().model()->columnCount(); ++col) {
        if (panel.List().isColumnHidden(col)) hidden.push_back(col);
    }
    EXPECT_THAT(hidden, ElementsAre(0, 1, 2));
    EXPECT_FALSE(page.List().isColumnHidden(1));
}

TEST_F(ChipPanelTest, HeadCountsInstrumentsAndRecords) {
    Open();
    QStringList words;
    for (const QLabel* label : panel.findChildren<QLabel*>()) words += label->text();
    EXPECT_TRUE(words.contains(u"2 台仪表，2 份资料"_s)) << words.join('|').toStdString();
}

TEST_F(ChipPanelTest, DeadButtonsLookDisabledSayWhyAndChangeNothing) {
    Open();
    const auto before = session.store->Query(u"SELECT * From 仪表_芯片").rows;
    for (const char* caption : {"保存新增", "保存修改", "删除记录"}) {
        QAbstractButton* button = FindButton(panel, QString::fromUtf8(caption));
        ASSERT_NE(button, nullptr) << caption;
        EXPECT_FALSE(button->isEnabled()) << caption;
        EXPECT_EQ(button->toolTip().toStdString(), "仅供查看");
        QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(session.store->Query(u"SELECT * From 仪表_芯片").rows, before);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(ChipPanelTest, FieldsAreToBeRead) {
    Open();
    for (const QLineEdit* field : panel.findChildren<QLineEdit*>()) EXPECT_TRUE(field->isReadOnly());
    EXPECT_TRUE(panel.findChild<QPlainTextEdit*>()->isReadOnly());
}

TEST_F(ChipPanelTest, LastButtonAndEscapeCloseItAndTheListGetsTheKeyboard) {
    Open();
    FindButton(panel, u"退出界面"_s)->click();
    EXPECT_FALSE(panel.isVisible());
    EXPECT_FALSE(form.ConCpuDataShow.Visible());
    EXPECT_EQ(window.focusWidget(), &page.List());
    Open();
    QTest::keyClick(&panel.List(), Qt::Key_Escape);
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(ChipPanelTest, StandsAgainWhereItStoodOnThePage) {
    Open();
    form.SSTab2.Choose(0);
    Look();
    EXPECT_FALSE(panel.isVisible());
    form.SSTab2.Choose(2);
    Look();
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(ChipPanelTest, DoesNotSetTheSmallestHeightOfTheWindow) {
    Open();
    window.resize(880, 446);
    QApplication::processEvents();
    EXPECT_LE(window.height(), 446);
    EXPECT_LE(window.width(), 880);
}

TEST_F(ChipPanelTest, TypedLettersFindAnInstrument) {
    Open();
    panel.List().keyboardSearch(u"仪表终"_s);
    EXPECT_EQ(form.MSHFlexGrid1[3].Row, 3);
    EXPECT_EQ(Fields()[0], "仪表终");
}

}  // namespace
}  // namespace commtest::testing
