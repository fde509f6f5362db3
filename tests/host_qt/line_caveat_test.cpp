#include "host_qt/line_caveat.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QFile>

#include "host_qt/pseudo_terminal.h"

namespace commtest::testing {
namespace {

// A line whose driver makes the rate that a test says.
class CaveatTest : public ::testing::Test {
  protected:
    PseudoTerminal line;
    int descriptor = open(QFile::encodeName(line.Device()), O_RDWR | O_NOCTTY | O_CLOEXEC);

    ~CaveatTest() override { close(descriptor); }

    void DriverMakes(unsigned int baudRate) const {
        termios2 settings = {};
        ASSERT_EQ(ioctl(descriptor, TCGETS2, &settings), 0);
        settings.c_cflag = (settings.c_cflag & ~static_cast<unsigned int>(CBAUD)) | BOTHER;
        settings.c_ispeed = baudRate;
        settings.c_ospeed = baudRate;
        ASSERT_EQ(ioctl(descriptor, TCSETS2, &settings), 0);
    }

    std::string Caveat(qint32 baudRate, QSerialPort::DataBits dataBits,
                       QSerialPort::StopBits stopBits) const {
        return CaveatOf(descriptor, {baudRate, QSerialPort::NoParity, dataBits, stopBits}).toStdString();
    }
};

TEST_F(CaveatTest, LineThatDoesAsTheSettingsSayHasNone) {
    DriverMakes(28800);
    EXPECT_EQ(Caveat(28800, QSerialPort::Data8, QSerialPort::OneStop), "");
}

TEST_F(CaveatTest, RateWithinTwoPercentIsTheSame) {
    DriverMakes(28224);
    EXPECT_EQ(Caveat(28800, QSerialPort::Data8, QSerialPort::OneStop), "");
    DriverMakes(29376);
    EXPECT_EQ(Caveat(28800, QSerialPort::Data8, QSerialPort::OneStop), "");
}

TEST_F(CaveatTest, RateThatTheDriverDoesNotMakeIsTold) {
    DriverMakes(28223);
    EXPECT_EQ(Caveat(28800, QSerialPort::Data8, QSerialPort::OneStop),
              "串口不支持波特率 28800，实际为 28223，请换用别的波特率");
}

TEST_F(CaveatTest, OneAndAHalfStopBitsAreThereWithFiveDataBitsOnly) {
    DriverMakes(9600);
    EXPECT_EQ(Caveat(9600, QSerialPort::Data5, QSerialPort::OneAndHalfStop), "");
    EXPECT_EQ(Caveat(9600, QSerialPort::Data8, QSerialPort::OneAndHalfStop),
              "串口只在 5 个数据位时有 1.5 个停止位，实际为 2 个");
}

TEST_F(CaveatTest, BothAreToldInOneLine) {
    DriverMakes(9600);
    EXPECT_EQ(Caveat(28800, QSerialPort::Data7, QSerialPort::OneAndHalfStop),
              "串口不支持波特率 28800，实际为 9600，请换用别的波特率；串口只在 5 个数据位时有 1.5 "
              "个停止位，实际为 2 个");
}

TEST_F(CaveatTest, NoTerminalHasNone) { EXPECT_EQ(CaveatOf(-1, {}).toStdString(), ""); }

TEST(DriverStopBits, OneAndAHalfAreTwoForTheDriver) {
    EXPECT_EQ(DriverStopBits(QSerialPort::OneAndHalfStop), QSerialPort::TwoStop);
    EXPECT_EQ(DriverStopBits(QSerialPort::OneStop), QSerialPort::OneStop);
    EXPECT_EQ(DriverStopBits(QSerialPort::TwoStop), QSerialPort::TwoStop);
}

}  // namespace
}  // namespace commtest::testing
