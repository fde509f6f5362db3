#pragma once

namespace commtest {

class MainForm;

// Take the reply in ReplyText: check word, counters, verdict, record block, and the walk over the grid.
// Errors are logged, exceptions among them; polling goes on. CycleStep tells what has happened: 1, 4 a line
// feed has arrived; 2 nothing came before the time-out; 3 bytes but no line feed. ReplyText is empty
// afterwards. They pass over run-time errors.
//   ":010302006496\r\n"
void ParseAsciiReply(MainForm& form);     // code 21: LrcOfPairs, DecodeAsciiRows
void ParseAsciiReplyTwo(MainForm& form);  // code 22: LrcOfChars, DecodeAsciiRowsTwo

}  // namespace commtest
