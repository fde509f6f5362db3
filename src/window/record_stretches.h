#pragma once

#include <vector>

#include "session/record_pane.h"

namespace commtest {

// A stretch of a block of the record, and what it is to the reader.
struct RecordStretch {
    enum class Kind { Plain, Frame, Quiet, Failure };
    TextView text;
    Kind kind;
};

// The stretches of a block, in their order: of an exchange the frames, the words around them and, where it
// has failed, its reply and verdict; of another text the whole. They live as long as the block.
std::vector<RecordStretch> StretchesOf(const RecordBlock& block);

}  // namespace commtest
