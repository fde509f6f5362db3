#include "window/communication_page.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "window/cell_editor.h"
#include "window/communication_strip.h"
#include "window/conversion_pane.h"
#include "window/editing_stop.h"
#include "window/empty_pages.h"
#include "window/first_steps.h"
#include "window/grid_view.h"
#include "window/hit_list.h"
#include "window/operation_message.h"
#include "window/record_view.h"
#include "window/recording_messages.h"
#include "window/side_pane.h"
#include "window/statistics_label.h"
#include "window/write_notes.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHandleWidth = 5;
constexpr int kNarrowestRecord = 320;
constexpr int kNarrowestConversion = 240;
constexpr int kLowestPane = 72;

// 58 to 42: the grid over the panes, the record beside the conversion.
void DivideAtFirst(QSplitter& splitter) {
    splitter.setHandleWidth(kHandleWidth);
    splitter.setChildrenCollapsible(false);
    splitter.setStretchFactor(0, 58);
    splitter.setStretchFactor(1, 42);
    splitter.setSizes({5800, 4200});
}

}  // namespace

CommunicationPage::CommunicationPage(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* parent)
    : QWidget(parent),
      writes_(binder.Form()),
      grid_(new GridView(binder, theme, 0, this)),
      editor_(new CellEditor(binder, theme, *grid_, writes_, this)),
      halves_(new QSplitter(Qt::Vertical, this)) {
    halves_->addWidget(grid_);
    halves_->addWidget(MakeLowerHalf(binder, theme));
    DivideAtFirst(*halves_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(halves_);
    grid_->ShowWrites(writes_);
    strip_->State().AddSource(StateLine::Rank::Editing,
                              [&form = binder.Form()] { return MessageOnEditing(form); });
    strip_->State().AddSource(StateLine::Rank::Replay, [&binder] { return ReplayMessage(binder); });
    strip_->State().ShowCounts([&form = binder.Form()] { return CaptureCounts(form); });
    FollowWrites(binder, writes_, *grid_, notes);
}

QWidget* CommunicationPage::MakeLowerHalf(Binder& binder, const Theme& theme) {
    auto* half = new QWidget;
    auto* layout = new QVBoxLayout(half);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    strip_ = new CommunicationStrip(binder, theme, half);
    strip_->State().AddSource(StateLine::Rank::Operation,
                              [&form = binder.Form()] { return OperationMessage(form); });
    layout->addWidget(strip_);

    panes_ = new QSplitter(Qt::Horizontal);
    record_ = MakeCommPane(binder, theme, 1, panes_);
    record_->setMinimumWidth(kNarrowestRecord);
    AddEmptyRecordState(binder, theme, *record_);
    side_ = new SidePane(binder, panes_);
    auto* conversion = new ConversionPane(binder, theme, side_);
    connect(grid_, &GridView::Explained, conversion, &ConversionPane::NameRow);
    side_->Hold(*conversion);
    side_->setMinimumWidth(kNarrowestConversion);
    panes_->addWidget(record_);
    panes_->addWidget(side_);
    panes_->setMinimumHeight(kLowestPane);
    DivideAtFirst(*panes_);
    layout->addWidget(panes_, 1);
    layout->addWidget(new StatisticsLine(binder, theme, half));
    return half;
}

FirstSteps& CommunicationPage::ShowFirstSteps(Binder& binder, const Theme& theme,
                                              std::function<bool()> stand) {
    steps_ = new FirstSteps(binder, theme, panes_->parentWidget());
    auto* lower = static_cast<QVBoxLayout*>(panes_->parentWidget()->layout());
    lower->insertWidget(lower->indexOf(panes_), steps_, 1);
    QWidget* former = strip_->findChildren<QPushButton*>().back();
    for (QPushButton* button : steps_->findChildren<QPushButton*>()) {
        setTabOrder(former, button);
        former = button;
    }
    const auto follow = [this, stand = std::move(stand)] {
        const bool stands = stand();
        steps_->setVisible(stands);
        panes_->setVisible(!stands);
        if (stands) steps_->Follow();
    };
    follow();
    binder.AtEachLook(follow);
    return *steps_;
}

QWidget& CommunicationPage::AreaUnderStrip() {
    if (steps_ != nullptr && !steps_->isHidden()) return *steps_->findChild<QPushButton*>();
    return *record_;
}

void CommunicationPage::ShowHits(HitList& hits) {
    side_->Hold(hits);
    hits.FollowInTabOrder(*record_);
}

void CommunicationPage::FocusCellEditor() { editor_->TakeFocus(); }

void CommunicationPage::SaveState(QSettings& settings) const {
    settings.setValue(u"GridSplitter"_s, halves_->saveState());
    settings.setValue(u"PaneSplitter"_s, panes_->saveState());
}

void CommunicationPage::RestoreState(const QSettings& settings) {
    halves_->restoreState(settings.value(u"GridSplitter"_s).toByteArray());
    panes_->restoreState(settings.value(u"PaneSplitter"_s).toByteArray());
}

}  // namespace commtest
