#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// Applies the five port fields: settings text, port number, an open port reopened, the choice remembered. A
// parity that is none of the three leaves the settings empty. Error 13 for a port name without a number.
void ConCommSetting_LostFocus(MainForm& form);

// Fills the port and the five fields from a stored text "9600,N,8,1 COM1". A port name without a number
// leaves the number of the port.
void ShowStoredPortSettings(MainForm& form, TextView stored);

// Fills the lists of the port fields: COM1 to COM4 and whatever else the machine has at this moment.
void OfferPorts(MainForm& form);

// Rewrites the second panel of the status bar.
void ShowPortStatus(MainForm& form);

}  // namespace commtest
