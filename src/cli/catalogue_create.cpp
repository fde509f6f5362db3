#include <QDir>

#include "catalogue/shipped_catalogue.h"
#include "catalogue/table_copy.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/path_problem.h"
#include "host_qt/program_folder.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// True if the catalogue was made, false if one stood there.
bool MakeFolder(const QString& folder) {
    try {
        return CreateProgramFolder(folder.toStdU16String(), FillWithShippedCatalogue);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, u"不能建立 %1: %2"_s.arg(folder, ReasonOf(error)));
    }
}

// A file of that name which is no catalogue was kept, but is no success.
void RequireCatalogue(const QString& folder, Console& console) {
    CatalogueStore store;
    OpenLocalCatalogue(FolderFiles(folder), store, console);
}

// The tables, and what a new catalogue holds, in one transaction; a server that has a catalogue keeps it.
ExitStatus CreateOnServer(const Arguments& arguments, const CataloguePlace& place, Console& console) {
    const auto named = arguments.OnePositionalAtMost();
    const FolderFiles files(named ? *named : ProgramFolderOf(arguments, console));
    CatalogueStore store;
    OpenServer(files, store, place);
    if (HoldsCatalogue(store)) {
        console.Print(u"服务器上已有目录，没有改动\n"_s);
        return ExitStatus::Good;
    }
    try {
        console.ShowLive(u"正在服务器上建立目录");
        FillWithShippedCatalogue(store);
        console.HideLive();
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()).simplified() +
                                                u" 不能在服务器上建立目录，请检查用户的权限"_s);
    }
    console.Print(u"已在服务器上建立目录\n"_s);
    return ExitStatus::Good;
}

ExitStatus Create(const Arguments& arguments, Console& console) {
    const CataloguePlace place = CataloguePlaceOf(arguments, CatalogueUse::Writing);
    if (place.isServer) return CreateOnServer(arguments, place, console);
    const QString folder = arguments.Positional(1, u"文件夹").constFirst();
    if (folder.isEmpty()) throw arguments.BadUsage(u"缺少参数: 文件夹"_s);
    const bool isNew = MakeFolder(folder);
    if (!isNew) RequireCatalogue(folder, console);
    const QString file = QDir(folder).filePath(QString::fromStdU16String(Text(kCatalogueFileName)));
    console.Print(isNew ? u"已建立 %1\n"_s.arg(file) : u"%1 已存在，没有改动\n"_s.arg(file));
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueCreate() {
    return {u"catalogue create",
            u"文件夹 | --server [选项]",
            u"建立程序文件夹: 随附的目录、使用说明、表格模板和存放记录的文件夹；已有的文件不改动",
            {kServerOption, kServerSettingsOption, kFolderOption},
            Create,
            uR"(给出 --server 或 --server-settings 时在服务器的数据库中建立随附的目录；已有的目录不改动。
)"};
}

}  // namespace commtest
