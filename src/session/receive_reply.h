#pragma once

namespace commtest {

class MainForm;

// Takes the reply in ReplyText, complete or not, for the protocol in use, which has to judge replies:
// interval of the cycle, counters, line and block of the record, error file, next part, grid, outcome.
// CycleStep tells how the wait has ended: 1, 4 the reply is complete; 7 it is one part, which is answered
// with the byte 0A at once where its check word is right; 2 nothing came; 3 bytes but no end. ReplyText is
// empty afterwards. Passes over run-time errors.
void ReceiveReply(MainForm& form);

}  // namespace commtest
