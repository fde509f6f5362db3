#pragma once

#include <QString>

namespace commtest {

// True for a file of the older desktop database format, known by its head. Nothing here reads more of it.
bool IsOlderCatalogue(const QString& path);

}  // namespace commtest
