#pragma once

#include <QString>

namespace commtest {

// "name (process number)" of a process that lives; empty for none.
QString NameOfProcess(const QString& number);

}  // namespace commtest
