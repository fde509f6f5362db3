#pragma once

#include "session/exchange.h"
#include "session/texts.h"

namespace commtest {

// The verdict on an RTU reply: check word, then by its function code: exceptions 81 to 88, answers to reads,
// writes, tests and board type. Exceptions 83 and 86 stop the session. What is not decoded goes to the error
// file.
Verdict JudgeRtuReply(const Exchange& exchange);

// What the record says of it; the address is the exchange's AddressText in decimal.
Text WordsOnRtuReply(const Exchange& exchange, const Verdict& verdict, const Texts& texts);

}  // namespace commtest
