#include "catalogue/catalogue_facts.h"

#include "catalogue/schema_version.h"
#include "runtime/number.h"

namespace commtest {

namespace {

struct FactStatements {
    Text version;
    Text bytes;
};

FactStatements StatementsFor(StoreEngine engine) {
    switch (engine) {
        case StoreEngine::SqlServer:
            return {u"SELECT CAST(SERVERPROPERTY('ProductVersion') As nvarchar(128))",
                    u"SELECT SUM(CAST(size As bigint)) * 8192 From sys.database_files"};
        case StoreEngine::PostgreSql:
            return {u"SELECT current_setting('server_version')",
                    u"SELECT pg_database_size(current_database())"};
        case StoreEngine::Sqlite: break;
    }
    return {u"SELECT sqlite_version()",
            u"SELECT page_count * page_size From pragma_page_count(), pragma_page_size()"};
}

}  // namespace

CatalogueFacts FactsOf(Store& store) {
    const FactStatements statements = StatementsFor(store.Engine());
    return {.engine = store.Engine(),
            .version = store.Query(statements.version).At(0, 0),
            .schema = SchemaVersionOf(store),
            .bytes = static_cast<std::int64_t>(ToNumber(store.Query(statements.bytes).At(0, 0))),
            .tables = SizesOfTables(store)};
}

}  // namespace commtest
