#pragma once

namespace commtest {

class MainForm;

// Takes the reply in ReplyText: verdict on its check word, counters, record block, and, where it is good, the
// walk over the grid. A part that ended in 0A is answered with the byte 0A at once. CycleStep tells what has
// happened: 1, 4, 7 a frame end has arrived; 2 nothing came before the time-out; 3 bytes but no frame end.
// Passes over run-time errors.
void ParseTqReply(MainForm& form);

}  // namespace commtest
