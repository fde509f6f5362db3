#pragma once

#include <optional>

#include "catalogue/list_lines.h"

namespace commtest {

// Why a list could not be taken.
struct ListProblem {
    int number = 0;  // of the run-time error
    Text message;    // its own; the engine's text where the store failed
    int line = 0;    // of the list, from 1; 0 where none is at fault
    std::optional<UnreadableLine::Reason> unreadable = {};
    bool isRewrittenElsewhere = false;  // another program has the server's catalogue
    bool isOfNewerCatalogue = false;    // which this program only reads

    // `line` is the last one that was read.
    static ListProblem Of(const RuntimeError& error, int line);
};

}  // namespace commtest
