#pragma once

#include <QString>
#include <QWidget>

namespace commtest {

// Asks for a file to write, first among the user's documents; a name without a suffix gets this one. One that
// is there already is asked about by the dialog. Empty where the user wants none.
QString AskForFileToWrite(QWidget* parent, const QString& title, const QString& firstName,
                          const QString& kinds, const QString& suffix);

}  // namespace commtest
