#pragma once

namespace commtest {

class MainForm;

// Takes the reply in ReplyText: verdict on its check word and its function, counters, record block, then the
// walk over the grid, or the error file where there is nothing to decode. CycleStep tells what has happened:
// 1, 4 a frame end has arrived; 2 nothing came before the time-out; 3 bytes but no frame end. Passes over
// run-time errors.
void ParseRtuReply(MainForm& form);

}  // namespace commtest
