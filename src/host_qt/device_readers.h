#pragma once

#include <QStringList>

namespace commtest {

// The programs beside this one that have a device open to read from it, each as "name (process number)"; as
// far as the system shows them, which are those of the same user, or all of them for the administrator. Who
// holds the far end of a pseudo-terminal is none of them.
QStringList OtherReadersOf(const QString& device);

}  // namespace commtest
