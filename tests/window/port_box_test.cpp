#include "window/port_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class PortBoxTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    PortBox* box = new PortBox(bench.binder, bench.Form().ConCommSetting[0], &window);

    PortBoxTest() {
        bench.session.line.Ports = {{2, u"/dev/ttyUSB0 (USB Serial)"}, {4, u"/dev/ttyS0"}};
        window.show();
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
