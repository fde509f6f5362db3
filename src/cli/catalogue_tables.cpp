#include <QDir>
#include <QFile>

#include "catalogue/table_files.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/printable_text.h"
#include "cli/row_progress.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/program_folder.h"
#include "host_qt/whole_file.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const Option kTablesOption = {u"tables", u"文件夹", u"每张表一个文件: 仪表_名称.csv 等"};

QString FolderOfTables(const Arguments& arguments) {
    const QString folder = QDir().absoluteFilePath(arguments.Value(kTablesOption.name));
    if (QDir(folder).exists()) return folder;
    throw Problem(ExitStatus::NoAccess, u"没有文件夹 %1"_s.arg(folder));
}

QString PathOf(const QString& folder, const Text& table) {
    return QDir(folder).filePath(QString::fromStdU16String(table) + u".csv"_s);
}

TableFile FilesOf(const QString& folder) {
    return [folder](const Text& table) -> std::optional<std::string> {
        QFile file(PathOf(folder, table));
        if (!file.exists()) return std::nullopt;
        if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(RuntimeError::kBadFile);
        return file.readAll().toStdString();
    };
}

// Without any of the tables it is the wrong folder.
void RequireSomeTable(const QString& folder) {
    for (const Text& table : TablesToFill())
        if (QFile::exists(PathOf(folder, table))) return;
    throw Problem(ExitStatus::NoAccess, u"%1 中没有一张表的文件，如 仪表_名称.csv"_s.arg(folder));
}

Text WordsOn(const TableFinding& finding) {
    using Kind = TableFinding::Kind;
    const Text value = u" \"" + finding.value + u"\"";
    switch (finding.kind) {
        case Kind::NoFile: return u"没有这个文件；表是空的";
        case Kind::NoHeading: return u"文件是空的；表是空的";
        case Kind::NoKeyColumn: return u"没有编号列 " + finding.column + u"；表是空的";
        case Kind::MissingColumn: return u"没有列 " + finding.column + u"；这一列是空的";
        case Kind::UnknownColumn: return u"目录中没有列 " + finding.column + u"；没有读入";
        case Kind::FieldCount: return u"字段数和标题行不同；没有读入";
        case Kind::OpenQuote: return u"引号没有结束；没有读入";
        case Kind::KeyIsNoNumber: return u"编号 " + finding.column + value + u" 不是整数；没有读入";
        case Kind::KeyTwice: return u"编号 " + finding.column + value + u" 已经有了；没有读入";
        case Kind::NoInstrument: return u"没有 " + finding.column + value + u" 的仪表；没有读入";
        case Kind::NoNumber: break;
    }
    return finding.column + value + u" 不是整数；读成空值";
}

Text LineOn(const TableFinding& finding) {
    Text line = finding.table + u".csv";
    if (finding.line > 0) line += u":" + QString::number(finding.line).toStdU16String();
    return line + u": " + WordsOn(finding);
}

ExitStatus Load(const Arguments& arguments, Console& console) {
    const QString folder = arguments.Positional(1, u"文件夹").constFirst();
    const QString tables = FolderOfTables(arguments);
    RequireSomeTable(tables);
    int findings = 0;
    std::vector<TableSize> sizes;
    const auto tell = [&](const TableFinding& finding) {
        ++findings;
        console.Print(PrintableLine(LineOn(finding)) + "\n");
    };
    const auto fill = [&](Store& store) {
        sizes = LoadTables(store, FilesOf(tables), tell, LiveRows(console));
    };
    try {
        const bool isNew = CreateProgramFolder(folder.toStdU16String(), fill);
        console.HideLive();
        if (!isNew) {
            throw Problem(ExitStatus::NoAccess, u"%1 中已有目录，没有改动。请给出新的文件夹"_s.arg(folder));
        }
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess,
                      QString::fromStdU16String(error.StandardMessage()).simplified() + u" 没有建立目录"_s);
    }
    for (const TableSize& size : sizes)
        console.Print(u"%1 %2 行\n"_s.arg(QString::fromStdU16String(size.table)).arg(size.rows));
    return findings == 0 ? ExitStatus::Good : ExitStatus::BadRows;
}

void DumpInto(const QString& path, Store& store, const Text& table) {
    std::string bytes;
    try {
        DumpTable(store, table, [&bytes](const std::string& piece) { bytes += piece; });
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()).simplified());
    }
    const QString problem = WriteWhole(path, bytes);
    if (!problem.isEmpty()) throw Problem(ExitStatus::NoAccess, u"%1 不能写: %2"_s.arg(path, problem));
}

ExitStatus Dump(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const QString tables = FolderOfTables(arguments);
    for (const Text& table : TablesToFill()) {
        if (QFile::exists(PathOf(tables, table)))
            throw Problem(ExitStatus::NoAccess, u"%1 已存在，没有改动"_s.arg(PathOf(tables, table)));
    }
    CatalogueStore store;
    OpenCatalogueOf(FolderFiles(ProgramFolderOf(arguments, console)), store,
                    CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    const PatienceScope patience(store, Patience::Unlimited);
    BeginReading(store);
    for (const TableSize& size : SizesOfTables(store)) {
        DumpInto(PathOf(tables, size.table), store, size.table);
        console.Print(u"%1 %2 行\n"_s.arg(QString::fromStdU16String(size.table)).arg(size.rows));
    }
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueLoad() {
    return {
        u"catalogue load",
        u"文件夹 --tables 文件夹",
        u"由每张表一个的 CSV 文件建立新的目录",
        {kTablesOption},
        Load,
        uR"(文件的第一行是列名，字段可以加引号，UTF-8 或代码页 936，如 mdb-export 所写。编号、数值和仪表与参数的
对应都检查，列出没有读入的；有没有读入的时退出状态为 1。已有目录的文件夹不改动，退出状态为 3。
)"};
}

Verb CatalogueDump() {
    return {u"catalogue dump",
            u"--tables 文件夹 [选项]",
            u"把目录的每张表写成一个 CSV 文件，catalogue load 可以读回",
            {kTablesOption, kFolderOption, kServerOption, kServerSettingsOption},
            Dump,
            uR"(UTF-8；空值什么也不写，空文本写 ""。已有的文件不改动，退出状态为 3。
)"};
}

}  // namespace commtest
