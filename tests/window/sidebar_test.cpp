#include "window/sidebar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QTest>

#include "window/note_bar.h"
#include "window/option_mark.h"
#include "window/text_spin_box.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class SidebarTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar notes{bench.theme};
    Sidebar sidebar{bench.binder, notes, nullptr};

    SidebarTest() {
        sidebar.resize(264, 640);
        sidebar.show();
    }

    MainForm& Form() { return bench.Form(); }

    template <typename Widget>
    Widget* Named(const QString& accessibleName) {
        for (Widget* widget : sidebar.findChildren<Widget*>()) {
            if (widget->accessibleName() == accessibleName) return widget;
        }
        return nullptr;
    }

    QCheckBox* Box(const QString& caption) {
        for (QCheckBox* box : sidebar.findChildren<QCheckBox*>()) {
            if (box->text() == caption) return box;
        }
        return nullptr;
    }

    QList<QRadioButton*> Options() { return sidebar.findChildren<QRadioButton*>(); }
};

TEST_F(SidebarTest, FieldsHaveTheirTips) {
    EXPECT_EQ(Named<QComboBox>("协议类型")->toolTip().toStdString(), "协议类型/数据演示时,显示芯片说明");
    EXPECT_EQ(Named<QComboBox>("名称")->toolTip().toStdString(),
              "注意:模块及普通电流 电压 转速表等均使用 TQ智能数字/光柱显示控制仪 的参数地址表");
    EXPECT_EQ(Named<QComboBox>("数据格式")->toolTip().toStdString(),
              "(目前暂时不用)根据不同仪表,选择不同的数据包格式");
    EXPECT_EQ(Named<TextSpinBox>("参数个数")->toolTip().toStdString(),
              "在逐个读取参数时,设置每次读取参数的个数");
    EXPECT_EQ(Named<TextSpinBox>("仪表地址")->Text(), "1");
    EXPECT_EQ(Named<TextSpinBox>("参数个数")->Text(), "16");
}

TEST_F(SidebarTest, AddressOfTheUserIsComposedAtOnce) {
    TextSpinBox* address = Named<TextSpinBox>("仪表地址");
    address->selectAll();
    QTest::keyClicks(address, "17");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "17");
    QTest::keyClick(address, Qt::Key_Up);
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "18");
}

TEST_F(SidebarTest, MarksOfOptionsAndBoxesStandUnderTheFields) {
    const int edge = Named<QComboBox>("名称")->mapTo(&sidebar, QPoint()).x();
    EXPECT_EQ(edge, 12);
    EXPECT_EQ(LeftOfMark(*Options()[0], sidebar), edge);
    EXPECT_EQ(LeftOfMark(*Box("任意长度"), sidebar), edge);
}

TEST_F(SidebarTest, OptionStandsForEachProtocolOfTheCatalogue) {
    ASSERT_EQ(Options().size(), 14);
    EXPECT_EQ(Options()[0]->text().toStdString(), "TQ仪表协议");
    EXPECT_EQ(Options()[13]->text().toStdString(), "ModBus-RTU协议-M46T");
    EXPECT_TRUE(Options()[0]->isChecked());
}

TEST_F(SidebarTest, OptionWithoutAProtocolIsASpare) {
    Form().ConMeterType.Captions.resize(3);
    Form().ConMeterType.Show(0);
    Binder binder(Form());
    Sidebar fresh(binder, notes, nullptr);
    const auto options = fresh.findChildren<QRadioButton*>();
    EXPECT_TRUE(options[2]->isEnabled());
    EXPECT_FALSE(options[3]->isEnabled());
    EXPECT_EQ(options[3]->text().toStdString(), "备用");
}

TEST_F(SidebarTest, EachProtocolBehindTheFourteenthHasAnOptionToo) {
    for (const char16_t* name : {u"协议甲", u"协议乙"}) Form().ConMeterType.Captions.push_back(name);
    Form().ConMeterType.Show(15);
    bench.binder.Look();
    ASSERT_EQ(Options().size(), 16);
    EXPECT_EQ(Options()[15]->text().toStdString(), "协议乙");
    EXPECT_TRUE(Options()[15]->isEnabled());
    EXPECT_TRUE(Options()[15]->isChecked());
    const auto* list = sidebar.findChild<QScrollArea*>("optionList");
    const QPoint place = Options()[15]->mapTo(list->viewport(), QPoint(0, 0));
    EXPECT_GE(place.y(), 0);
    EXPECT_LE(place.y() + 20, list->viewport()->height());
}

TEST_F(SidebarTest, ChosenOptionChoosesTheProtocol) {
    Options()[6]->click();
    EXPECT_EQ(Form().ConMeterType.Chosen(), 6);
    EXPECT_EQ(Form().ProtocolCode, 31);
    EXPECT_EQ(ToUtf8(Form().ConCommTypeList.Value()), "ModBus-RTU协议");
    EXPECT_EQ(Named<QComboBox>("协议类型")->currentText().toStdString(), "ModBus-RTU协议");
}

TEST_F(SidebarTest, OptionThatARoutineChoosesLeavesTheListOfProtocols) {
    Form().ConMeterType.Choose(6);
    bench.binder.Look();
    EXPECT_TRUE(Options()[6]->isChecked());
    EXPECT_EQ(ToUtf8(Form().ConCommTypeList.Value()), "TQ仪表协议");
}

TEST_F(SidebarTest, ChosenProtocolMarksItsOption) {
    Form().ConCommTypeList.Set(u"ModBus-RTU协议-定制01");
    RunIfSet(Form().ConCommTypeList.Click);
    bench.binder.Look();
    EXPECT_TRUE(Options()[7]->isChecked());
    EXPECT_FALSE(Options()[0]->isChecked());
}

TEST_F(SidebarTest, AdvancedSettingsAreTicks) {
    struct Row {
        const char* caption;
        TickControl* control;
        const char* tip;
    };
    MainForm& form = Form();
    for (const Row& row :
         {Row{"任意长度", &form.Check2, "在读多个参数时，随机变化读取数据的长度，用于通讯测试"},
          Row{"停止滚屏", &form.ConSelChange, ""},
          Row{"自动保存记录", &form.ConAutoSave[0], "保存所有的通讯过程"},
          Row{"保存错误记录", &form.ConAutoSave[1], ""},
          Row{"数据采集", &form.ConSaveData, "收集并保存通讯数据,供仿真使用"},
          Row{"数据演示", &form.ConMyCommDriver,
              "可以在不接入仪表的情况下模拟通讯(暂时只对TQ仪表协议有效)"}}) {
        QCheckBox* box = Box(row.caption);
        ASSERT_NE(box, nullptr) << row.caption;
        EXPECT_EQ(box->toolTip().toStdString(), row.tip);
        EXPECT_FALSE(row.control->Value());
        box->click();
        EXPECT_TRUE(row.control->Value()) << row.caption;
    }
}

TEST_F(SidebarTest, OptionListTakesWholeRowsAndAtLeastFive) {
    const auto* list = sidebar.findChild<QScrollArea*>("optionList");
    EXPECT_EQ(list->height() % 20, 0);
    sidebar.resize(264, 300);
    EXPECT_EQ(list->height(), 5 * 20);
    sidebar.SetOptionHeight(24);
    EXPECT_EQ(list->height(), 5 * 24);
    sidebar.resize(264, 1000);
    EXPECT_EQ(list->height(), 14 * 24);
}

TEST_F(SidebarTest, ChosenOptionIsScrolledIntoView) {
    sidebar.resize(264, 300);
    Options()[13]->click();
    const auto* list = sidebar.findChild<QScrollArea*>("optionList");
    const QPoint place = Options()[13]->mapTo(list->viewport(), QPoint(0, 0));
    EXPECT_GE(place.y(), 0);
    EXPECT_LE(place.y() + 20, list->viewport()->height());
}

}  // namespace
}  // namespace commtest::testing
