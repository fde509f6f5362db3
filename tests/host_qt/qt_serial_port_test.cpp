#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <ctime>
#include <map>
#include <numeric>
#include <optional>

#include "host_qt/port_under_test.h"
#include "host_qt/pseudo_terminal.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using testing::MakePortUnderTest;
using testing::PseudoTerminal;
using ::testing::StartsWith;
using namespace std::chrono_literals;

std::string EveryByte() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

class QtSerialPortTest : public ::testing::Test {
  protected:
    QtSerialPortTest() {
        port.Receives = [this] { received += port.Input(); };
        port.IsLost = [this](const Text& reason) { losses.push_back(ToUtf8(reason)); };
    }

    std::string Problem() const { return ToUtf8(port.LastProblem()); }
    bool Eventually(const std::function<bool()>& holds) { return transport->Eventually(holds); }
    void RunFor(std::chrono::milliseconds time) { transport->RunFor(time); }

    PseudoTerminal line;
    std::unique_ptr<testing::PortUnderTest> transport = MakePortUnderTest({{1, line.Device()}});
    QtSerialPort& port = transport->Port();
    std::string received;
    std::vector<std::string> losses;
};

TEST_F(QtSerialPortTest, IsClosedAtFirst) {
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_EQ(ToUtf8(port.Settings()), "9600,N,8,1");
}

TEST_F(QtSerialPortTest, EveryByteValueGoesOut) {
    port.SetPortOpen(true);
    ASSERT_TRUE(port.PortOpen()) << Problem();
    port.Output(EveryByte());
    EXPECT_EQ(line.Read(256), EveryByte());
}

TEST_F(QtSerialPortTest, EveryByteValueComesIn) {
    port.SetPortOpen(true);
    line.Write(EveryByte());
    EXPECT_TRUE(Eventually([this] { return received.size() >= 256; }));
    EXPECT_EQ(received, EveryByte());
}

TEST_F(QtSerialPortTest, SetsTheBaudRateOfItsSettings) {
    port.SetSettings(u"57600,N,8,1");
    port.SetPortOpen(true);
    EXPECT_EQ(line.BaudRate(), 57600);
    port.SetPortOpen(false);
    port.SetSettings(u"1200,n,8,1");
    port.SetPortOpen(true);
    EXPECT_EQ(line.BaudRate(), 1200);
}

TEST_F(QtSerialPortTest, OpensWithSettingsThatThePseudoTerminalDoesNotKnow) {
    for (const char16_t* settings : {u"9600,E,8,1", u"9600,O,7,2", u"28800,N,8,1.5", u"1200,E,5,1"}) {
        port.SetSettings(settings);
        port.SetPortOpen(true);
        EXPECT_TRUE(port.PortOpen()) << ToUtf8(settings) << Problem();
        port.SetPortOpen(false);
    }
}

TEST_F(QtSerialPortTest, SettingsThatAreNoneLeaveItClosedAndSaySo) {
    port.SetSettings(u"");
    port.SetPortOpen(true);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(Problem(), "串口设置 \"\" 无效。请写成 9600,N,8,1 的形式");
}

TEST_F(QtSerialPortTest, BytesThatCameWhileItWasClosedAreDropped) {
    port.SetPortOpen(true);
    port.SetPortOpen(false);
    line.Write("late");
    port.SetPortOpen(true);
    line.Write("new");
    EXPECT_TRUE(Eventually([this] { return received.size() >= 3; }));
    EXPECT_EQ(received, "new");
}

TEST_F(QtSerialPortTest, BusyPortStaysClosedAndItsHolderIsNamed) {
    QtSerialPort other({{1, line.Device()}});
    other.SetPortOpen(true);
    ASSERT_TRUE(other.PortOpen());
    port.SetPortOpen(true);
    EXPECT_FALSE(port.PortOpen());
    const std::string program = QFileInfo("/proc/self/exe").symLinkTarget().section('/', -1).toStdString();
    const std::string self = program + " (进程 " + std::to_string(getpid()) + ")";
    EXPECT_EQ(Problem(),
              "设备 " + line.Device().toStdString() + " 正被程序 " + self + " 使用。请先结束那个程序");
}

TEST_F(QtSerialPortTest, BusyPortIsBusyUnderEachOfItsNames) {
    QTemporaryDir folder;
    const QString link = folder.filePath(QString::fromUtf8("仪表"));
    ASSERT_TRUE(QFile::link(line.Device(), link));
    QtSerialPort other({{1, link}});
    other.SetPortOpen(true);
    ASSERT_TRUE(other.PortOpen());
    port.SetPortOpen(true);
    EXPECT_FALSE(port.PortOpen());
}

TEST_F(QtSerialPortTest, OpensAgainAndForgetsTheProblemOnceThePortIsFree) {
    std::optional<QtSerialPort> other(std::in_place, DeviceMap{{1, line.Device()}});
    other->SetPortOpen(true);
    port.SetPortOpen(true);
    EXPECT_FALSE(port.PortOpen());
    other.reset();
    port.SetPortOpen(true);
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(Problem(), "");
}

TEST_F(QtSerialPortTest, MissingDeviceStaysClosedAndSaysWhatToLookAt) {
    QtSerialPort missing({{3, QStringLiteral("/dev/no-such-port")}});
    missing.SetCommPort(3);
    missing.SetPortOpen(true);
    EXPECT_FALSE(missing.PortOpen());
    EXPECT_EQ(ToUtf8(missing.LastProblem()), "设备 /dev/no-such-port 不存在。请检查接线和设备名");
}

TEST_F(QtSerialPortTest, PortNumberBeyondTheMachinesPortsSaysHowToNameADevice) {
    port.SetCommPort(999);
    port.SetPortOpen(true);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(Problem(), "本机没有第 999 个串口。请接上串口，或指定设备: COM999=设备");
}

TEST_F(QtSerialPortTest, NumberBelowOneIsNoPort) {
    for (const std::int16_t number : {std::int16_t{0}, std::int16_t{-1}}) {
        QtSerialPort none;
        none.SetCommPort(number);
        EXPECT_EQ(ToUtf8(none.Device()), "");
        none.SetPortOpen(true);
        EXPECT_FALSE(none.PortOpen());
        EXPECT_THAT(ToUtf8(none.LastProblem()),
                    StartsWith("本机没有第 " + std::to_string(number) + " 个串口"));
    }
}

TEST_F(QtSerialPortTest, FileIsNoSerialPort) {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QtSerialPort wrong({{1, file.fileName()}});
    wrong.SetPortOpen(true);
    EXPECT_FALSE(wrong.PortOpen());
    EXPECT_THAT(ToUtf8(wrong.LastProblem()), EndsWith("file 不是串口设备。请检查设备名"));
    EXPECT_TRUE(file.exists());
}

TEST_F(QtSerialPortTest, CharacterDeviceThatIsNoPortStaysClosed) {
    QtSerialPort wrong({{1, QStringLiteral("/dev/null")}});
    wrong.SetPortOpen(true);
    EXPECT_FALSE(wrong.PortOpen());
    EXPECT_EQ(ToUtf8(wrong.LastProblem()), "/dev/null 不是串口设备。请检查设备名");
}

TEST_F(QtSerialPortTest, LossOfTheDeviceIsToldOnceAndClosesThePort) {
    port.SetPortOpen(true);
    line.HangUp();
    EXPECT_TRUE(Eventually([this] { return !losses.empty(); }));
    EXPECT_FALSE(port.PortOpen());
    RunFor(100ms);
    EXPECT_EQ(losses, std::vector<std::string>{"COM1 (" + line.Device().toStdString() +
                                               ") 已断开。请检查接线后重新开始"});
}

TEST_F(QtSerialPortTest, LossThatAWriteMeetsIsToldFromTheEventLoop) {
    port.SetPortOpen(true);
    line.HangUp();
    port.Output("@01RD17\r");
    EXPECT_TRUE(losses.empty());
    EXPECT_TRUE(Eventually([this] { return !losses.empty(); }));
    RunFor(100ms);
    EXPECT_EQ(losses.size(), 1U);
}

TEST_F(QtSerialPortTest, UntilTheLossIsToldThePortIsNotOpenedAgain) {
    port.SetPortOpen(true);
    line.HangUp();
    port.Output("@01RD17\r");
    EXPECT_TRUE(port.PortOpen());
    port.Output("@01RD17\r");
    port.SetPortOpen(true);
    EXPECT_EQ(port.LastProblem(), u"");
    EXPECT_TRUE(Eventually([this] { return !losses.empty(); }));
    EXPECT_FALSE(port.PortOpen());
    RunFor(50ms);
    EXPECT_EQ(losses.size(), 1U);
}

TEST_F(QtSerialPortTest, LossOfAPortThatIsClosedMeanwhileIsNotTold) {
    port.SetPortOpen(true);
    line.HangUp();
    port.Output("@01RD17\r");
    port.SetPortOpen(false);
    RunFor(50ms);
    EXPECT_TRUE(losses.empty());
}

TEST_F(QtSerialPortTest, LostPortLeavesTheProcessorAlone) {
    port.SetPortOpen(true);
    line.HangUp();
    ASSERT_TRUE(Eventually([this] { return !losses.empty(); }));
    const std::clock_t before = std::clock();
    RunFor(300ms);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 20);
}

TEST_F(QtSerialPortTest, ClosingIsNoLoss) {
    port.SetPortOpen(true);
    port.SetPortOpen(false);
    line.HangUp();
    RunFor(50ms);
    EXPECT_TRUE(losses.empty());
}

// --- A lost device that comes back ---

class LostPortTest : public ::testing::Test {
  protected:
    LostPortTest() {
        port.IsBack = [this](const Text& device) { told.push_back("back " + ToUtf8(device)); };
        port.IsGoneAgain = [this] { told.push_back("gone"); };
        port.IsLost = [this](const Text&) { told.push_back("lost"); };
    }

    void PlugIn(PseudoTerminal& line) {
        Unplug();
        ASSERT_TRUE(QFile::link(line.Device(), adapter));
    }
    void Unplug() { QFile::remove(adapter); }
    // The line goes while the port is open.
    void Lose() {
        PlugIn(first);
        port.SetPortOpen(true);
        Unplug();
        first.HangUp();
        ASSERT_TRUE(Eventually([this] { return told == std::vector<std::string>{"lost"}; }));
        told.clear();
    }
    bool IsTold(const std::vector<std::string>& expected) {
        return Eventually([&] { return told == expected; });
    }

    bool Eventually(const std::function<bool()>& holds) { return transport->Eventually(holds); }
    void RunFor(std::chrono::milliseconds time) { transport->RunFor(time); }

    QTemporaryDir folder;
    QString adapter = folder.filePath("adapter");
    PseudoTerminal first;
    PseudoTerminal second;
    std::unique_ptr<testing::PortUnderTest> transport = MakePortUnderTest({{1, adapter}});
    QtSerialPort& port = transport->Port();
    std::vector<std::string> told;
};

TEST_F(LostPortTest, DeviceThatIsBackIsToldAndThatItHasGoneAgain) {
    Lose();
    PlugIn(second);
    const std::string back = "back " + second.Device().toStdString();
    EXPECT_TRUE(IsTold({back}));
    Unplug();
    EXPECT_TRUE(IsTold({back, "gone"}));
}

TEST_F(LostPortTest, OpeningEndsTheWait) {
    Lose();
    PlugIn(second);
    ASSERT_TRUE(IsTold({"back " + second.Device().toStdString()}));
    told.clear();
    port.SetPortOpen(true);
    EXPECT_EQ(told, std::vector<std::string>{"gone"});
    port.SetPortOpen(false);
    RunFor(1200ms);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(LostPortTest, ChoiceOfAnotherPortEndsTheWait) {
    Lose();
    port.SetCommPort(2);
    PlugIn(second);
    RunFor(1200ms);
    EXPECT_TRUE(told.empty());
}

// --- The ports on offer ---

TEST_F(QtSerialPortTest, DeviceThatIsNamedLaterIsOfferedOpenedAndTold) {
    std::vector<std::string> named;
    QtSerialPort later;
    later.IsNamed = [&](int number, const QString& device) {
        named.push_back(std::to_string(number) + " " + device.toStdString());
    };
    later.NameDevice(9, line.Device().toStdU16String());
    EXPECT_EQ(named, std::vector<std::string>{"9 " + line.Device().toStdString()});
    EXPECT_EQ(ToUtf8(later.Devices().back().device), line.Device().toStdString());
    later.SetCommPort(9);
    later.SetPortOpen(true);
    EXPECT_TRUE(later.PortOpen()) << ToUtf8(later.LastProblem());
}

TEST_F(QtSerialPortTest, OfferTellsWhatIsAbsentAndWhatAnotherProgramHolds) {
    const QtSerialPort offered({{1, line.Device()}, {2, QStringLiteral("/dev/no-such-port")}});
    const QString lockName = QString(line.Device()).remove("/dev/").replace('/', '_');
    QFile lock("/var/lock/LCK.." + lockName);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    const auto writeHolder = [&](pid_t holder) {
        lock.resize(0);
        lock.seek(0);
        lock.write(QByteArray::number(holder).rightJustified(10) + "\n");
        lock.flush();
    };
    writeHolder(getppid());
    EXPECT_TRUE(offered.Devices()[0].isThere);
    EXPECT_TRUE(offered.Devices()[0].isInUse);
    EXPECT_FALSE(offered.Devices()[1].isThere);
    EXPECT_FALSE(offered.Devices()[1].isInUse);
    writeHolder(getpid());
    EXPECT_FALSE(offered.Devices()[0].isInUse);
    lock.remove();
    EXPECT_FALSE(offered.Devices()[0].isInUse);
}

TEST_F(QtSerialPortTest, NamedDevicesAreOfferedUnderTheirNumbersInOrder) {
    const QtSerialPort named({{200, QStringLiteral("/dev/b")}, {1, QStringLiteral("/dev/仪表")}});
    std::vector<int> numbers;
    std::map<int, std::string> devices;
    for (const PortDevice& each : named.Devices()) {
        numbers.push_back(each.number);
        devices[each.number] = ToUtf8(each.device);
    }
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_EQ(devices.size(), numbers.size());
    EXPECT_EQ(devices[1], "/dev/仪表");  // before a port of the machine
    EXPECT_EQ(devices[200], "/dev/b");
}

TEST_F(QtSerialPortTest, DeviceOfThePortInUseIsTheOneThatWasNamedForIt) {
    QtSerialPort named({{199, line.Device()}, {200, QStringLiteral("/dev/b")}});
    named.SetCommPort(200);
    EXPECT_EQ(ToUtf8(named.Device()), "/dev/b");
    named.SetCommPort(199);
    EXPECT_EQ(ToUtf8(named.Device()), line.Device().toStdString());
    named.SetPortOpen(true);
    EXPECT_EQ(ToUtf8(named.Device()), line.Device().toStdString());
    named.SetPortOpen(false);
    named.SetCommPort(198);
    EXPECT_EQ(ToUtf8(named.Device()), "");
}

}  // namespace

}  // namespace commtest
