#include <QFileInfo>

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/catalogue_copy.h"
#include "cli/consent.h"
#include "cli/list_words.h"
#include "cli/table.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString WordsOn(const CatalogueSize& size) { return WordsOnSize(size.instruments, size.parameters); }

CatalogueSize OpenedSize(const FolderFiles& files, const Text& copy) {
    CatalogueStore store;
    store.Open({StoreAddress::Kind::LocalFile, files.PathOf(copy), CatalogueTables()});
    return InstrumentCatalogue(store).Size();
}

// A program that was killed while it copied has left a copy that is none.
Text YoungestUsableCopy(const FolderFiles& files) {
    for (const Text& copy : CatalogueBackups(files)) {
        if (IsMet([&] { return OpenedSize(files, copy).instruments >= 0; })) return copy;
    }
    throw Problem(ExitStatus::BadUsage, u"%1 中没有可用的备份"_s.arg(files.Folder()));
}

// The youngest copy, or the one named: of the program folder, else a path.
Text CopyOf(const std::optional<QString>& named, const FolderFiles& files) {
    if (!named) return YoungestUsableCopy(files);
    const QFileInfo file(*named);
    const bool isName = file.fileName() == *named && files.Exists(named->toStdU16String());
    const bool isOfFolder = isName || file.absolutePath() == files.Folder();
    return (isOfFolder ? file.fileName() : file.absoluteFilePath()).toStdU16String();
}

CatalogueSize SizeOfCopy(const FolderFiles& files, const Text& copy) {
    try {
        return OpenedSize(files, copy);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()) +
                                                u" 这个备份不能用。请给出另一个"_s);
    }
}

void RunRestore(Store& store, const FolderFiles& files, const Text& copy) {
    try {
        RestoreCatalogue(store, files, copy);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()) +
                                                u" 请结束正在使用目录的其他程序，检查磁盘空间和权限"_s);
    }
}

void Print(const Text& backup, const Text& copy, const CatalogueSize& size, Format format, Console& console) {
    if (format == Format::Json) {
        JsonWriter json(kJsonInLines);
        json.BeginObject();
        json.PutText(u"backup", backup);
        json.PutText(u"copy", copy);
        json.PutNumber(u"instruments", size.instruments);
        json.PutNumber(u"parameters", size.parameters);
        json.EndObject();
        return console.Print(json.Take());
    }
    console.Print(u"目录已备份到 %1\n已由 %2 恢复 %3\n"_s.arg(
        QString::fromStdU16String(backup), QString::fromStdU16String(copy), WordsOn(size)));
}

void Ask(const Text& copy, const CatalogueSize& size, Store& store, Console& console) {
    console.Tell(u"%1: "_s.arg(QString::fromStdU16String(copy)) + WordsOn(size));
    console.Tell(u"目录现有 "_s + WordsOn(InstrumentCatalogue(store).Size()) + u"，先备份，再由备份取代"_s);
    AskForConsent(console, u"确定要恢复仪表的参数地址表吗？");
}

ExitStatus Restore(const Arguments& arguments, Console& console) {
    const auto named = arguments.OnePositionalAtMost();
    const Format format = ReportFormatOf(arguments);
    RequireConsent(arguments, console);
    FolderFiles files(ProgramFolderOf(arguments, console));
    const Text copy = CopyOf(named, files);
    CatalogueStore store;
    BeforeAnyChange([&] {
        OpenCatalogueOf(files, store, CataloguePlaceOf(arguments, CatalogueUse::Writing), console);
        PrepareForWriting(store, files, console, copy);
        const CatalogueSize size = SizeOfCopy(files, copy);
        if (!arguments.Has(kYesOption.name)) Ask(copy, size, store, console);
        const Text backup = CopyCatalogue(store, files, copy);
        RunRestore(store, files, copy);
        Print(backup, copy, size, format, console);
    });
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueRestore() {
    return {u"catalogue restore",
            u"[备份] [选项]",
            u"由备份恢复目录中的仪表和参数，先备份现在的目录",
            {kFolderOption, kServerOption, kServerSettingsOption, kYesOption, kReportFormatOption},
            Restore,
            uR"(不给出备份时用程序文件夹中最新的一个。只恢复仪表和参数，目录中其他内容不变。
)"};
}

}  // namespace commtest
