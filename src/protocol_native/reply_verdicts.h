#pragma once

#include "session/exchange.h"
#include "session/texts.h"

namespace commtest {

// The verdict on a reply of the native family: check word, and what bytes 4 and 5, the reply word, say it
// answers: "RR", "RD", "RE" a read, "##" a write that was taken, "**" one that was refused. Only a right
// check word lets the data go to the grid.
Verdict JudgeTqReply(const Exchange& exchange);     // codes 11 and 13
Verdict JudgeTqReplyTwo(const Exchange& exchange);  // code 12

// What the record says of it.
Text WordsOnTqReply(const Exchange& exchange, const Verdict& verdict, const Texts& texts);

}  // namespace commtest
