#pragma once

#include "runtime/text.h"

namespace commtest {

// The words of a face that differ between its Chinese and its English form, one member a place.
struct Texts {
    TextView beforeVersion;    // of the window's title
    TextView start;            // toolbar button 4 while the session is stopped
    TextView stop;             // the same while it runs
    TextView beforeSendCount;  // of a record line
    TextView beforeInstrument;
    TextView beforeSent;
    TextView beforeReceived;
    TextView beforeTotal;  // of the statistics
    TextView behindTotal;
    TextView beforePort;  // of the port status
    TextView beforePortState;
    TextView portOpen;
    TextView portClosed;
    TextView asciiCheckRight;  // of replies in ASCII digits
    TextView asciiCheckWrong;
    TextView asciiBeforeReadAddress;
    TextView asciiBehindReadAddress;
    TextView asciiNoAnswer;
};

extern const Texts kChineseTexts;

}  // namespace commtest
