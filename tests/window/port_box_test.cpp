#include "window/port_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "window/look.h"
#include "window/port_list_view.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class PortBoxTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    QVBoxLayout layout{&window};
    QLineEdit* other = new QLineEdit(&window);
    int taken = 0;
    PortBox* box = new PortBox(bench.binder, bench.Form().ConCommSetting[0], &window);

    PortBoxTest() {
        bench.session.line.Ports = {{2, u"/dev/ttyUSB0 (USB Serial)"}, {4, u"/dev/ttyS0"}};
        window.show();
        layout.addWidget(box);
        layout.addWidget(other);
        layout.addWidget(&box->Refusal());
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QObject::connect(box, &PortBox::Taken, [this] { ++taken; });
    }

    ListControl& Port() { return bench.Form().ConCommSetting[0]; }
    void Type(const char* text) {
        box->setFocus();
        box->lineEdit()->clear();
        QTest::keyClicks(box, text);
    }

    std::string TipOfEntry(int row) {
        return box->model()->index(row, 0).data(Qt::ToolTipRole).toString().toStdString();
    }
    void AskTip(QWidget* place) {
        QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), place->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(place, &event);
    }
};

TEST_F(PortBoxTest, EachEntryTellsItsDevice) {
    EXPECT_EQ(TipOfEntry(1), "/dev/ttyUSB0 (USB Serial)");
    EXPECT_EQ(TipOfEntry(3), "/dev/ttyS0");
    EXPECT_EQ(TipOfEntry(0), "");
}

TEST_F(PortBoxTest, OfferIsLookedUpWhenTheListOpens) {
    bench.session.line.Ports.push_back({7, u"/dev/ttyUSB1"});
    box->showPopup();
    box->hidePopup();
    EXPECT_EQ(box->count(), 5);
    EXPECT_EQ(box->itemText(4).toStdString(), "COM7");
    EXPECT_EQ(TipOfEntry(4), "/dev/ttyUSB1");
}

TEST_F(PortBoxTest, RowTellsDeviceDescriptionAndWhatStandsInTheWay) {
    const std::vector<PortDevice> devices = {{1, u"/dev/ttyUSB0", u"USB Serial"},
                                             {2, u"/dev/ttyUSB1", u"", true, true},
                                             {9, u"/dev/ttyS3", u"", false}};
    struct Case {
        const char* port;
        const char* device;
        const char* remark;
        bool isThere;
    };
    for (const Case& each : {Case{"COM1", "— /dev/ttyUSB0, USB Serial", "", true},
                             Case{"COM2", "— /dev/ttyUSB1", "其它程序使用", true},
                             Case{"COM9", "— /dev/ttyS3", "不在", false}, Case{"COM4", "", "不在", false}}) {
        const PortRow row = RowOfPort(devices, each.port);
        EXPECT_EQ(row.device.toStdString(), each.device);
        EXPECT_EQ(row.remark.toStdString(), each.remark);
        EXPECT_EQ(row.isThere, each.isThere);
    }
}

TEST_F(PortBoxTest, OpenListIsWideHasEvenRowsAndEndsInAHint) {
    box->showPopup();
    const auto& list = *static_cast<PortListView*>(box->view());
    EXPECT_GE(list.width(), 352);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(list.visualRect(box->model()->index(row, 0)).height(), 24) << row;
    const auto* hint = list.findChild<QLabel*>("portListHint");
    EXPECT_EQ(hint->text().toStdString(), "可输入 COM9=/dev/ttyS3 指定设备");
    EXPECT_GE(hint->y(), list.visualRect(box->model()->index(3, 0)).bottom());
    EXPECT_LE(hint->geometry().bottom(), list.rect().bottom());
    box->hidePopup();
}

TEST_F(PortBoxTest, LongDeviceWidensTheOpenList) {
    bench.session.line.Ports = {{1, Text(200, u'x')}};
    box->showPopup();
    EXPECT_GT(box->view()->width(), 600);
    box->hidePopup();
}

TEST_F(PortBoxTest, RowIsReadAloudWithItsDevice) {
    bench.session.line.Ports[1].isThere = false;
    const auto spoken = [this](int row) {
        return box->model()->index(row, 0).data(Qt::AccessibleTextRole).toString().toStdString();
    };
    EXPECT_EQ(spoken(1), "COM2 — /dev/ttyUSB0 (USB Serial)");
    EXPECT_EQ(spoken(3), "COM4 — /dev/ttyS0 不在");
    EXPECT_EQ(spoken(0), "COM1 不在");
}

TEST_F(PortBoxTest, AbsentPortCanBeChosen) {
    box->setFocus();
    for (int step = 1; step < 4; ++step) QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(ToUtf8(Port().Value()), "COM4");
}

// --- What is typed ---

TEST_F(PortBoxTest, TypedPortIsTakenWhenTheBoxIsLeftAndNotBefore) {
    Type("com7");
    EXPECT_EQ(ToUtf8(Port().Value()), "COM1");
    other->setFocus();
    EXPECT_EQ(ToUtf8(Port().Value()), "COM7");
    EXPECT_EQ(box->currentText().toStdString(), "COM7");
    EXPECT_EQ(taken, 1);
}

TEST_F(PortBoxTest, WhatIsNoPortIsRefusedAndTheFormerOneHolds) {
    for (const char* text :
         {"", "ttyX", "COM", "COM0", "COMx", "7", "COM9=", "COM9=ttyS3", "COM9=/etc/passwd", "COM9=/tmp"}) {
        Type(text);
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_TRUE(box->Refusal().isVisible()) << text;
        EXPECT_EQ(LookOf(box), Look::Refused) << text;
        EXPECT_EQ(box->accessibleDescription().toStdString(), "不是串口，未采用");
        EXPECT_EQ(box->currentText().toStdString(), text);
        EXPECT_EQ(ToUtf8(Port().Value()), "COM1") << text;
    }
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(bench.session.line.Ports.size(), 2u);
}

TEST_F(PortBoxTest, EscapeRestoresTheFormerPort) {
    Type("ttyX");
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(box->currentText().toStdString(), "COM1");
    EXPECT_FALSE(box->Refusal().isVisible());
    EXPECT_EQ(LookOf(box), Look::Plain);
    EXPECT_EQ(box->accessibleDescription().toStdString(), "");
}

TEST_F(PortBoxTest, PortThatIsChosenBehindARefusalEndsIt) {
    Type("ttyX");
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(ToUtf8(Port().Value()), "COM2");
    EXPECT_FALSE(box->Refusal().isVisible());
}

TEST_F(PortBoxTest, DeviceNeedNotBeThere) {
    Type(" COM9=/dev/no-such-device ");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(ToUtf8(Port().Value()), "COM9");
    EXPECT_EQ(ToUtf8(bench.session.line.Ports.back().device), "/dev/no-such-device");
    EXPECT_EQ(box->itemText(4).toStdString(), "COM9");
}

TEST_F(PortBoxTest, BoxTellsTheDeviceOfItsPort) {
    for (const Text& port : {Text(u"COM2"), Text(u" com2 ")}) {
        bench.Form().ConCommSetting[0].Set(port);
        bench.binder.Look();
        AskTip(box->lineEdit());
        EXPECT_EQ(box->toolTip().toStdString(), "/dev/ttyUSB0 (USB Serial)");
        bench.Form().ConCommSetting[0].Set(u"COM1");
        bench.binder.Look();
        AskTip(box);
        EXPECT_EQ(box->toolTip().toStdString(), "");
    }
}

}  // namespace
}  // namespace commtest::testing
