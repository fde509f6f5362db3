#pragma once

#include <QString>
#include <string_view>

namespace commtest {

// Writes a file whole or not at all: beside its place first, then under its name. Why it could not, in one
// line; empty where it stands.
QString WriteWhole(const QString& path, std::string_view bytes);

}  // namespace commtest
