#pragma once

#include "session/exchange.h"
#include "session/texts.h"

namespace commtest {

struct Conversation;

// The verdict on a reply of 64 bytes or more, by CheckHct615dFrame. Nothing but a good one leaves the rows
// their values: a bad one, none and a cut one are decoded as the empty text.
Verdict JudgeHct615dReply(const Exchange& exchange);

// What the record says of it: the words of a read, whatever came.
Text WordsOnHct615dReply(const Exchange& exchange, const Verdict& verdict, const Texts&);

// Shares bytes 48 to 58 of a reply out over rows 6 to 9: their digits as they stand into column 7, and with a
// fixed decimal point (row 7 "12.34", row 8 "1234.56") into column 9. The points are put into column 9 where
// there are no digits, too (Q202). The grid's redraw is on afterwards. Error 9 for rows that the grid does
// not have.
void DecodeHct615dReply(Conversation& talk, const HexText& reply);

}  // namespace commtest
