#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace commtest {

class MainForm;

// A search tries the read frame of the protocol in use at each address of a range, at each chosen baud rate.
// It rides on the polling cycle, with 1000 added to CommandCode.

// Begins it: counters and record anew, an interval of 1 ms, the port and the addresses of the panel, the
// first ticked rate. Without a ticked rate it returns in the state reached so far. Error 13 for a port or an
// address that is no number.
void FindCommMeter(MainForm& form);

// Moves on to the next address, and behind the last one to the next rate, 300 ms behind its change; false
// when the search is over and the user has been told: address, interval, operation and port are then as
// before.
bool NextSearchStep(MainForm& form);

// How far a search is. Its estimate takes every address that is left for silent.
struct SearchProgress {
    int address = 0;                    // under trial
    Text rate;                          // "9600"
    int rateNumber = 0;                 // from 1
    int rates = 0;                      // that the walk takes
    bool isTicked = false;              // the rate, which else lies between ticked ones
    std::int64_t done = 0;              // trials
    std::int64_t all = 0;               // trials
    std::int64_t millisecondsLeft = 0;  // 1.5 s an address, 0.3 s a change of rate
    int found = 0;
};

// Of a search under way.
SearchProgress ProgressOf(const MainForm& form);

}  // namespace commtest
