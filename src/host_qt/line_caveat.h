#pragma once

#include <QString>
#include <QStringList>

#include "host_qt/line_settings.h"

namespace commtest {

// What an open line does in another way than the settings say, and what to do, in one line; empty if it does
// all as they say. A driver may take a baud rate and yet make another one; its own rate counts as the same
// within 2 %, which a start-stop line bears.
QString CaveatOf(int descriptor, const LineSettings& settings);

// That programs which do not heed its lock read the line, too; empty without any.
QString CaveatOfReaders(const QStringList& programs);

// A line has 1.5 stop bits with 5 data bits only, and the driver's word for these is "two". With more data
// bits two are sent: a receiver that waits for 1.5 bears them.
QSerialPort::StopBits DriverStopBits(QSerialPort::StopBits wanted);

}  // namespace commtest
