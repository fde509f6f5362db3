#include "catalogue/schema_version.h"

#include <algorithm>

#include "runtime/number.h"

namespace commtest {

namespace {

Text VersionQuery(StoreEngine engine) {
    switch (engine) {
        case StoreEngine::SqlServer:
            return u"SELECT CAST(value As nvarchar(10)) From sys.extended_properties Where class = 0 And "
                   u"name = "
                   u"'CommTest'";
        case StoreEngine::PostgreSql:
            return u"SELECT obj_description(to_regclass('" + Text(kParameterView) + u"'),'pg_class')";
        case StoreEngine::Sqlite: break;
    }
    return u"PRAGMA user_version";
}

Text VersionStatement(StoreEngine engine, const Text& version) {
    switch (engine) {
        case StoreEngine::SqlServer:
            return u"IF EXISTS (SELECT 1 From sys.extended_properties Where class = 0 And name = 'CommTest') "
                   u"EXEC "
                   u"sp_updateextendedproperty @name = N'CommTest', @value = N'" +
                   version + u"' ELSE EXEC sp_addextendedproperty @name = N'CommTest', @value = N'" +
                   version + u"'";
        case StoreEngine::PostgreSql:
            return u"COMMENT ON VIEW " + Text(kParameterView) + u" IS '" + version + u"'";
        case StoreEngine::Sqlite: break;
    }
    return u"PRAGMA user_version = " + version;
}

}  // namespace

int SchemaVersionOf(Store& store) {
    const StoreRows said = store.Query(VersionQuery(store.Engine()));
    const Text version = said.rows.empty() ? Text() : said.At(0, 0);
    return version.empty() ? 1 : std::max(ToWhole32(version), 1);
}

void NoteSchemaVersion(Store& store, int version) {
    store.Execute(VersionStatement(store.Engine(), WholeText(version)));
}

void KeepFromWriting(Store& store) {
    if (store.Engine() == StoreEngine::Sqlite) store.Execute(u"PRAGMA query_only = ON");
}

}  // namespace commtest
