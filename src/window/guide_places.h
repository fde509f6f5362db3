#pragma once

#include <QStringList>
#include <QWidget>

namespace commtest {

// The place of the guide that tells of a widget, or of what it stands in, "reading.md#record"; empty if none
// does.
QString GuidePlaceOf(const QWidget* widget);

// All of them.
QStringList GuidePlaces();

}  // namespace commtest
