#include <QMap>

#include "catalogue/recordings.h"
#include "cli/catalogue_access.h"
#include "cli/output_file.h"
#include "cli/recording_choice.h"
#include "cli/recording_transfer.h"
#include "cli/suggestion.h"
#include "cli/table.h"
#include "cli/verb.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kActions = u"list、show、rename、note、delete、undelete、export 或 import";

Text InstrumentOf(const Arguments& arguments) { return arguments.Value(u"instrument").toStdU16String(); }

std::vector<RecordingSummary> RequiredSummaries(const Recordings& recordings, const Text& instrument,
                                                const Text& note) {
    std::vector<RecordingSummary> found = recordings.Of(instrument, note);
    if (found.empty()) throw NoRecording(instrument, note);
    return found;
}

Table TableOf(const std::vector<RecordingSummary>& summaries) {
    Table table;
    table.columns = {{u"instrument", u"仪表名称"},
                     {u"note", u"说明"},
                     {u"protocol", u"协议"},
                     {u"firstDate", u"首日"},
                     {u"lastDate", u"末日"},
                     {u"exchanges", u"条数", CellKind::Number},
                     {u"deleted", u"已删除", CellKind::Number}};
    for (const RecordingSummary& one : summaries) {
        table.rows.push_back({one.instrument, one.note, one.protocol, one.firstDay, one.lastDay,
                              WholeText(one.exchanges), WholeText(one.deleted)});
    }
    return table;
}

ExitStatus List(const Arguments& arguments, Recordings& recordings, Console& console) {
    console.Print(Printed(TableOf(recordings.All()), FormatOf(arguments)));
    return ExitStatus::Good;
}

ExitStatus Show(const Arguments& arguments, Recordings& recordings, Console& console) {
    const Text instrument = InstrumentOf(arguments);
    const Text note = NoteOf(arguments);
    RequiredSummaries(recordings, instrument, note);
    Table table;
    table.columns = {{u"date", u"采集日期"},
                     {u"row", u"行", CellKind::Number},
                     {u"request", u"指令"},
                     {u"reply", u"回送"},
                     {u"valid", u"有效", CellKind::YesNo}};
    for (const RecordedExchange& one : recordings.Exchanges(instrument, note)) {
        table.rows.push_back(
            {one.day, one.row, Trim(one.request), Trim(one.reply), one.isValid ? u"是" : u"否"});
    }
    console.Print(Printed(table, FormatOf(arguments)));
    return ExitStatus::Good;
}

// What a change would touch, each instrument named, and the user's yes to it.
bool IsWanted(const std::vector<RecordingSummary>& touched, const Text& change, const Arguments& arguments,
              Console& console) {
    for (const RecordingSummary& one : touched) {
        console.Tell(u"仪表 \"" + one.instrument + u"\"、说明 \"" + one.note + u"\": " +
                     WholeText(one.exchanges) + u" 条");
    }
    return IsConfirmed(change, arguments, console);
}

ExitStatus Rename(const Arguments& arguments, Recordings& recordings, Console& console) {
    const Text instrument = InstrumentOf(arguments);
    const Text newName = arguments.Value(u"to").toStdU16String();
    const std::vector<RecordingSummary> touched = recordings.OfInstrument(instrument);
    if (touched.empty()) throw NoRecording(instrument, u"*");
    if (IsWanted(touched, u"仪表名称改为 \"" + newName + u"\"", arguments, console)) {
        recordings.Rename(instrument, newName);
        return ExitStatus::Good;
    }
    return ExitStatus::BadUsage;
}

ExitStatus ChangeNote(const Arguments& arguments, Recordings& recordings, Console& console) {
    const Text note = NoteOf(arguments);
    const Text newNote = NoteOf(arguments, u"to");
    const std::vector<RecordingSummary> touched = recordings.OfNote(note);
    if (touched.empty()) throw NoRecording(u"*", note);
    if (IsWanted(touched, u"说明改为 \"" + newNote + u"\"", arguments, console)) {
        recordings.ChangeNote(note, newNote);
        return ExitStatus::Good;
    }
    return ExitStatus::BadUsage;
}

ExitStatus SetValid(const Arguments& arguments, Recordings& recordings, Console& console, bool isValid) {
    const Text instrument = InstrumentOf(arguments);
    const Text note = NoteOf(arguments);
    std::int64_t changed = 0;
    for (const RecordingSummary& one : RequiredSummaries(recordings, instrument, note)) {
        changed += isValid ? one.deleted : one.exchanges - one.deleted;
    }
    recordings.SetValid(instrument, note, isValid);
    const QString line = isValid ? u"已恢复 %1 条\n"_s : u"已删除 %1 条，可以用 undelete 恢复\n"_s;
    console.Print(line.arg(changed));
    return ExitStatus::Good;
}

ExitStatus Export(const QString& file, const Arguments& arguments, Recordings& recordings, Console& console) {
    const Text instrument = InstrumentOf(arguments);
    const Text note = NoteOf(arguments);
    RequiredSummaries(recordings, instrument, note);
    RequireOwnOutput({file, OutputKind::Recording, ProgramFolderOf(arguments, console)});
    const std::size_t count = ExportRecording(file, recordings.Exchanges(instrument, note));
    console.Print(u"已导出 %1 条到 %2\n"_s.arg(count).arg(file));
    return ExitStatus::Good;
}

ExitStatus RunAction(const QStringList& words, const Arguments& arguments, Recordings& recordings,
                     Console& console) {
    const QString& action = words[0];
    if (action == u"list") return List(arguments, recordings, console);
    if (action == u"show") return Show(arguments, recordings, console);
    if (action == u"rename") return Rename(arguments, recordings, console);
    if (action == u"note") return ChangeNote(arguments, recordings, console);
    if (action == u"delete") return SetValid(arguments, recordings, console, false);
    if (action == u"undelete") return SetValid(arguments, recordings, console, true);
    if (action == u"export") return Export(words[1], arguments, recordings, console);
    return ImportRecording(words[1], arguments, recordings, console);
}

// Judged before the catalogue is looked for, which a first call makes.
void RequireUsage(const QString& action, const Arguments& arguments) {
    static const QMap<QString, QStringList> kNeeded = {{u"list"_s, {}},
                                                       {u"show"_s, {u"instrument"_s, u"note"_s}},
                                                       {u"rename"_s, {u"instrument"_s, u"to"_s}},
                                                       {u"note"_s, {u"note"_s, u"to"_s}},
                                                       {u"delete"_s, {u"instrument"_s, u"note"_s}},
                                                       {u"undelete"_s, {u"instrument"_s, u"note"_s}},
                                                       {u"export"_s, {u"instrument"_s, u"note"_s}},
                                                       {u"import"_s, {}}};
    const auto needed = kNeeded.constFind(action);
    if (needed == kNeeded.constEnd()) {
        const QString meant = DidYouMean(action, kNeeded.keys());
        throw arguments.BadUsage(u"没有动作 \"%1\""_s.arg(action) +
                                 (meant.isEmpty() ? u"，应为 %1"_s.arg(kActions) : meant));
    }
    QStringList known = *needed + QStringList({u"folder"_s, u"server"_s, u"server-settings"_s});
    if (action == u"list" || action == u"show") known += u"format"_s;
    if (action == u"rename" || action == u"note" || action == u"import") known += u"yes"_s;
    arguments.RequireKnownToAction(u"recordings "_s + action, known);
    for (const QString& option : *needed) arguments.Value(option);
    FormatOf(arguments);
}

CatalogueUse UseOf(const QString& action) {
    const bool isReading = action == u"list" || action == u"show" || action == u"export";
    return isReading ? CatalogueUse::Reading : CatalogueUse::Writing;
}

ExitStatus RunRecordings(const Arguments& arguments, Console& console) {
    const QString action = arguments.FirstPositional(kActions);
    const bool takesFile = action == u"export" || action == u"import";
    const QStringList words = arguments.Positional(takesFile ? 2 : 1, u"文件");
    RequireUsage(action, arguments);
    CatalogueStore store;
    FolderFiles files(ProgramFolderOf(arguments, console));
    OpenCatalogueOf(files, store, CataloguePlaceOf(arguments, UseOf(action)), console);
    if (UseOf(action) == CatalogueUse::Writing) PrepareForWriting(store, files, console);
    Recordings recordings(store);
    return RunAction(words, arguments, recordings, console);
}

}  // namespace

Verb RecordingsVerb() {
    return {u"recordings",
            u"list|show|rename|note|delete|undelete|export 文件|import 文件 [选项]",
            u"列出、查看、改名、删除、恢复、导出、导入演示数据",
            {kFolderOption,
             kServerOption,
             kServerSettingsOption,
             {u"instrument", u"名称", u"演示数据的仪表 (show、rename、delete、undelete、export)"},
             {u"note", u"说明", u"演示数据的说明，用大写 (show、note、delete、undelete、export)"},
             {u"to", u"名称", u"新的仪表名称 (rename) 或新的说明 (note)"},
             {u"yes", u"", u"不询问就更改或加入 (rename、note、import)"},
             kFormatOption},
            RunRecordings};
}

}  // namespace commtest
