#pragma once

#include <cstdint>
#include <optional>

#include "session/exchange.h"

namespace commtest {

// A reply that a search has heard.
struct SearchHit {
    // The address that stands in a reply whose check word is right, which may be late; else the one that was
    // asked.
    int address = 0;
    Text rate;                              // "9600"
    std::optional<std::int64_t> replyTime;  // microseconds from the request to the first byte
    HexText reply;
    CheckWord check = CheckWord::NotJudged;
};

}  // namespace commtest
