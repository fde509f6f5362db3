#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace commtest {

// The moment that a text names: "HH:MM[:SS]", the next one behind `now`, or a date in front of it,
// "2026-11-23 06:30". Nothing for any other text, and for a date with a time that is past.
std::optional<QDateTime> MomentNamed(const QString& text, const QDateTime& now);

}  // namespace commtest
