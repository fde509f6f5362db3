#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/json_text.h"
#include "cli/list_look.h"
#include "cli/list_words.h"
#include "cli/printable_text.h"
#include "cli/table.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// Findings as they come, and at the end what the file holds.
class Report {
  public:
    Report(const QString& file, Format format, Console& console)
        : file_(file), isJson_(format == Format::Json), console_(console) {
        if (!isJson_) return;
        json_.BeginObject();
        json_.PutText(u"file", file_.toStdU16String());
        json_.PutKey(u"findings");
        json_.BeginArray();
    }

    void Add(const ListFinding& finding) {
        if (isJson_) {
            Put(finding);
            console_.Print(json_.Take());
        } else {
            console_.Print(PrintableLine(LineOn(finding, file_).toStdU16String()) + "\n");
        }
    }

    void Finish(const ListContent& content) {
        if (!isJson_) {
            return console_.Print(WordsOnSize(content.instruments, content.parameters) +
                                  u"，%1 处问题\n"_s.arg(content.findings));
        }
        json_.EndArray();
        json_.PutNumber(u"instruments", content.instruments);
        json_.PutNumber(u"parameters", content.parameters);
        json_.PutYesNo(u"stopsImport", content.endsImport);
        json_.EndObject();
        console_.Print(json_.Take());
    }

  private:
    void Put(const ListFinding& finding) {
        json_.BeginObject();
        json_.PutText(u"kind", KeyOf(finding.kind));
        json_.PutNumber(u"line", finding.line);
        json_.PutText(u"name", finding.name);
        json_.PutText(u"other", finding.other);
        json_.PutText(u"outcome", Text(OutcomeOf(finding.kind)));
        json_.PutText(u"value", finding.value);
        json_.PutText(u"what", WordsOn(finding).toStdU16String());
        json_.EndObject();
    }

    QString file_;
    bool isJson_;
    Console& console_;
    JsonWriter json_{kJsonInLines};
};

ExitStatus Check(const Arguments& arguments, Console& console) {
    const auto named = arguments.OnePositionalAtMost();
    const Format format = ReportFormatOf(arguments);
    const FolderFiles files(ProgramFolderOf(arguments, console));
    const ListSource list(files, named, kListFileName);
    CatalogueStore store;
    OpenCatalogueOf(files, store, CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    Report report(list.Path(), format, console);
    ListProgress progress(console);
    const ListContent content = LookThrough(
        list, store, [&report](const ListFinding& finding) { report.Add(finding); }, progress);
    report.Finish(content);
    return content.findings == 0 ? ExitStatus::Good : ExitStatus::BadRows;
}

}  // namespace

Verb CatalogueCheck() {
    return {u"catalogue check",
            u"[文件] [选项]",
            u"检查参数表: 每处问题在第几行，导入时会怎样；目录不改动",
            {kFolderOption, kServerOption, kServerSettingsOption, kReportFormatOption},
            Check,
            uR"(不给出文件时检查程序文件夹中的 TQ.ini。有问题时退出状态为 1。
)"};
}

}  // namespace commtest
