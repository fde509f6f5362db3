#pragma once

#include <QSerialPort>
#include <optional>

#include "runtime/text.h"

namespace commtest {

struct LineSettings {
    qint32 baudRate = QSerialPort::Baud9600;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

// The settings in a text "9600,N,8,1": a baud rate above 0; parity N, O or E in either case; 5 to 8 data
// bits; 1, 1.5 or 2 stop bits. Nothing for any other text.
std::optional<LineSettings> LineSettingsOf(TextView settings);

}  // namespace commtest
