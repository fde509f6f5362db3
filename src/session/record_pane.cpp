#include "session/record_pane.h"

namespace commtest {

void RecordPane::PutOnTop(RecordBlock block) {
    blocks_.push_front(std::move(block));
    MarkDirty();
    if (BlockFinished) BlockFinished(blocks_.front());
}

void RecordPane::Clear() {
    blocks_.clear();
    ++epoch_;
    MarkDirty();
}

void RecordPane::Replace(Text text) {
    Clear();
    if (!text.empty()) blocks_.push_front({std::move(text)});
}

void RecordPane::PutBelow(const std::deque<RecordBlock>& older) {
    blocks_.insert(blocks_.end(), older.begin(), older.end());
    ++epoch_;
    MarkDirty();
}

Text RecordPane::WholeText() const {
    Text whole;
    for (const RecordBlock& block : blocks_) whole += block.text;
    return whole;
}

}  // namespace commtest
