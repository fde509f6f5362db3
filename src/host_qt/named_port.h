#pragma once

#include <QString>
#include <optional>

namespace commtest {

struct NamedPort {
    int number = 0;  // from 1
    QString device;  // empty: the machine's own
};

// The port in a text "COM1" or "COM1=device", of up to four digits. Nothing for any other text.
std::optional<NamedPort> NamedPortOf(const QString& text);

// Whether a port could be behind that name: the whole path of a device, or of one that is not there yet.
bool CanBeDevice(const QString& path);

}  // namespace commtest
