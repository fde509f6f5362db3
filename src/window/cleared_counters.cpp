#include "window/cleared_counters.h"

#include "host_qt/words.h"
#include "runtime/number.h"
#include "session/records.h"
#include "session/reply_routing.h"
#include "window/note_bar.h"
#include "window/statistics_label.h"

namespace commtest {

namespace {

QString ClearedWords() { return Words::tr("计数已清零"); }

}  // namespace

ClearedCounters::ClearedCounters(Binder& binder, NoteBar& notes, QObject* parent)
    : QObject(parent), binder_(binder), notes_(notes) {}

void ClearedCounters::Serve(StatisticsLabel& label) {
    connect(&label, &StatisticsLabel::DoubleClicked, this, &ClearedCounters::Clear);
}

bool ClearedCounters::OfferStands() const { return notes_.HasOffer() && notes_.Text() == ClearedWords(); }

ClearedCounters::Counters ClearedCounters::Counted() const {
    const MainForm& form = binder_.Form();
    return {form.SendCount, form.IncompleteCount, form.CheckErrorCount, form.NoReplyCount};
}

void ClearedCounters::Add(const Counters& counters) {
    MainForm& form = binder_.Form();
    form.SendCount = Add32(form.SendCount, counters.sent);
    form.IncompleteCount = Add32(form.IncompleteCount, counters.incomplete);
    form.CheckErrorCount = Add32(form.CheckErrorCount, counters.checkErrors);
    form.NoReplyCount = Add32(form.NoReplyCount, counters.missing);
}

// Cleared twice in a row, both counts come back.
void ClearedCounters::Clear() {
    if (Counted() == Counters{}) return;
    binder_.Event([this] {
        if (OfferStands()) Add(taken_);
        taken_ = Counted();
        ConCommMessage_DblClick(binder_.Form());
        ShowStatistics(binder_.Form());
    });
    notes_.Offer(ClearedWords(), Words::tr("撤销"), [this] { PutBack(); });
}

void ClearedCounters::PutBack() {
    binder_.Event([this] {
        Add(taken_);
        ShowStatistics(binder_.Form());
    });
}

}  // namespace commtest
