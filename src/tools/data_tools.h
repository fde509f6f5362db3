#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "controls/timer.h"
#include "controls/value_controls.h"
#include "host/clock.h"
#include "host/dialogs.h"
#include "host/program_process.h"

namespace commtest {

// A protocol of the catalogue, as it is offered for a choice.
struct ToolProtocol {
    Text name;
    std::int16_t code = 0;
};

// The check-word and conversion tool: its state and its controls, with their handlers wired.
class DataTools {
  public:
    DataTools(Dialogs& boxes, Clock& wallClock, ProgramProcess& process);
    DataTools(const DataTools&) = delete;
    DataTools& operator=(const DataTools&) = delete;

    // --- Outside ---
    Dialogs& dialogs;
    Clock& clock;
    ProgramProcess& program;

    // --- State ---
    std::int16_t CurrentMode = 0;             // index of the chosen OutMode
    std::int16_t ProtocolCode = 0;            // code behind the chosen DataCrcMode
    std::vector<std::int16_t> ProtocolCodes;  // by the index of DataCrcMode, one a row of the catalogue

    // --- Controls ---
    Presence Window;                       // not shown before it is loaded
    TextControl Caption;                   // of the window
    std::array<TextControl, 4> OutString;  // 0 input, 1 result, 2 explanation, 3 normalised input
    OptionGroup OutMode;                   // which conversion, by the index of kToolModes
    OptionGroup DataCrcMode;               // which protocol; 15 buttons
    ListControl ConMeterList;              // no routine fills or reads it (Q165)
    OptionGroup ConShowType{0};            // OutString[3] as 0 hexadecimal bytes, 1 characters
    std::array<TextControl, 2> Command1;   // captions: 0 what the chosen mode does, 1 leave
    TextControl StatusBar1;                // date and time
    Timer Timer1{false, 1000};             // runs while the window is shown
};

// Shows the window with these protocols and chooses the mode of check words and the first protocol; of a
// former use the input stays. A protocol beyond the buttons has none.
void Form_Load(DataTools& tools, const std::vector<ToolProtocol>& protocols);

// Closes the window.
void Form_Unload(DataTools& tools);

// 0 converts or checks the input; 1 closes the window. An empty input does nothing. An input that the mode
// does not accept is refused by a message; what the mode has filled up stays filled. Raises no run-time
// error.
void Command1_Click(DataTools& tools, int index);

void OutMode_Click(DataTools& tools, int index);

// Error 9 for a button without a protocol; the protocol code then stays.
void DataCrcMode_Click(DataTools& tools, int index);

// For the input (index 0): shows it in OutString[3] with each byte that is written as a blank or a "\" and
// two hexadecimal digits in its place. The rest is dropped from the first blank or "\" without them.
void OutString_Change(DataTools& tools, int index);

void Timer1_Timer(DataTools& tools);

}  // namespace commtest
