#include "host_qt/own_version.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

#include "version/version_lines.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// The engine itself is asked: the driver brings its own, or uses the system's.
std::string EmbeddedEngine() {
    const QString connection = u"version of the engine"_s;
    std::string engine = "none";
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setDatabaseName(u":memory:"_s);
        database.open();
        QSqlQuery query(u"SELECT sqlite_version()"_s, database);
        if (query.next()) engine = "SQLite " + query.value(0).toString().toStdString();
    }
    QSqlDatabase::removeDatabase(connection);
    return engine;
}

}  // namespace

std::string OwnVersionLines(const std::string& program) {
    return VersionLines(program, {std::string("Qt ") + qVersion(), EmbeddedEngine()});
}

}  // namespace commtest
