#include "host_qt/named_port.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

TEST(NamedPortOf, NumberAloneLeavesTheDeviceOpen) {
    for (const char* text : {"COM12", "com12", "COM0012"}) {
        const auto port = NamedPortOf(text);
        ASSERT_TRUE(port) << text;
        EXPECT_EQ(port->number, 12);
        EXPECT_TRUE(port->device.isEmpty());
    }
}

TEST(NamedPortOf, DeviceStandsBehindTheFirstEqualsSign) {
    const auto port = NamedPortOf("COM9999=/dev/far=1");
    ASSERT_TRUE(port);
    EXPECT_EQ(port->number, 9999);
    EXPECT_EQ(port->device.toStdString(), "/dev/far=1");
}

TEST(NamedPortOf, AnyOtherTextIsNone) {
    for (const char* text : {"", "COM", "COM0", "COM0=/dev/far", "COM0000", "COM-1", "COM10000",
                             "COM1=", "COM1 ", "COM1:/dev/far", "/dev/far", "XCOM1"}) {
        EXPECT_FALSE(NamedPortOf(text)) << text;
    }
}

TEST(CanBeDevice, WholePathOfADeviceOrOfNothingYet) {
    for (const char* path : {"/dev/null", "/dev/no-such-device"}) EXPECT_TRUE(CanBeDevice(path)) << path;
    for (const char* path : {"", "ttyS3", "/etc/passwd", "/tmp"}) EXPECT_FALSE(CanBeDevice(path)) << path;
}

}  // namespace

}  // namespace commtest
