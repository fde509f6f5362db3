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

}  // namespace commtest
