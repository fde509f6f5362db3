#pragma once

#include <QString>
#include <functional>

#include "host/store.h"

namespace commtest {

// Makes a program folder: the folder itself, its catalogue file, which `fill` fills, the help file, the
// template of the spreadsheets and the folder for records. What stands there already is left as it is. True
// if the catalogue was made, false if one stood there. A folder or file that cannot be made raises error 76
// or the store's run-time error; what `fill` raises passes through. A failure leaves no half-made file
// behind, what a killed program left is cleared away, and a file that another program makes meanwhile stood
// there.
bool CreateProgramFolder(const Text& folder, const std::function<void(Store&)>& fill);

// The program folder of a user who has named none.
QString UsersProgramFolder();

struct ProgramFolder {
    QString path;
    bool wasMade = false;  // its catalogue was not there before
};

// The folder of the program if a catalogue stands there, else the user's own, which CreateProgramFolder makes
// or completes; its errors pass through.
ProgramFolder FindProgramFolder(const std::function<void(Store&)>& fill);

}  // namespace commtest
