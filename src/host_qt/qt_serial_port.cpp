#include "host_qt/qt_serial_port.h"

#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>
#include <chrono>
#include <tuple>
#include <utility>

#include "host_qt/device_readers.h"
#include "host_qt/line_caveat.h"
#include "host_qt/line_settings.h"
#include "host_qt/port_problem.h"
#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTimeBetweenLooks = 1s;

// The serial ports of the machine in the order of their numbers.
QList<QSerialPortInfo> MachinePorts() {
    QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    const auto place = [](const QSerialPortInfo& port) {
        const QString name = port.portName();
        return std::tuple(!port.hasVendorIdentifier(), name.size(), name);
    };
    std::sort(ports.begin(), ports.end(), [&](const auto& a, const auto& b) { return place(a) < place(b); });
    return ports;
}

// Without the links on the way.
QString RealDevice(const QString& device) {
    const QString real = QFileInfo(device).canonicalFilePath();
    return real.isEmpty() ? device : real;
}

PortDevice DeviceNow(int number, const QString& device, const QList<QSerialPortInfo>& machinePorts) {
    const QString real = RealDevice(device);
    const auto known =
        std::find_if(machinePorts.begin(), machinePorts.end(),
                     [&real](const QSerialPortInfo& port) { return port.systemLocation() == real; });
    const QString description = known == machinePorts.end() ? QString() : known->description();
    return {.number = number,
            .device = device.toStdU16String(),
            .description = description.toStdU16String(),
            .isThere = QFileInfo::exists(device),
            .isInUse = IsLockedByAnother(real)};
}

bool CanBeOpened(const QString& device) { return access(QFile::encodeName(device), R_OK | W_OK) == 0; }

bool MeansLoss(QSerialPort::SerialPortError error) {
    // A pseudo-terminal whose far end is gone gives read errors without end, an adapter that was pulled out a
    // resource error.
    return error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
           error == QSerialPort::ResourceError;
}

}  // namespace

QtSerialPort::QtSerialPort(DeviceMap devices) : devices_(std::move(devices)) {
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] {
        if (Receives) Receives();
    });
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_, [this](QSerialPort::SerialPortError error) {
        if (MeansLoss(error)) NoteLoss();
    });
    QObject::connect(&lookForLost_, &QTimer::timeout, &port_, [this] { LookForLostDevice(); });
}

void QtSerialPort::SetCommPort(std::int16_t number) {
    if (number != number_) AwaitNothing();
    number_ = number;
}

void QtSerialPort::SetPortOpen(bool open) {
    if (open == port_.isOpen()) return;
    problem_.clear();
    if (open) {
        Open();
    } else {
        isLosing_ = false;
        port_.close();
    }
}

void QtSerialPort::Open() {
    AwaitNothing();
    const auto settings = LineSettingsOf(settings_);
    device_ = WantedDevice();
    if (!settings) {
        problem_ = Words::tr("串口设置 \"%1\" 无效。请写成 9600,N,8,1 的形式")
                       .arg(QString::fromStdU16String(settings_))
                       .toStdU16String();
        return;
    }
    if (device_.isEmpty()) {
        problem_ = Words::tr("本机没有第 %1 个串口。请接上串口，或指定设备: COM%1=设备")
                       .arg(number_)
                       .toStdU16String();
        return;
    }
    // Set before the opening, what a device ignores does not make it fail.
    port_.setPortName(device_);
    port_.setBaudRate(settings->baudRate);
    port_.setParity(settings->parity);
    port_.setDataBits(settings->dataBits);
    port_.setStopBits(DriverStopBits(settings->stopBits));
    if (port_.open(QIODevice::ReadWrite)) {
        // What came while the port was closed belongs to nobody.
        port_.clear(QSerialPort::AllDirections);
        problem_ = CaveatOfOpenLine(*settings).toStdU16String();
    } else {
        problem_ = ReasonOfFailedOpen(device_, port_, settings_).toStdU16String();
    }
}

QString QtSerialPort::CaveatOfOpenLine(const LineSettings& settings) const {
    QStringList caveats = {CaveatOf(port_.handle(), settings), CaveatOfReaders(OtherReadersOf(device_))};
    caveats.removeAll(QString());
    return caveats.join(Words::tr("；"));
}

// Without the links on the way, so that a device is locked under one name.
QString QtSerialPort::WantedDevice() const {
    const auto named = devices_.find(number_);
    if (named != devices_.end()) return RealDevice(named->second);
    const QList<QSerialPortInfo> ports = MachinePorts();
    const bool isThere = number_ >= 1 && number_ <= ports.size();
    return isThere ? RealDevice(ports[number_ - 1].systemLocation()) : QString();
}

std::vector<PortDevice> QtSerialPort::Devices() const {
    const QList<QSerialPortInfo> machinePorts = MachinePorts();
    std::map<int, QString> all = devices_;
    int number = 0;
    for (const QSerialPortInfo& port : machinePorts) all.try_emplace(++number, port.systemLocation());
    std::vector<PortDevice> ports;
    for (const auto& [portNumber, device] : all) ports.push_back(DeviceNow(portNumber, device, machinePorts));
    return ports;
}

// To list the machine's ports takes milliseconds: of an open port, and of one that was named, they are not
// needed.
Text QtSerialPort::Device() const {
    const auto named = devices_.find(number_);
    if (named != devices_.end()) return named->second.toStdU16String();
    return (port_.isOpen() ? device_ : WantedDevice()).toStdU16String();
}

void QtSerialPort::NameDevice(int number, Text device) {
    const QString name = QString::fromStdU16String(device);
    devices_[number] = name;
    if (IsNamed) IsNamed(number, name);
}

void QtSerialPort::Output(const std::string& bytes) {
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    port_.flush();
}

std::string QtSerialPort::Input() { return port_.readAll().toStdString(); }

// The loss is met in the middle of a handler and told behind it. Until then the port counts as open, so that
// no timer in between opens it again and speaks of a port that is in use.
void QtSerialPort::NoteLoss() {
    if (port_.isOpen() && !std::exchange(isLosing_, true)) LoseSoon();
}

void QtSerialPort::LoseSoon() {
    QMetaObject::invokeMethod(
        &port_, [this] { Lose(); }, Qt::QueuedConnection);
}

void QtSerialPort::Lose() {
    if (!isLosing_) return;
    SetPortOpen(false);
    lookForLost_.start(kTimeBetweenLooks);
    if (IsLost)
        IsLost(
            Words::tr("COM%1 (%2) 已断开。请检查接线后重新开始").arg(number_).arg(device_).toStdU16String());
}

// --- A lost device that comes back ---

// The machine's n-th port may be another device by now, one that was named may have a new one behind its
// name.
void QtSerialPort::LookForLostDevice() {
    const QString device = WantedDevice();
    const bool isTheLostOne = devices_.contains(number_) || device == device_;
    if (isTheLostOne) device_ = device;
    SetBack(isTheLostOne && CanBeOpened(device));
}

void QtSerialPort::SetBack(bool isBack) {
    if (std::exchange(isBack_, isBack) == isBack) return;
    if (isBack && IsBack) IsBack(device_.toStdU16String());
    if (!isBack && IsGoneAgain) IsGoneAgain();
}

void QtSerialPort::AwaitNothing() {
    lookForLost_.stop();
    SetBack(false);
}

}  // namespace commtest
