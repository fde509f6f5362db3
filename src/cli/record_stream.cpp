#include "cli/record_stream.h"

#include <utility>

#include "cli/printable_text.h"

namespace commtest {

RecordStream::RecordStream(Console& console, bool showsBlocks, const OutputName& file)
    : console_(console), showsBlocks_(showsBlocks), file_(file) {}

void RecordStream::Add(TextView block) {
    if (showsBlocks_ || file_.IsOpen()) waiting_ += PrintableText(block);
}

bool RecordStream::Flush() {
    const std::string blocks = std::exchange(waiting_, {});
    if (blocks.empty()) return file_.IsGood();
    if (showsBlocks_) console_.Print(blocks);
    const bool isOut = !showsBlocks_ || console_.Flush();
    file_.Write(blocks);
    return isOut && file_.IsGood();
}

void RecordStream::Finish() {
    Flush();
    file_.Finish();
}

}  // namespace commtest
