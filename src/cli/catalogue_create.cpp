#include <QDir>

#include "catalogue/shipped_catalogue.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "host/file_names.h"
#include "host_qt/folder_files.h"
#include "host_qt/path_problem.h"
#include "host_qt/program_folder.h"
#include "host_qt/qt_store.h"
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
void RequireCatalogue(const QString& folder) {
    QtStore store;
    OpenCatalogueOf(FolderFiles(folder), store);
}

ExitStatus Create(const Arguments& arguments, Console& console) {
    const QString folder = arguments.Positional(1, u"文件夹").constFirst();
    if (folder.isEmpty()) throw arguments.BadUsage(u"缺少参数: 文件夹"_s);
    const bool isNew = MakeFolder(folder);
    if (!isNew) RequireCatalogue(folder);
    const QString file = QDir(folder).filePath(QString::fromStdU16String(Text(kCatalogueFileName)));
    console.Print(isNew ? u"已建立 %1\n"_s.arg(file) : u"%1 已存在，没有改动\n"_s.arg(file));
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueCreate() {
    return {u"catalogue create",
            u"文件夹",
            u"建立程序文件夹: 随附的目录、使用说明、表格模板和存放记录的文件夹；已有的文件不改动",
            {},
            Create};
}

}  // namespace commtest
