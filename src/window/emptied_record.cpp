#include "window/emptied_record.h"

#include <utility>

#include "host_qt/words.h"
#include "session/records.h"
#include "window/note_bar.h"
#include "window/record_view.h"

namespace commtest {

namespace {

constexpr int kRecordPane = 1;
QString EmptiedWords() { return Words::tr("已清空通讯记录"); }

}  // namespace

EmptiedRecord::EmptiedRecord(Binder& binder, NoteBar& notes, RecordView& record)
    : QObject(&record), binder_(binder), notes_(notes), epoch_(Record().Epoch()) {
    connect(&record, &RecordView::Clicked, this, &EmptiedRecord::Empty);
    binder.AtEachLook([this] { EndOfferIfEmptiedAgain(); });
}

bool EmptiedRecord::OfferStands() const { return notes_.HasOffer() && notes_.Text() == EmptiedWords(); }

// Emptied twice in a row, both parts come back.
void EmptiedRecord::Empty() {
    std::deque<RecordBlock> blocks = Record().Blocks();
    if (blocks.empty()) return;
    if (OfferStands()) blocks.insert(blocks.end(), taken_.begin(), taken_.end());
    binder_.Event([this] { ConCommString_Click(binder_.Form(), kRecordPane); });  // Q67
    taken_ = std::move(blocks);
    notes_.Offer(EmptiedWords(), Words::tr("撤销"), [this] { PutBack(); });
}

void EmptiedRecord::PutBack() {
    Record().PutBelow(std::exchange(taken_, {}));
    binder_.Look();
}

void EmptiedRecord::EndOfferIfEmptiedAgain() {
    const bool isEmptied = std::exchange(epoch_, Record().Epoch()) != Record().Epoch();
    if (isEmptied && OfferStands()) notes_.WithdrawOffer();
    if (!OfferStands()) taken_.clear();
}

}  // namespace commtest
