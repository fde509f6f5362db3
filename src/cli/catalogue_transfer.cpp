#include <QDir>

#include "catalogue/table_copy.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/catalogue_copy.h"
#include "cli/consent.h"
#include "cli/row_progress.h"
#include "cli/table.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/program_folder.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kFrom = u"from";
constexpr QStringView kTo = u"to";
constexpr QStringView kServer = u"server";

// Which way, and the folder at the one end of it.
struct Way {
    bool toServer = false;
    QString folder;
};

Way WayOf(const Arguments& arguments) {
    arguments.Positional(0, u"");
    const QString from = arguments.Value(kFrom);
    const QString to = arguments.Value(kTo);
    if ((from == kServer) == (to == kServer))
        throw arguments.BadUsage(u"--from 和 --to 一个是文件夹，另一个是 server"_s);
    const bool toServer = to == kServer;
    return {toServer, toServer ? from : to};
}

bool HasRows(Store& store) {
    for (const TableSize& size : SizesOfTables(store))
        if (size.rows > 0) return true;
    return false;
}

QString Listed(const std::vector<TableSize>& sizes) {
    QStringList parts;
    for (const TableSize& size : sizes)
        parts += u"%1 %2 行"_s.arg(QString::fromStdU16String(size.table)).arg(size.rows);
    return parts.join(u"，");
}

// A target that holds something is asked for, and copied to the folder; the name of that copy.
std::optional<Text> SecureTarget(Store& target, const Arguments& arguments, ProgramFiles& files,
                                 Console& console) {
    if (!HoldsCatalogue(target) || !HasRows(target)) return std::nullopt;
    RequireConsent(arguments, console);
    if (!arguments.Has(kYesOption.name)) {
        console.Tell(u"目标现有 %1，先备份，再全部取代"_s.arg(Listed(SizesOfTables(target))));
        AskForConsent(console, u"确定要取代目标中的目录吗？");
    }
    return CopyCatalogue(target, files);
}

std::vector<TableSize> RunCopy(Store& from, Store& to, Console& console) {
    try {
        std::vector<TableSize> copied = CopyCatalogueInto(from, to, LiveRows(console));
        console.HideLive();
        return copied;
    } catch (const RuntimeError& error) {
        console.HideLive();
        throw Problem(ExitStatus::NoAccess,
                      QString::fromStdU16String(error.StandardMessage()).simplified() + u" 没有复制"_s);
    }
}

void Print(const std::optional<Text>& backup, const std::vector<TableSize>& copied, Console& console) {
    if (backup) console.Print(u"目标已备份到 %1\n"_s.arg(QString::fromStdU16String(*backup)));
    console.Print(u"已复制 %1\n"_s.arg(Listed(copied)));
}

void CopyToServer(const Arguments& arguments, FolderFiles& files, const CataloguePlace& server,
                  Console& console) {
    CatalogueStore from;
    CatalogueStore to;
    OpenLocalCatalogue(files, from, console);
    OpenServer(files, to, server);
    const auto backup = SecureTarget(to, arguments, files, console);
    Print(backup, RunCopy(from, to, console), console);
}

// A folder without a catalogue is made with all that belongs into one.
void CopyToFolder(const Arguments& arguments, FolderFiles& files, const CataloguePlace& server,
                  Console& console) {
    CatalogueStore from;
    OpenCatalogueOf(files, from, server, console);
    if (!files.Exists(Text(kCatalogueFileName))) {
        std::vector<TableSize> copied;
        const auto fill = [&](Store& to) { copied = RunCopy(from, to, console); };
        CreateProgramFolder(files.Folder().toStdU16String(), fill);
        return Print({}, copied, console);
    }
    CatalogueStore to;
    OpenLocalCatalogue(files, to, console);
    const auto backup = SecureTarget(to, arguments, files, console);
    Print(backup, RunCopy(from, to, console), console);
}

ExitStatus Transfer(const Arguments& arguments, Console& console) {
    const Way way = WayOf(arguments);
    FolderFiles files(way.folder);
    const CataloguePlace server = ServerPlaceOf(arguments, CatalogueUse::Writing);
    if (way.toServer) {
        CopyToServer(arguments, files, server, console);
    } else {
        CopyToFolder(arguments, files, server, console);
    }
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueTransfer() {
    return {
        u"catalogue copy",
        u"--from 文件夹 --to server | --from server --to 文件夹 [选项]",
        u"把整个目录在文件和服务器之间复制，编号和次序不变",
        {{kFrom, u"文件夹|server", u"由这个程序文件夹，或由服务器"},
         {kTo, u"文件夹|server", u"到这个程序文件夹，或到服务器"},
         kServerSettingsOption,
         kYesOption},
        Transfer,
        uR"(服务器见文件夹中的 Setup.ini，或 --server-settings 的文件。目标中已有内容时先询问，备份到文件夹，
再全部取代；没有目录的目标先建立。没有复制完时目标保持原样，退出状态为 3。
)"};
}

}  // namespace commtest
