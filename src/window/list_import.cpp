#include "window/list_import.h"

#include <QFileInfo>
#include <utility>

#include "host/dialogs.h"
#include "host/file_names.h"
#include "host_qt/words.h"
#include "window/catalogue_restore.h"
#include "window/file_to_write.h"
#include "window/import_question.h"
#include "window/import_result.h"
#include "window/list_words.h"
#include "window/pieces.h"
#include "window/saved_findings.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kShortLook = 300;  // milliseconds, which need no band

const QString kList = ToQt(kListFileName);

}  // namespace

ListImport::ListImport(const ListRoom& room)
    : QObject(&room.window), room_(room), slices_(this), saving_(this) {
    connect(&room.band, &WorkBand::CancelWanted, this, &ListImport::AskToCancel);
    connect(&slices_, &Slices::Done, this, [this] { run_ ? EndImport() : EndLook(); });
    connect(&saving_, &Slices::Done, this, [this] {
        const QString problem = findings_->Problem();
        problem.isEmpty() ? room_.notes.Say(Words::tr("问题已存入文件"))
                          : room_.notes.Warn(Words::tr("问题没有存入文件：") + problem);
    });
    room.binder.AtEachLook([this] { ShowProgress(); });
}

ListImport::~ListImport() = default;

// --- The look through the list ---

void ListImport::Begin() {
    if (IsUnderWay() || question_ || result_) return;
    run_.reset();
    look_ = std::make_unique<ListLook>(Form().outside.store, Form().outside.files, Text(kListFileName),
                                       Form().switches);
    time_.start();
    slices_.Begin([this] { return look_->Step(); });
}

void ListImport::EndLook() {
    room_.band.End();
    const QString reason = WhyNotAtAll();
    if (reason.isEmpty()) {
        Ask();
    } else {
        Form().outside.dialogs.ShowMessage(Words::tr("不能导入，目录不变！").toStdU16String(),
                                           reason.toStdU16String());
    }
}

QString ListImport::WhyNotAtAll() const {
    if (look_->Problem()) return WordsOn(*look_->Problem(), kList);
    if (look_->Ending()) return WordsOn(*look_->Ending(), kList);
    return {};
}

// --- The question ---

void ListImport::Ask() {
    CatalogueSize former;
    room_.binder.Event([&] { former = InstrumentCatalogue(Form().outside.store).Size(); });
    const QFileInfo file(ToQt(Form().outside.files.PathOf(Text(kListFileName))));
    question_ = new ImportQuestion({.file = kList,
                                    .written = file.lastModified(),
                                    .instruments = look_->Instruments(),
                                    .parameters = look_->Parameters(),
                                    .formerInstruments = former.instruments,
                                    .formerParameters = former.parameters},
                                   *look_, room_.theme, &room_.window);
    connect(question_, &QDialog::accepted, this, &ListImport::Import);
    connect(question_, &ImportQuestion::SavingWanted, this, &ListImport::ChooseFileOfFindings);
    question_->open();
}

void ListImport::ChooseFileOfFindings() {
    const QString path =
        AskForFileToWrite(question_, Words::tr("保存全部问题"), Words::tr("TQ.ini 的问题.txt"),
                          Words::tr("文本文件 (*.txt)"), u"txt"_s);
    if (!path.isEmpty()) SaveFindings(path);
}

void ListImport::SaveFindings(const QString& path) {
    findings_ = std::make_unique<SavedFindings>(Form().outside.store, Form().outside.files, kList, path,
                                                Form().switches);
    saving_.Begin([this] { return findings_->Step(); });
}

// --- The import ---

void ListImport::Import() {
    const Outside& outside = Form().outside;
    saving_.End();
    isResultShown_ = false;
    run_ = std::make_unique<ImportRun>(outside.store, outside.files, outside.clock, Form().switches);
    room_.wait.Begin(Words::tr("正在导入参数地址表，完成或取消后可用"));
    Form().CaptureWaits = true;
    room_.band.Begin({Words::tr("导入进度"), Words::tr("正在导入 %1").arg(kList)});
    room_.band.setFocus();
    time_.start();
    slices_.Begin([this] {
        const bool goesOn = run_->Step();
        FollowImport();
        return goesOn;
    });
}

void ListImport::FollowImport() {
    if (!run_->IsImported() || std::exchange(isResultShown_, true)) return;
    ShowResult();
    room_.band.Begin({.name = Words::tr("导出进度"),
                      .title = Words::tr("正在导出 %1").arg(ToQt(kListCopyFileName)),
                      .canBeCancelled = false});
}

void ListImport::ShowResult() {
    result_ = new ImportResult(*run_, time_.elapsed(), room_.theme, &room_.window);
    connect(result_, &ImportResult::RestoreWanted, this, [this] {
        result_->accept();
        emit RestoreWanted();
    });
    result_->open();
}

void ListImport::EndImport() {
    Stop();
    Dialogs& dialogs = Form().outside.dialogs;
    if (run_->Problem()) {
        const QString reason = WordsOn(*run_->Problem(), kList);
        return dialogs.ShowMessage(Words::tr("没有导入，目录不变！").toStdU16String(),
                                   reason.toStdU16String());
    }
    if (!run_->IsImported()) return;
    room_.binder.Event([this] { LoadCatalogueAnew(Form()); });
    if (result_) {
        result_->ShowExport(*run_);
    } else if (run_->ExportProblem()) {
        room_.notes.Warn(Words::tr("OutTQ.ini 没有追加完：") +
                         WordsOn(*run_->ExportProblem(), ToQt(kListCopyFileName)));
    }
    if (!run_->ExportProblem()) {
        room_.notes.Ask(Words::tr("已导入 %1").arg(WordsOnSize(run_->Instruments(), run_->Parameters())),
                        Glyph::Tick, Words::tr("恢复原目录..."), [this] { emit RestoreWanted(); });
    }
}

// Nothing goes on while the user is asked.
void ListImport::AskToCancel() {
    if (!IsUnderWay()) return;
    if (!run_) {
        Stop();
        return;
    }
    slices_.Pause();
    if (!Form().outside.dialogs.AskYesNo(Words::tr("确定要取消导入吗？目录不变。").toStdU16String()))
        return slices_.GoOn();
    run_->Cancel();
    Stop();
    room_.notes.Say(Words::tr("导入已取消，目录不变"));
}

bool ListImport::MayLeave() {
    if (!IsUnderWay() || !run_) return true;
    slices_.Pause();
    const QString question =
        run_->IsImported() ? Words::tr("OutTQ.ini 还没有追加完，现在退出会缺少一部分。确定要退出吗？")
                           : Words::tr("正在导入参数地址表，现在退出则取消导入，目录不变。确定要退出吗？");
    const bool leaves = Form().outside.dialogs.AskYesNo(question.toStdU16String());
    if (!leaves) {
        slices_.GoOn();
        return false;
    }
    run_->Cancel();
    Stop();
    return true;
}

void ListImport::Stop() {
    slices_.End();
    room_.band.End();
    room_.wait.End();
    Form().CaptureWaits = false;
}

// --- How far it has come ---

void ListImport::ShowProgress() {
    if (!IsUnderWay()) return;
    if (!run_) {
        if (time_.elapsed() < kShortLook) return;
        if (room_.band.isHidden())
            room_.band.Begin({Words::tr("检查进度"), Words::tr("正在检查 %1").arg(kList)});
        room_.band.Show(look_->Share(), {{Words::tr("仪表"), GroupedNumber(look_->Instruments())},
                                         {Words::tr("参数"), GroupedNumber(look_->Parameters())},
                                         {Words::tr("剩余约"), TimeLeft(look_->Share(), time_.elapsed())}});
        return;
    }
    const auto ofAll = [](int count, int all) {
        return GroupedNumber(count) + u" / "_s + GroupedNumber(all);
    };
    if (run_->IsImported()) {
        const double share =
            run_->Parameters() == 0 ? 1 : static_cast<double>(run_->Exported()) / run_->Parameters();
        room_.band.Show(share, {{Words::tr("行"), ofAll(run_->Exported(), run_->Parameters())}});
        return;
    }
    room_.band.Show(run_->Share(), {{Words::tr("行"), ofAll(run_->Parameters(), look_->Parameters())},
                                    {Words::tr("仪表"), ofAll(run_->Instruments(), look_->Instruments())},
                                    {Words::tr("剩余约"), TimeLeft(run_->Share(), time_.elapsed())}});
}

}  // namespace commtest
