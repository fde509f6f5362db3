#pragma once

#include <cstdint>
#include <deque>
#include <functional>

#include "controls/value_controls.h"
#include "runtime/text.h"
#include "session/exchange.h"

namespace commtest {

// Where the parts of an exchange's text begin, from 0: the frame that went out (and where it ends), the
// reply, the words on it. All 0 in other texts.
struct RecordParts {
    std::size_t frameAt = 0;
    std::size_t frameEnd = 0;
    std::size_t replyAt = 0;
    std::size_t wordsAt = 0;
};

// A text of the record; that of an exchange comes with what came of it.
struct RecordBlock {
    Text text;
    RecordParts parts = {};
    OutcomePointer outcome = {};  // its rows are filled in behind the record
};

// The record of the traffic, newest block on top. Its cost does not depend on its length: a block is kept as
// it came, and the whole text is joined only for who asks for it.
class RecordPane : public Presence {
  public:
    // Hears of each block that is put on top (the command line streams them).
    std::function<void(const RecordBlock& block)> BlockFinished;

    void PutOnTop(RecordBlock block);
    void Clear();
    void Replace(Text text);  // the text becomes the only block
    void PutBelow(const std::deque<RecordBlock>& older);

    // Newest first. A view that has seen `Count()` blocks of this `Epoch()` lacks only the ones in front.
    const std::deque<RecordBlock>& Blocks() const { return blocks_; }
    std::uint64_t Epoch() const { return epoch_; }  // moves on when other ones than the foremost change

    Text WholeText() const;

  private:
    std::deque<RecordBlock> blocks_;
    std::uint64_t epoch_ = 0;
};

}  // namespace commtest
