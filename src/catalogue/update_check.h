#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// Whether the program's file on the server, folder\name.EXE, is newer than the one that runs, by whole
// minutes. Error 53 if there is none.
bool IsUpdateNewer(const MainForm& form, const Text& folder, const Text& name);

// Starts the updater of the program folder and ends the program, by ProgramEnds. An updater that cannot be
// started is told to the user, and the program goes on.
void LaunchUpdater(MainForm& form);

// Asks whether to take a newer program, if there is one. Errors as IsUpdateNewer.
void OfferUpdate(MainForm& form, const Text& folder, const Text& name);

}  // namespace commtest
