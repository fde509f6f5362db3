#include <QDir>
#include <QEventLoop>

#include "app/spreadsheet_words.h"
#include "catalogue/spreadsheet_run.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/interrupt.h"
#include "cli/sheet_source.h"
#include "host/file_names.h"
#include "host_qt/qt_spreadsheet.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kAll = u"all";
constexpr QStringView kInstrument = u"instrument";
constexpr QStringView kOutput = u"output";

std::vector<InstrumentSheet> WantedSheets(const Arguments& arguments, SheetSource& source) {
    if (arguments.Has(kAll)) return source.All();
    std::vector<InstrumentSheet> sheets;
    for (const QString& name : arguments.Values(kInstrument)) {
        sheets.push_back(source.Of(Trim(name.toStdU16String())));
    }
    return sheets;
}

void RequireOneChoice(const Arguments& arguments) {
    arguments.Positional(0, u"");
    if (arguments.Has(kAll) == arguments.Has(kInstrument)) {
        throw arguments.BadUsage(u"请给出 --instrument 或 --all 中的一个"_s);
    }
}

Text FolderOfResults(const Arguments& arguments, const FolderFiles& files) {
    if (!arguments.Has(kOutput)) return files.PathOf(Text(kRecordFolderName));
    const QString folder = QDir().absoluteFilePath(arguments.Value(kOutput));
    if (!QDir(folder).exists()) {
        throw Problem(ExitStatus::NoAccess, u"没有文件夹 %1，请先建立"_s.arg(folder));
    }
    return folder.toStdU16String();
}

Text WordsOnProgress(const SpreadsheetRun& run) {
    Text words = WholeText(static_cast<std::int64_t>(run.Ended().size()));
    words.append(u" / ").append(WholeText(static_cast<std::int64_t>(run.Total())));
    return words.append(u"，").append(run.LastBegun());
}

// Until the run is over, or the user ends it.
void RunToItsEnd(SpreadsheetRun& run, Console& console) {
    QEventLoop loop;
    const Interrupt interrupt([&] {
        run.Cancel();
        loop.quit();
    });
    run.Changed = [&] {
        console.ShowLive(WordsOnProgress(run));
        if (run.IsOver()) loop.quit();
    };
    console.ShowLive(WordsOnProgress(run));
    run.Start();
    if (!run.IsOver()) loop.exec();
    console.HideLive();
}

QString WhyNot(const SpreadsheetRun::Entry& entry) {
    return QString::fromStdU16String(entry.failure ? entry.failure->StandardMessage()
                                                   : WordsOnSpreadsheet(entry.result));
}

QString Summary(const SpreadsheetRun& run, const Text& folder) {
    const QString written =
        u"%1 个表格已写入 %2"_s.arg(run.WrittenCount()).arg(QString::fromStdU16String(folder));
    const auto failed = run.Ended().size() - run.WrittenCount();
    return failed == 0 ? written : written + u"，%1 个没有写成"_s.arg(failed);
}

ExitStatus Tell(const SpreadsheetRun& run, const Text& folder, Console& console) {
    for (const SpreadsheetRun::Entry& entry : run.Ended()) {
        if (entry.IsWritten()) continue;
        if (entry.result.IsForAll()) throw Problem(ExitStatus::NoAccess, WhyNot(entry));
        const QString name = QString::fromStdU16String(entry.instrument);
        console.Tell(u"仪表 \"%1\" 没有写成: %2"_s.arg(name, WhyNot(entry)));
    }
    console.Print(Summary(run, folder) + u'\n');
    if (run.WasCancelled()) {
        const auto left = run.Total() - run.Ended().size();
        throw Problem(ExitStatus::NoAccess, u"已中断，还有 %1 个没有写"_s.arg(left));
    }
    return run.WrittenCount() == run.Total() ? ExitStatus::Good : ExitStatus::BadRows;
}

ExitStatus Write(const Arguments& arguments, Console& console) {
    RequireOneChoice(arguments);
    FolderFiles files(ProgramFolderOf(arguments, console));
    const Text folder = FolderOfResults(arguments, files);
    SheetSource source(files, CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    QtSpreadsheetEngine engine;
    SpreadsheetRun run(engine, {files.PathOf(Text(kSpreadsheetTemplateName)), folder},
                       WantedSheets(arguments, source));
    RunToItsEnd(run, console);
    return Tell(run, folder, console);
}

}  // namespace

Verb CatalogueSpreadsheet() {
    return {u"catalogue spreadsheet",
            u"--instrument 名称 | --all [选项]",
            u"把仪表的参数地址表写成表格 (.xls)，默认写入程序文件夹中的 自动保存通讯记录",
            {kFolderOption,
             kServerOption,
             kServerSettingsOption,
             {kInstrument, u"名称", u"写这种仪表的表格；可以给出多次", {}, true},
             {kAll, u"", u"写所有仪表的表格"},
             {kOutput, u"文件夹", u"写入这个文件夹"}},
            Write,
            uR"(表格由程序文件夹中的模板 参数地址表.xls 的工作表 参数表 填成，文件名是仪表名称 (/ 写成 -) 加
参数地址表.xls，原有的文件被取代。需要 gnumeric (ssconvert) 或 LibreOffice (soffice)。有的没有写成时退出状态为 1。
)"};
}

}  // namespace commtest
