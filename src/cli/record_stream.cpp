#include "cli/record_stream.h"

#include <utility>

#include "cli/printable_text.h"

namespace commtest {

namespace {

constexpr std::size_t kMostWaiting = 16384;  // bytes

}  // namespace

RecordStream::RecordStream(Console& console, bool showsBlocks, const OutputName& file)
    : console_(console), showsBlocks_(showsBlocks), file_(file) {}

void RecordStream::Add(TextView block) {
    if (!showsBlocks_ && !file_.IsOpen()) return;
    waiting_ += PrintableText(block);
    if (waiting_.size() >= kMostWaiting) HandOn();
}

void RecordStream::HandOn() {
    if (waiting_.empty()) return;
    if (showsBlocks_) console_.Print(waiting_);
    file_.Write(waiting_);
    waiting_.clear();
    awaitsFlush_ = showsBlocks_;
}

bool RecordStream::Flush() {
    HandOn();
    const bool isOut = !std::exchange(awaitsFlush_, false) || console_.Flush();
    return isOut && file_.IsGood();
}

void RecordStream::Finish() {
    Flush();
    file_.Finish();
}

}  // namespace commtest
