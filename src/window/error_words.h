#pragma once

#include <QString>

namespace commtest {

class MainForm;

// What the window says of a run-time error behind its standard message.

// Which field is at fault, as they stand: "通讯间隔 1x 不是数值"; empty where none is.
QString FaultyField(int error, const MainForm& form);

// The same of an answer to a question.
QString FaultyAnswer(int error, const QString& question, const QString& answer);

// A question that was left without an answer, and what to do.
QString WordsOnCancelled(const QString& question);

// What to do. `isFound`: it has been said already what is at fault.
QString RemedyOfError(int error, bool isFound);

}  // namespace commtest
