#pragma once

#include <QString>

class QSqlDriver;

namespace commtest {

// What the engine behind an open connection through ODBC calls itself; "?" if it does not say.
QString OdbcEngineName(const QSqlDriver& driver);

}  // namespace commtest
