#pragma once

#include "cli/line_options.h"

namespace commtest {

class MainForm;

// Chooses protocol, instrument, address, interval and display mode, as a user does. A Problem if the
// catalogue does not know the names, if the program does not know the protocol,
// or if the protocol has no such address.
void ChooseInstrument(MainForm& form, const LineOptions& options);

}  // namespace commtest
