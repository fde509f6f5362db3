#pragma once

#include <QSerialPort>
#include <QString>

#include "runtime/text.h"

namespace commtest {

// Why `port` could not open a device and what to do about it, in one line: no such device, no right to use
// it, held by another program (named where it can be found out), not a serial port, settings that it does not
// know.
QString ReasonOfFailedOpen(const QString& device, const QSerialPort& port, const Text& settings);

// Whether another living program has locked a device. Reads the lock file alone, so the line is left alone.
bool IsLockedByAnother(const QString& device);

// The program that has a device open, as "name (process number)"; empty if that cannot be found out.
QString HolderOf(const QString& device);

}  // namespace commtest
