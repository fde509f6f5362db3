#pragma once

#include "runtime/runtime_error.h"
#include "session/exchange.h"

namespace commtest {

// What several families judge and say alike.

// A test that raises an error counts as not met.
template <typename Test>
CheckWord CheckWordOf(Test&& test) {
    return IsMet(test) ? CheckWord::Right : CheckWord::Wrong;
}

// The words on a check word that was tested, nothing on another one; those on a wait that has run out,
// nothing on another ending.
Text WordsOnCheckWord(CheckWord check);
Text WordsOnNoReply(Ending ending);

}  // namespace commtest
