#include "host_qt/line_settings.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

TEST(LineSettingsOf, FieldsAreBaudRateParityDataBitsAndStopBits) {
    const auto settings = LineSettingsOf(u"28800,e,7,1.5");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->baudRate, 28800);
    EXPECT_EQ(settings->parity, QSerialPort::EvenParity);
    EXPECT_EQ(settings->dataBits, QSerialPort::Data7);
    EXPECT_EQ(settings->stopBits, QSerialPort::OneAndHalfStop);
}

TEST(LineSettingsOf, EachParityAndStopBitTextIsKnown) {
    EXPECT_EQ(LineSettingsOf(u"9600,N,8,1")->parity, QSerialPort::NoParity);
    EXPECT_EQ(LineSettingsOf(u"9600,O,8,1")->parity, QSerialPort::OddParity);
    EXPECT_EQ(LineSettingsOf(u"9600,N,5,1")->dataBits, QSerialPort::Data5);
    EXPECT_EQ(LineSettingsOf(u"9600,N,6,1")->dataBits, QSerialPort::Data6);
    EXPECT_EQ(LineSettingsOf(u"9600,N,8,1")->stopBits, QSerialPort::OneStop);
    EXPECT_EQ(LineSettingsOf(u"9600,N,8,2")->stopBits, QSerialPort::TwoStop);
}

TEST(LineSettingsOf, AnyOtherTextIsNone) {
    for (TextView text : {u"", u"9600", u"9600,N,8", u"9600,N,8,1,", u"0,N,8,1", u"-1,N,8,1", u"x,N,8,1",
                          u"9600,M,8,1", u"9600,N,9,1", u"9600,N,8,3"}) {
        EXPECT_FALSE(LineSettingsOf(text)) << ToUtf8(text);
    }
}

}  // namespace

}  // namespace commtest
