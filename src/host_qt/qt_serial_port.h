#pragma once

#include <QSerialPort>
#include <QString>
#include <QTimer>
#include <functional>
#include <map>

#include "host/serial_port.h"

namespace commtest {

struct LineSettings;

// Devices by port number: {1, "/dev/ttyUSB0"} makes that one COM1.
using DeviceMap = std::map<int, QString>;

// A port of the machine. COMn is the device that the map names for it, else the n-th serial port of the
// machine, USB adapters ahead. Needs an event loop.
class QtSerialPort : public SerialPort {
  public:
    explicit QtSerialPort(DeviceMap devices = {});

    std::function<void()> Receives;
    // The device is gone. Told once, from the event loop; the port is closed by then.
    std::function<void(const Text& reason)> IsLost;
    // The lost device is there again and can be opened, or no more. Looked for about once a second, until the
    // port is opened or another one is chosen.
    std::function<void(const Text& device)> IsBack;
    std::function<void()> IsGoneAgain;
    // The user has named a device for a port.
    std::function<void(int number, const QString& device)> IsNamed;

    std::int16_t CommPort() const override { return number_; }
    void SetCommPort(std::int16_t number) override;
    Text Settings() const override { return settings_; }
    void SetSettings(Text settings) override { settings_ = std::move(settings); }

    // From the next opening on that port is this device.
    void SetDevice(int number, const QString& device) { devices_.insert_or_assign(number, device); }

    bool PortOpen() const override { return port_.isOpen(); }
    void SetPortOpen(bool open) override;
    Text LastProblem() const override { return problem_; }
    std::vector<PortDevice> Devices() const override;
    Text Device() const override;
    void NameDevice(int number, Text device) override;
    void Output(const std::string& bytes) override;
    std::string Input() override;

  protected:
    // Of the open port, -1 of a closed one.
    int Descriptor() const { return port_.handle(); }
    // Bytes could not be carried because the device is gone. Lose is due, once, behind the handler under way.
    void NoteLoss();
    virtual void LoseSoon();
    void Lose();

  private:
    void Open();
    QString WantedDevice() const;
    QString CaveatOfOpenLine(const LineSettings& settings) const;
    void LookForLostDevice();
    void SetBack(bool isBack);
    void AwaitNothing();

    QSerialPort port_;
    DeviceMap devices_;
    QString device_;  // of the last opening
    std::int16_t number_ = 1;
    Text settings_ = u"9600,N,8,1";
    Text problem_;
    QTimer lookForLost_;
    bool isLosing_ = false;  // the device has gone, which is not told yet
    bool isBack_ = false;    // what was lost is there again
};

}  // namespace commtest
