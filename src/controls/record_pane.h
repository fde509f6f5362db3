#pragma once

#include <cstdint>
#include <deque>
#include <functional>

#include "controls/value_controls.h"
#include "runtime/text.h"

namespace commtest {

// The record of the traffic, newest block on top. Its cost does not depend on its length: a block is kept as
// it came, and the whole text is joined only for who asks for it.
class RecordPane : public Presence {
  public:
    // Hears of each block that is put on top (the command line streams them).
    std::function<void(const Text& block)> BlockFinished;

    void PutOnTop(Text block);
    void Clear();
    void Replace(Text text);  // the text becomes the only block

    // Newest first. A view that has seen `Count()` blocks of this `Epoch()` lacks only the ones in front.
    const std::deque<Text>& Blocks() const { return blocks_; }
    std::uint64_t Epoch() const { return epoch_; }  // moves on when blocks are taken away

    Text WholeText() const;

  private:
    std::deque<Text> blocks_;
    std::uint64_t epoch_ = 0;
};

}  // namespace commtest
