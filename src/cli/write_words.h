#pragma once

#include <QString>

#include "commissioning/parameter_write.h"

namespace commtest {

class MainForm;

// How the command line puts what becomes of a write.

TextView KeyOf(WriteOutcome outcome);  // "equal", "different", "refused", "unconfirmed", "sent", "held"

Text NameOfRow(const MainForm& form, int row);   // empty for a row that there is not
QString RowName(const MainForm& form, int row);  // "第 13 行 量程下限"

// Why a value does not leave, and what to do.
QString WordsOnObjection(const MainForm& form, const ParameterWrite& write);
QString WordsOnMissingDecimals(const MainForm& form, int decimalsRow, Unreadable why);

// Why a row is not read back.
QString WordsOnUnreadable(const MainForm& form, const ParameterWrite& write);

}  // namespace commtest
