#pragma once

#include <QString>

#include "app/finding_words.h"
#include "runtime/runtime_error.h"

// What the command line says of parameter lists.
namespace commtest {

// What was found.
QString WordsOn(const ListFinding& finding);

// "file:line: what；outcome"
QString LineOn(const ListFinding& finding, const QString& file);

// What a list or a catalogue holds.
QString WordsOnSize(int instruments, int parameters);

// Why an import of a list, or the table of a template, ends: the error, file and line (0 if none was read),
// and what to do.
QString WordsOnListError(const RuntimeError& error, const QString& file, int line);

}  // namespace commtest
