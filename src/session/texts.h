#pragma once

#include <array>
#include <optional>

#include "host/clock.h"
#include "runtime/text.h"

namespace commtest {

// Captions of the window that differ, by their place.
struct Captions {
    TextView advancedSettings;
    TextView anyLength;
    TextView stopScrolling;
    TextView capture;
    TextView replay;
    TextView saveRecord;
    TextView saveErrors;
    TextView search;  // of the search panel
    TextView searchStart;
    TextView searchClose;
    TextView searchPort;
    TextView searchEndAddress;
    TextView searchStartAddress;
    TextView searchBaudRates;
    TextView instrumentSelection;
    TextView instrumentName;
    TextView instrumentAddress;
    TextView parameterCount;
    std::array<TextView, 5> portFields;  // port, baud rate, data bits, parity, stop bits
    TextView hexadecimal;
    TextView ascii;
    TextView displaySwitch;
};

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
    std::optional<TextView> asciiBehindReadAddress;  // none: the words name no address
    TextView asciiNoAnswer;
    Text (*clockPanel)(const DateTime& now);     // third panel of the status bar
    std::array<TextView, 11> parameterHeadings;  // of the parameter grid, by column
    Captions captions;
};

extern const Texts kChineseTexts;
extern const Texts kEnglishTexts;

}  // namespace commtest
