#include "window/port_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "window/help_view.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class PortPageTest : public ::testing::Test {
  protected:
    ViewBench bench;
    PortPage page{bench.binder, bench.theme, nullptr};

    PortPageTest() {
        page.resize(1000, 500);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    MainForm& Form() { return bench.Form(); }
    QComboBox* Field(const char* name) { return FindNamed<QComboBox>(page, name); }
    std::string Settings() { return ToUtf8(bench.session.line.Settings()); }
    std::string Stored() {
        const auto& values = bench.session.settings.Values;
        const auto found = values.find(u"CommPort");
        return found == values.end() ? "" : ToUtf8(found->second);
    }
    void Enter(QComboBox* field, const char* text) {
        field->setFocus();
        bench.session.settings.Values.clear();  // of the field that was left for it
        field->lineEdit()->selectAll();
        QTest::keyClicks(field, text);
    }
    std::vector<std::string> Labels() {
        std::vector<std::string> texts;
        for (const QLabel* label : page.findChildren<QLabel*>()) {
            if (label->isVisible()) texts.push_back(label->text().toStdString());
        }
        return texts;
    }
};

TEST_F(PortPageTest, HasItsLabelsAndTheFormItsWidth) {
    EXPECT_THAT(Labels(), ElementsAre("串口属性", "串口号：", "波特率：", "数据位：", "校验位：", "停止位：",
                                      "提示: 串口设置将自动生效"));
    EXPECT_EQ(page.findChild<HelpView*>()->x(), 288 + 1);
}

TEST_F(PortPageTest, FieldsShowTheSettingsAndTheirOffers) {
    struct Row {
        const char* name;
        const char* text;
        int offers;
        bool isEditable;
    };
    for (const Row& row :
         {Row{"串口号", "COM1", 4, true}, Row{"波特率", "9600", 8, true}, Row{"数据位", "8", 4, false},
          Row{"校验位", "无校验", 3, false}, Row{"停止位", "1", 3, false}}) {
        ASSERT_NE(Field(row.name), nullptr) << row.name;
        EXPECT_EQ(Field(row.name)->currentText().toStdString(), row.text);
        EXPECT_EQ(Field(row.name)->count(), row.offers) << row.name;
        EXPECT_EQ(Field(row.name)->isEditable(), row.isEditable) << row.name;
    }
}

TEST_F(PortPageTest, FieldTakesEffectWhenItIsLeft) {
    Enter(Field("波特率"), "4800");
    EXPECT_EQ(Settings(), "9600,N,8,1");
    EXPECT_EQ(Stored(), "");
    QTest::keyClick(Field("波特率"), Qt::Key_Tab);
    EXPECT_EQ(Settings(), "4800,N,8,1");
    EXPECT_EQ(Stored(), "4800,N,8,1 COM1");
}

TEST_F(PortPageTest, FieldThatIsLeftUnchangedIsAppliedToo) {
    Field("停止位")->setFocus();
    page.findChild<HelpView*>()->setFocus();
    EXPECT_EQ(Stored(), "9600,N,8,1 COM1");
}

TEST_F(PortPageTest, MenuOrAnotherWindowIsNoLeaving) {
    Enter(Field("波特率"), "4800");
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(Field("波特率"), &event);
    }
    EXPECT_EQ(Stored(), "");
}

TEST_F(PortPageTest, EnterApplies) {
    Enter(Field("串口号"), "com7");
    QTest::keyClick(Field("串口号"), Qt::Key_Return);
    EXPECT_EQ(bench.session.line.CommPort(), 7);
    EXPECT_EQ(Stored(), "9600,N,8,1 COM7");
    EXPECT_EQ(ToUtf8(Form().StatusBar1[1].Value()), "串口设置:  COM7  9600,N,8,1   状态:  关闭");
}

TEST_F(PortPageTest, ChoiceOutOfAListApplies) {
    Field("校验位")->setFocus();
    QTest::keyClick(Field("校验位"), Qt::Key_Down);
    EXPECT_EQ(Settings(), "9600,O,8,1");
    QTest::keyClick(Field("停止位"), Qt::Key_End);
    EXPECT_EQ(Settings(), "9600,O,8,2");
    QTest::keyClick(Field("数据位"), Qt::Key_Up);
    EXPECT_EQ(Settings(), "9600,O,7,2");
}

TEST_F(PortPageTest, ChoiceOutOfTheOpenListApplies) {
    Field("波特率")->setFocus();
    bench.session.settings.Values.clear();
    Field("波特率")->showPopup();
    QAbstractItemView* list = Field("波特率")->view();
    EXPECT_EQ(Stored(), "");
    list->setCurrentIndex(list->model()->index(4, 0));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(Settings(), "19200,N,8,1");
    EXPECT_EQ(Stored(), "19200,N,8,1 COM1");
}

TEST_F(PortPageTest, OpenPortIsOpenedAnew) {
    bench.session.line.SetPortOpen(true);
    Enter(Field("波特率"), "19200");
    QTest::keyClick(Field("波特率"), Qt::Key_Return);
    EXPECT_TRUE(bench.session.line.PortOpen());
    EXPECT_EQ(Settings(), "19200,N,8,1");
}

TEST_F(PortPageTest, WhatIsNoPortIsSaidBelowTheFieldAndNeitherTakenNorStored) {
    Enter(Field("串口号"), "ttyX");
    QTest::keyClick(Field("串口号"), Qt::Key_Return);
    EXPECT_THAT(Labels(), Contains("不是串口，未采用"));
    Field("波特率")->setFocus();
    EXPECT_EQ(ToUtf8(Form().PortName().Value()), "COM1");
    EXPECT_EQ(bench.session.line.CommPort(), 1);
    EXPECT_EQ(Stored(), "");
    EXPECT_EQ(bench.session.dialogs.Shown.size(), 0u);
}

TEST_F(PortPageTest, FieldThatIsLeftBehindARefusalAppliesTheFormerPort) {
    Enter(Field("串口号"), "ttyX");
    Enter(Field("波特率"), "4800");
    QTest::keyClick(Field("波特率"), Qt::Key_Return);
    EXPECT_EQ(Stored(), "4800,N,8,1 COM1");
    EXPECT_EQ(Field("串口号")->currentText().toStdString(), "ttyX");
}

TEST_F(PortPageTest, DeviceTypedBehindAPortIsNamedAndTheSessionSeesThePort) {
    Enter(Field("串口号"), "COM9=/dev/no-such-device");
    EXPECT_EQ(ToUtf8(Form().PortName().Value()), "COM1");
    QTest::keyClick(Field("串口号"), Qt::Key_Return);
    EXPECT_EQ(ToUtf8(Form().PortName().Value()), "COM9");
    EXPECT_EQ(bench.session.line.CommPort(), 9);
    EXPECT_EQ(Stored(), "9600,N,8,1 COM9");
    ASSERT_EQ(bench.session.line.Ports.size(), 1u);
    EXPECT_EQ(bench.session.line.Ports[0].number, 9);
    EXPECT_EQ(ToUtf8(bench.session.line.Ports[0].device), "/dev/no-such-device");
    EXPECT_EQ(Field("串口号")->currentText().toStdString(), "COM9");
}

TEST_F(PortPageTest, HelpTextStandsBesideTheForm) {
    Form().RichTextBox1.Replace(u"一、连接\r\n1. 用 RS-485");
    bench.binder.Look();
    auto* help = page.findChild<HelpView*>();
    EXPECT_EQ(help->toPlainText().toStdString(), "一、连接\n1. 用 RS-485");
    QTest::mouseClick(help->viewport(), Qt::LeftButton, {}, QPoint(30, 15));
    EXPECT_EQ(Form().RichTextBox1.Blocks().size(), 1u);
}

}  // namespace
}  // namespace commtest::testing
