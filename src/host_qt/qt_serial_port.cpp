#include "host_qt/qt_serial_port.h"

#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>
#include <tuple>
#include <utility>

#include "host_qt/line_caveat.h"
#include "host_qt/line_settings.h"
#include "host_qt/port_problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// The serial ports of the machine in the order of their numbers.
QStringList MachinePorts() {
    QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    const auto place = [](const QSerialPortInfo& port) {
        const QString name = port.portName();
        return std::tuple(!port.hasVendorIdentifier(), name.size(), name);
    };
    std::sort(ports.begin(), ports.end(), [&](const auto& a, const auto& b) { return place(a) < place(b); });
    QStringList devices;
    for (const QSerialPortInfo& port : ports) devices += port.systemLocation();
    return devices;
}

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
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { HandleError(error); });
}

void QtSerialPort::SetPortOpen(bool open) {
    if (open == port_.isOpen()) return;
    problem_.clear();
    if (open) {
        Open();
    } else {
        port_.close();
    }
}

void QtSerialPort::Open() {
    const auto settings = LineSettingsOf(settings_);
    device_ = WantedDevice();
    if (!settings) {
        problem_ = u"串口设置 \"" + settings_ + u"\" 无效。请写成 9600,N,8,1 的形式";
        return;
    }
    if (device_.isEmpty()) {
        problem_ =
            u"本机没有第 %1 个串口。请接上串口，或指定设备: COM%1=设备"_s.arg(number_).toStdU16String();
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
        problem_ = CaveatOf(port_.handle(), *settings).toStdU16String();
    } else {
        problem_ = ReasonOfFailedOpen(device_, port_, settings_).toStdU16String();
    }
}

// Without the links on the way, so that a device is locked under one name.
QString QtSerialPort::WantedDevice() const {
    const auto named = devices_.find(number_);
    const QString device = named != devices_.end() ? named->second : MachinePorts().value(number_ - 1);
    const QString real = QFileInfo(device).canonicalFilePath();
    return real.isEmpty() ? device : real;
}

std::vector<PortDevice> QtSerialPort::Devices() const {
    std::map<int, QString> all = devices_;
    int number = 0;
    for (const QString& device : MachinePorts()) all.try_emplace(++number, device);
    std::vector<PortDevice> ports;
    for (const auto& [portNumber, device] : all) ports.push_back({portNumber, device.toStdU16String()});
    return ports;
}

void QtSerialPort::Output(const std::string& bytes) {
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    port_.flush();
}

std::string QtSerialPort::Input() { return port_.readAll().toStdString(); }

void QtSerialPort::HandleError(QSerialPort::SerialPortError error) {
    if (!port_.isOpen() || !MeansLoss(error)) return;
    SetPortOpen(false);
    const Text reason = u"设备 %1 已断开。请检查接线后重新开始"_s.arg(device_).toStdU16String();
    QMetaObject::invokeMethod(
        &port_,
        [this, reason] {
            if (IsLost) IsLost(reason);
        },
        Qt::QueuedConnection);
}

}  // namespace commtest
