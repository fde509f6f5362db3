#include <map>

#include "catalogue/parameter_list_import.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/catalogue_copy.h"
#include "cli/consent.h"
#include "cli/list_export.h"
#include "cli/list_look.h"
#include "cli/list_words.h"
#include "cli/printable_text.h"
#include "cli/table.h"
#include "commands/toolbar_commands.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kShownFindings = 20;

// What a list holds and what is wrong with it, told in front of the question.
class Detail {
  public:
    void Add(const ListFinding& finding) {
        ++counts_[finding.kind];
        if (first_.size() < kShownFindings) first_.push_back(finding);
    }

    void Tell(const ListContent& content, const QString& file, Console& console) const {
        console.Tell(file + u": "_s + WordsOnSize(content.instruments, content.parameters) +
                     u"，%1 处问题"_s.arg(content.findings));
        QStringList counts;
        for (const auto& [kind, count] : counts_)
            counts += u"%1 %2 处"_s.arg(QStringView(HeadOf(kind)), QString::number(count));
        if (!counts.isEmpty()) console.Tell(u"其中 "_s + counts.join(u"，"_s));
        for (const ListFinding& finding : first_) console.Tell(LineOn(finding, file));
        if (static_cast<std::size_t>(content.findings) > first_.size()) {
            console.Tell(u"还有 %1 处，请看 commtest-cli catalogue check"_s.arg(
                static_cast<std::size_t>(content.findings) - first_.size()));
        }
    }

  private:
    std::map<ListFinding::Kind, int> counts_;
    std::vector<ListFinding> first_;
};

// While the question stands, Ctrl-C ends the program.
ListContent LookWithProgress(const ListSource& list, Store& store, Detail& detail, Console& console) {
    ListProgress progress(console);
    return LookThrough(
        list, store, [&detail](const ListFinding& finding) { detail.Add(finding); }, progress);
}

void Ask(const ListSource& list, Store& store, Console& console) {
    Detail detail;
    const ListContent content = LookWithProgress(list, store, detail, console);
    detail.Tell(content, list.Path(), console);
    if (content.endsImport) throw Problem(ExitStatus::NoAccess, u"这个参数表不能导入"_s);
    const CatalogueSize size = InstrumentCatalogue(store).Size();
    console.Tell(u"目录现有 "_s + WordsOnSize(size.instruments, size.parameters) +
                 u"，先备份，再全部由参数表取代"_s);
    AskForConsent(console, kImportQuestion);
}

// What an import has left.
struct Imported {
    int instruments = 0;
    int parameters = 0;
    Text message;
    std::vector<Text> badParameters;
};

Imported RunImport(const ListSource& list, Store& store, ListProgress& progress) {
    auto bytes = list.Open();
    int line = 0;
    try {
        ParameterListImport import(store, std::move(bytes));
        const auto place = [&import] {
            return ListPlace{import.Parameters(), import.Instruments(), import.BytesRead(), import.Size()};
        };
        const auto step = [&import, &line] {
            try {
                return import.Step();
            } catch (const RuntimeError&) {
                line = import.Line();
                throw;
            }
        };
        if (!progress.Run(step, place)) throw Problem(ExitStatus::NoAccess, u"已中断，没有导入"_s);
        line = import.Line();
        import.Commit();
        return {import.Instruments(), import.Parameters(), import.Message(), import.BadParameters()};
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, WordsOnListError(error, list.Path(), line));
    }
}

// Tells of an import step by step, or all at its end as JSON.
class Report {
  public:
    Report(Format format, Console& console) : isJson_(format == Format::Json), console_(console) {
        json_.BeginObject();
    }

    void AddCopy(const Text& name) {
        json_.PutText(u"backup", name);
        Print(u"目录已备份到 "_s + QString::fromStdU16String(name));
    }

    void AddImport(const Imported& imported, const QString& file) {
        json_.PutKey(u"badParameters");
        json_.BeginArray();
        for (const Text& name : imported.badParameters) json_.PutText(name);
        json_.EndArray();
        json_.PutText(u"file", file.toStdU16String());
        json_.PutNumber(u"instruments", imported.instruments);
        json_.PutText(u"message", imported.message);
        json_.PutNumber(u"parameters", imported.parameters);
        Print(u"已导入 "_s + WordsOnSize(imported.instruments, imported.parameters));
        if (imported.badParameters.empty()) {
            Print(QString::fromStdU16String(imported.message));
        } else {
            console_.Tell(imported.message);
        }
    }

    void AddExport(const ExportedList& list, const ListOutput& output) {
        json_.PutKey(u"written");
        PutExport(list, output, json_);
        Print(u"目录"_s + output.Words());
        TellLossyRows(list.lossyRows, console_);
    }

    void Finish() {
        json_.EndObject();
        if (isJson_) console_.Print(json_.Take());
    }

  private:
    void Print(const QString& line) {
        if (!isJson_) console_.Print(PrintableLine(line.toStdU16String()) + "\n");
    }

    bool isJson_;
    Console& console_;
    JsonWriter json_{kJsonInLines};
};

// The import stands whatever becomes of the list that is written behind it; true if that is good.
bool WriteListBehind(Store& store, FolderFiles& files, Report& report, ListProgress& progress,
                     Console& console) {
    try {
        ListOutput output(OutputKind::ParameterList, {}, files, console);
        const ExportedList list = ExportList(store, output, {}, progress);
        report.AddExport(list, output);
        return list.lossyRows.empty();
    } catch (const Problem& problem) {
        console.Tell(problem.Line() + u"。导入已经完成，可以用 commtest-cli catalogue export 再写一次"_s);
        return false;
    }
}

ExitStatus Import(const Arguments& arguments, Console& console) {
    const auto named = arguments.OnePositionalAtMost();
    const Format format = ReportFormatOf(arguments);
    FolderFiles files(ProgramFolderOf(arguments, console));
    const ListSource list(files, named, kListFileName);
    CatalogueStore store;
    BeforeAnyChange([&] { list.Open(); });
    RequireConsent(arguments, console);
    BeforeAnyChange([&] {
        OpenCatalogueOf(files, store, CataloguePlaceOf(arguments, CatalogueUse::Writing), console);
        PrepareForWriting(store, files, console);
        if (!arguments.Has(kYesOption.name)) Ask(list, store, console);
    });
    Report report(format, console);
    ListProgress progress(console);
    const Imported imported = BeforeAnyChange([&] {
        report.AddCopy(CopyCatalogue(store, files));
        return RunImport(list, store, progress);
    });
    report.AddImport(imported, list.Path());
    const bool isWritten = WriteListBehind(store, files, report, progress, console);
    report.Finish();
    return imported.badParameters.empty() && isWritten ? ExitStatus::Good : ExitStatus::BadRows;
}

constexpr QStringView kNotes =
    uR"(不给出文件时导入程序文件夹中的 TQ.ini。目录中的仪表和参数全部被取代，之前先备份到程序文件夹，
保留最近三个备份，用 commtest-cli catalogue restore 恢复。导入之后把目录追加到 OutTQ.ini。
参数表中没有仪表时目录被清空。导入没有做完时目录保持原样，退出状态为 3；有错误的参数时为 1。
)";

}  // namespace

Verb CatalogueImport() {
    return {u"catalogue import",
            u"[文件] [选项]",
            u"由参数表重建目录中的仪表和参数，先备份",
            {kFolderOption, kServerOption, kServerSettingsOption, kYesOption, kReportFormatOption},
            Import,
            kNotes};
}

}  // namespace commtest
