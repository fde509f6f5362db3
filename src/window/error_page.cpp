#include "window/error_page.h"

#include <QPushButton>
#include <utility>

#include "host/clock.h"
#include "host/dialogs.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "session/records.h"
#include "session/wall_clock.h"
#include "window/bindings.h"
#include "window/empty_state.h"
#include "window/note_bar.h"
#include "window/pieces.h"
#include "window/record_view.h"
#include "window/statistics_label.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStripHeight = 37;
constexpr int kEmpty = 0;  // buttons of the error file
constexpr int kLoad = 1;

}  // namespace

ErrorPage::ErrorPage(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* parent)
    : QWidget(parent),
      binder_(binder),
      form_(binder.Form()),
      notes_(notes),
      contents_(new QStackedWidget(this)),
      empty_(new EmptyState(u"comm-events"_s, {}, theme, contents_)) {
    binder.Watch(form_.RunningState(), [this] {
        if (std::exchange(wasRunning_, form_.IsRunning()) && !form_.IsRunning()) isOutdated_ = true;
        LoadIfOutdated();
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeStrip(theme));
    contents_->addWidget(empty_);
    contents_->addWidget(MakeErrors(theme));
    layout->addWidget(contents_, 1);
    binder.AtEachLook([this] { Follow(); });
}

QWidget* ErrorPage::MakeErrors(const Theme& theme) {
    auto* page = new QWidget(contents_);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* errors = new RecordView(binder_, theme, form_.RichTextBox2, page);
    errors->setAccessibleName(Words::tr("错误记录"));
    layout->addWidget(errors);
    return page;
}

QWidget* ErrorPage::MakeStrip(const Theme& theme) {
    auto* strip = new QWidget(this);
    strip->setAutoFillBackground(true);
    strip->setFixedHeight(kStripHeight);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12, 4, 12, 4);
    line->setSpacing(8);
    line->addWidget(new StatisticsLabel(binder_, theme, 2, strip));
    line->addStretch();
    AddButton(*line, kEmpty, u"清除错误记录"_s, u"清除 ErrorComm.ini 文件里的记录"_s);
    AddButton(*line, kLoad, u"刷新错误记录"_s, u"重新装入 ErrorComm.ini 文件里的记录"_s);
    auto* layout = new QVBoxLayout(strip);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(line, 1);
    layout->addWidget(MakeHairline(Qt::Horizontal));
    return strip;
}

void ErrorPage::AddButton(QHBoxLayout& line, int index, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption, this);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, [this, index] {
        if (index == kEmpty) return EmptyFile();
        binder_.Event([this, index] { ClearFileCommand_Click(form_, index); });
    });
    BindPresence(binder_, form_.ClearFileCommand[static_cast<std::size_t>(index)], *button);
    line.addWidget(button);
}

// --- What the page shows ---

void ErrorPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    LoadIfOutdated();
}

// A file may be long: it is loaded for who looks at it.
void ErrorPage::LoadIfOutdated() {
    if (isOutdated_ && isVisible()) Load();
}

void ErrorPage::Load() {
    isOutdated_ = false;
    PassOverError([this] { ClearFileCommand_Click(form_, kLoad); });
}

void ErrorPage::Follow() {
    const State now = StateNow();
    if (std::exchange(state_, now) != now) Show(now);
}

ErrorPage::State ErrorPage::StateNow() const {
    if (form_.IsRunning()) return State::Running;
    if (!form_.RichTextBox2.Blocks().empty()) return State::Errors;
    return form_.ConAutoSave[1].Value() ? State::NoErrors : State::NotLogged;
}

void ErrorPage::Show(State state) {
    contents_->setCurrentIndex(state == State::Errors ? 1 : 0);
    switch (state) {
        case State::Running:
            return empty_->Say({Words::tr("通讯进行中，停止后可查看"), Words::tr("停止时自动刷新")});
        case State::NotLogged:
            return empty_->Say({Words::tr("未勾选 保存错误记录"),
                                Words::tr("勾选后，出错的应答记入 ErrorComm.ini"),
                                {{Words::tr("勾选"),
                                  [this] { binder_.Event([this] { form_.ConAutoSave[1].Set(true); }); }}}});
        case State::NoErrors:
            return empty_->Say({Words::tr("没有错误记录"), Words::tr("勾选 保存错误记录 以来没有出错")});
        default: return;
    }
}

// --- The file ---

void ErrorPage::EmptyFile() {
    binder_.Event([this] {
        Text keptAs;
        if (!MayEmptyFile(keptAs)) return;
        ClearFileCommand_Click(form_, kEmpty);
        Load();
        if (!keptAs.empty()) notes_.Say(Words::tr("ErrorComm.ini 已清空，原文件存为 %1").arg(ToQt(keptAs)));
    });
}

// An empty file needs no question.
bool ErrorPage::MayEmptyFile(Text& keptAs) {
    const Outside& outside = form_.outside;
    const Text name(kErrorFileName);
    if (!IsMet([&] { return !outside.files.ReadEnd(name).text.empty(); })) return true;
    const bool agreed = outside.dialogs.AskYesNo(
        Words::tr("确定要清空 ErrorComm.ini 吗？原文件会另存在同一文件夹里，保留最近三份。")
            .toStdU16String());
    if (agreed) keptAs = outside.files.KeepErrorFile(RecordDigits(outside.clock.Now()));
    return agreed;
}

}  // namespace commtest
