#include "window/record_stretches.h"

namespace commtest {

namespace {

bool HasFailed(const Outcome& outcome) {
    const Verdict& verdict = outcome.verdict;
    const Ending ending = outcome.exchange.ending;
    return ending == Ending::Silent || ending == Ending::Incomplete || verdict.check == CheckWord::Wrong ||
           verdict.answer == Answer::Refused;
}

}  // namespace

std::vector<RecordStretch> StretchesOf(const RecordBlock& block) {
    using Kind = RecordStretch::Kind;
    const TextView text = block.text;
    if (block.outcome == nullptr) return {{text, Kind::Plain}};
    const RecordParts& parts = block.parts;
    const auto from = [text](std::size_t first, std::size_t end) { return text.substr(first, end - first); };
    return {{from(0, parts.frameAt), Kind::Quiet},
            {from(parts.frameAt, parts.frameEnd), Kind::Frame},
            {from(parts.frameEnd, parts.replyAt), Kind::Quiet},
            {from(parts.replyAt, parts.wordsAt), Kind::Frame},
            {text.substr(parts.wordsAt), HasFailed(*block.outcome) ? Kind::Failure : Kind::Quiet}};
}

}  // namespace commtest
