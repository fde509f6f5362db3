#include <algorithm>
#include <set>

#include "catalogue/instrument_catalogue.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/list_export.h"
#include "cli/list_words.h"
#include "cli/table.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// Instruments without parameters, or of a protocol that the catalogue does not list, are known, too.
std::vector<Text> KnownInstruments(Store& store) {
    const StoreRows rows = InstrumentCatalogue(store).AllInstruments();
    const auto column = static_cast<std::size_t>(rows.ColumnOf(u"仪表名称"));
    std::vector<Text> names;
    for (std::size_t row = 0; row < rows.rows.size(); ++row) names.push_back(Trim(rows.At(row, column)));
    return names;
}

// Nothing where all are wanted.
std::function<bool(const Text&)> WantedOf(const Arguments& arguments, Store& store) {
    if (!arguments.Has(u"instrument")) return {};
    const std::vector<Text> known = KnownInstruments(store);
    std::set<Text> wanted;
    for (const QString& name : arguments.Values(u"instrument")) {
        wanted.insert(InstrumentMeant(Trim(name.toStdU16String()), known));
    }
    return [wanted](const Text& name) { return wanted.contains(Trim(name)); };
}

void Print(const ExportedList& list, const ListOutput& output, Format format, Console& console) {
    if (format == Format::Json) {
        JsonWriter json(kJsonInLines);
        PutExport(list, output, json);
        console.Print(json.Take());
    } else if (!output.IsResults()) {
        console.Print(WordsOnSize(list.instruments, list.parameters) + u'，' + output.Words() + u'\n');
    }
}

ExitStatus Export(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const Format format = ReportFormatOf(arguments);
    const auto named = OutputNamed(arguments);
    if (named == u"-"_s && format == Format::Json) {
        throw arguments.BadUsage(u"选项 --output - 和 --format json 只能用一个"_s);
    }
    FolderFiles files(ProgramFolderOf(arguments, console));
    CatalogueStore store;
    OpenCatalogueOf(files, store, CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    const auto wanted = WantedOf(arguments, store);
    ListProgress progress(console);
    ListOutput output(OutputKind::ParameterList, named, files, console);
    const ExportedList list = ExportList(store, output, wanted, progress);
    Print(list, output, format, console);
    TellLossyRows(list.lossyRows, console);
    return list.lossyRows.empty() ? ExitStatus::Good : ExitStatus::BadRows;
}

}  // namespace

Verb CatalogueExport() {
    return {u"catalogue export",
            u"[选项]",
            u"把目录中的仪表和参数写成参数表，默认追加到 OutTQ.ini",
            {kFolderOption,
             kServerOption,
             kServerSettingsOption,
             kListOutputOption,
             {u"instrument", u"名称", u"只导出这种仪表；可以给出多次", {}, true},
             kReportFormatOption},
            Export,
            uR"(参数表是代码页 936，行尾 CR LF。有这个代码页中没有的字符时写成 ?，退出状态为 1。
)"};
}

}  // namespace commtest
