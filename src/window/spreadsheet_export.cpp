#include "window/spreadsheet_export.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>

#include "host/dialogs.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host_qt/words.h"
#include "window/pieces.h"
#include "window/spreadsheet_summary.h"
#include "window/spreadsheet_words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kShortExport = 500;  // milliseconds, which need no band

}  // namespace

SpreadsheetExport::SpreadsheetExport(const ListRoom& room)
    : QObject(&room.window),
      Opener([](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }),
      room_(room) {
    connect(&room.band, &WorkBand::CancelWanted, this, &SpreadsheetExport::AskToCancel);
    room.binder.AtEachLook([this] { ShowProgress(); });
}

SpreadsheetExport::~SpreadsheetExport() = default;

QString SpreadsheetExport::Folder() { return ToQt(Form().outside.files.PathOf(Text(kRecordFolderName))); }

// --- The tables ---

void SpreadsheetExport::ExportCurrent() {
    if (IsUnderWay()) return;
    std::vector<InstrumentSheet> sheets;
    room_.binder.Event([&] { sheets.push_back(LoadInstrumentSheet(Form())); });
    isOfAll_ = false;
    if (!sheets.empty()) Begin(std::move(sheets));
}

void SpreadsheetExport::ExportAll() {
    if (IsUnderWay()) return;
    std::vector<InstrumentSheet> sheets;
    room_.binder.Event([&] { sheets = CollectInstrumentSheets(Form()); });
    isOfAll_ = true;
    if (sheets.empty()) {
        room_.notes.Say(Words::tr("这个协议没有仪表，没有可导出的参数地址表"));
    } else {
        Begin(std::move(sheets));
    }
}

void SpreadsheetExport::Retry() {
    std::vector<InstrumentSheet> sheets;
    room_.binder.Event([&] { sheets = CollectInstrumentSheets(Form()); });
    std::erase_if(sheets,
                  [this](const InstrumentSheet& sheet) { return !failed_.contains(sheet.instrument); });
    if (!sheets.empty()) Begin(std::move(sheets));
}

// --- The spreadsheets ---

void SpreadsheetExport::Begin(std::vector<InstrumentSheet> sheets) {
    if (engine_ == nullptr) return Refuse(WordsOn({.kind = SpreadsheetResult::Kind::NoEngine}));
    const Text templatePath = Form().outside.files.PathOf(Text(kSpreadsheetTemplateName));
    run_ = std::make_unique<SpreadsheetRun>(
        *engine_, SpreadsheetRun::Places{templatePath, Folder().toStdU16String()}, std::move(sheets));
    run_->Changed = [this] { Follow(); };
    time_.start();
    if (isOfAll_) ShowBand();
    run_->Start();
}

void SpreadsheetExport::Follow() {
    if (run_->IsOver() && !isAsking_) End();
}

void SpreadsheetExport::End() {
    room_.band.End();
    room_.wait.End();
    failed_.clear();
    for (const SpreadsheetRun::Entry& entry : run_->Ended()) {
        if (!entry.IsWritten()) failed_.insert(entry.instrument);
    }
    if (run_->Hindrance()) {
        Refuse(WordsOn(*run_->Hindrance()));
    } else {
        isOfAll_ ? Summarise() : EndCurrent();
    }
}

void SpreadsheetExport::EndCurrent() {
    if (run_->WasCancelled()) return room_.notes.Say(Words::tr("导出已取消，原文件未动"));
    const SpreadsheetRun::Entry& entry = run_->Ended().front();
    if (!entry.IsWritten()) return Refuse(WordsOn(entry));
    const bool isShown = Opener(ToQt(entry.path));
    if (!isShown) Opener(Folder());
    room_.notes.Ask((isShown ? Words::tr("已导出 %1") : Words::tr("已导出 %1，没有可以打开它的程序"))
                        .arg(NameOfResult(entry)),
                    Glyph::Tick, Words::tr("打开文件夹"), [this] { OpenFolder(); });
}

void SpreadsheetExport::Summarise() {
    summary_ = new SpreadsheetSummary(*run_, QFileInfo(Folder()).fileName(), time_.elapsed(), room_.theme,
                                      &room_.window);
    connect(summary_, &SpreadsheetSummary::FolderWanted, this, &SpreadsheetExport::OpenFolder);
    connect(summary_, &SpreadsheetSummary::RetryWanted, this, [this] {
        summary_->accept();
        Retry();
    });
    summary_->open();
}

void SpreadsheetExport::Refuse(const QString& reason) {
    Form().outside.dialogs.ShowMessage(
        (isOfAll_ ? Words::tr("参数地址表没有导出！") : Words::tr("当前参数地址表没有导出！"))
            .toStdU16String(),
        reason.toStdU16String());
}

void SpreadsheetExport::OpenFolder() {
    if (!Opener(Folder())) room_.notes.Say(Words::tr("结果在 %1").arg(Folder()));
}

// --- Its end ahead of time ---

// The spreadsheets go on while the user is asked; the last one may be written by then.
bool SpreadsheetExport::AskAndCancel(const QString& question) {
    isAsking_ = true;
    const bool isWanted = Form().outside.dialogs.AskYesNo(question.toStdU16String());
    isAsking_ = false;
    if (isWanted) run_->Cancel();
    return isWanted;
}

void SpreadsheetExport::AskToCancel() {
    if (!IsUnderWay() || isAsking_) return;
    AskAndCancel(Words::tr("确定要取消导出吗？已写好的文件保留。"));
    Follow();
}

bool SpreadsheetExport::MayLeave() {
    if (!IsUnderWay()) return true;
    const bool leaves =
        AskAndCancel(Words::tr("正在导出参数地址表，现在退出则其余的不再导出。确定要退出吗？"));
    if (!leaves) Follow();
    return leaves;
}

// --- How far it has come ---

void SpreadsheetExport::ShowBand() {
    room_.wait.Begin(Words::tr("正在导出参数地址表，完成或取消后可用"));
    room_.band.Begin({Words::tr("导出进度"), Words::tr("正在导出")});
    if (isOfAll_) room_.band.setFocus();
}

void SpreadsheetExport::ShowProgress() {
    if (!IsUnderWay() || (!isOfAll_ && time_.elapsed() < kShortExport)) return;
    if (room_.band.isHidden()) ShowBand();
    const auto ended = static_cast<qint64>(run_->Ended().size());
    const auto written = static_cast<qint64>(run_->WrittenCount());
    const auto total = static_cast<qint64>(run_->Total());
    const double share = static_cast<double>(ended) / static_cast<double>(total);
    room_.band.Show(share, {{.caption = ToQt(SpreadsheetFileName(run_->LastBegun())), .isCaptionAlone = true},
                            {Words::tr("已写"), GroupedNumber(written) + u" / "_s + GroupedNumber(total)},
                            {Words::tr("失败"), GroupedNumber(ended - written)},
                            {Words::tr("剩余约"), TimeLeft(share, time_.elapsed())}});
}

}  // namespace commtest
