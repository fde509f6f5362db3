#pragma once

#include "session/exchange.h"
#include "session/texts.h"

namespace commtest {

struct Conversation;

// The verdict on a reply of ten bytes or more: its check word passes, whatever it is (Q198). It is the answer
// to a write where the request was one, else data.
Verdict JudgeNovaxReply(const Exchange& exchange);

// What the record says of it: the words of a read, behind a write and a silence, too (Q199).
Text WordsOnNovaxReply(const Exchange& exchange, const Verdict& verdict, const Texts&);

// Shares a reply out over the grid, in spite of its name; no check word is looked at. Bytes 1 to 6 are the
// status values of rows 6 to 9: two of 16 bits, low byte first, two of 8 bits. Bytes 7 and 8 are the value of
// CurrentRow, which moves on by one; a row of attribute "S" gets its digits only. Errors: 9 for rows that the
// grid does not have, those of ApplyDecimalPoint.
void TestCRCWordNOVAX(Conversation& talk, const HexText& reply);

}  // namespace commtest
