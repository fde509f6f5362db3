#pragma once

#include "session/exchange.h"
#include "session/texts.h"

namespace commtest {

// The verdict on a reply in ASCII digits: check word, then by its function: exceptions 81 to 88, answers to
// reads and writes. Exceptions are logged as errors; polling goes on.
//   ":010302006496\r\n"
Verdict JudgeAsciiReply(const Exchange& exchange);     // code 21: LrcOfPairs
Verdict JudgeAsciiReplyTwo(const Exchange& exchange);  // code 22: LrcOfChars

// What the record says of it; the address is the exchange's AddressText in decimal.
Text WordsOnAsciiReply(const Exchange& exchange, const Verdict& verdict, const Texts& texts);

}  // namespace commtest
