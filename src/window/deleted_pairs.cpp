#include "window/deleted_pairs.h"

#include "catalogue/catalogue_lists.h"
#include "catalogue/recordings.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "window/pieces.h"

namespace commtest {

DeletedPairs::DeletedPairs(Binder& binder, NoteBar& notes, QObject* parent)
    : QObject(parent), binder_(binder), notes_(notes) {
    binder.AtEachLook([this] { Follow(); });
}

void DeletedPairs::Follow() {
    const MainForm& form = binder_.Form();
    Subject now;
    const bool captures = form.ConSaveData.Value() && !form.CaptureNote.empty();
    if (captures && !form.CaptureWaits) now = {form.InstrumentName(), form.CaptureNote};
    if (form.CaptureWaits) Withdraw();  // the store is within another's transaction
    if (now == captured_) return;
    captured_ = now;
    Withdraw();
    if (now.note.empty()) return;
    TellBehind({}, now.instrument, now.note);
}

void DeletedPairs::TellBehind(const QString& words, const Text& instrument, const Text& note) {
    std::int64_t deleted = 0;
    PassOverError(
        [&] { deleted = Recordings(binder_.Form().outside.store).CountOf(instrument, note).deleted; });
    if (deleted == 0) return;
    const QString pattern = words.isEmpty() ? Words::tr("说明 %1 下有 %2 条已删除，应答相同的不再存入")
                                            : Words::tr("%1；此说明下有 %2 条已删除，应答相同的不再存入");
    told_ = pattern.arg(words.isEmpty() ? ToQt(note) : words, GroupedNumber(deleted));
    notes_.Ask(told_, Glyph::Information, Words::tr("恢复"),
               [this, subject = Subject{instrument, note}] { BringBack(subject); });
}

void DeletedPairs::Withdraw() {
    if (notes_.Text() == told_) notes_.WithdrawQuestion();
}

void DeletedPairs::BringBack(const Subject& subject) {
    MainForm& form = binder_.Form();
    binder_.Event([&] {
        Recordings recordings(form.outside.store);
        const PairCount count = recordings.CountOf(subject.instrument, subject.note);
        recordings.SetValid(subject.instrument, subject.note, true);
        SSTab2_Click(form);
        notes_.Say(Words::tr("已恢复 %1 条：%2，%3")
                       .arg(GroupedNumber(count.deleted), ToQt(subject.instrument), ToQt(subject.note)));
    });
}

}  // namespace commtest
