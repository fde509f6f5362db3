#include "catalogue/catalogue_facts.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/table.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

TextView NameOf(StoreEngine engine) {
    switch (engine) {
        case StoreEngine::SqlServer: return u"SQL Server";
        case StoreEngine::PostgreSql: return u"PostgreSQL";
        case StoreEngine::Sqlite: break;
    }
    return u"SQLite";
}

std::string Json(const CatalogueFacts& facts) {
    JsonWriter json(kJsonInLines);
    json.BeginObject();
    json.PutNumber(u"bytes", facts.bytes);
    json.PutText(u"engine", NameOf(facts.engine));
    json.PutNumber(u"schema", facts.schema);
    json.PutKey(u"tables");
    json.BeginArray();
    for (const TableSize& size : facts.tables) {
        json.BeginObject();
        json.PutText(u"name", size.table);
        json.PutNumber(u"rows", size.rows);
        json.EndObject();
    }
    json.EndArray();
    json.PutText(u"version", facts.version);
    json.EndObject();
    return json.Take();
}

QString Lines(const CatalogueFacts& facts) {
    QString lines = u"数据库 %1 %2，%3 字节，表结构第 %4 版\n"_s.arg(
        QStringView(NameOf(facts.engine)), QString::fromStdU16String(facts.version),
        QString::number(facts.bytes), QString::number(facts.schema));
    for (const TableSize& size : facts.tables)
        lines += u"%1 %2 行\n"_s.arg(QString::fromStdU16String(size.table)).arg(size.rows);
    return lines;
}

ExitStatus Info(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const Format format = ReportFormatOf(arguments);
    CatalogueStore store;
    OpenCatalogueOf(FolderFiles(ProgramFolderOf(arguments, console)), store,
                    CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    const CatalogueFacts facts = FactsOf(store);
    if (format == Format::Json) {
        console.Print(Json(facts));
    } else {
        console.Print(Lines(facts));
    }
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueInfo() {
    return {u"catalogue info",
            u"[选项]",
            u"目录的数据库和版本，每张表的行数，大小",
            {kFolderOption, kServerOption, kServerSettingsOption, kReportFormatOption},
            Info};
}

}  // namespace commtest
