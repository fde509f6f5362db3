#pragma once

#include "host/file_names.h"
#include "host/program_files.h"
#include "host/store.h"

namespace commtest {

class MainForm;

// Where the local catalogue is: its file in the program folder.
StoreAddress LocalCatalogue(const ProgramFiles& files);

// Where the catalogue of the server is: the connection string made of Setup.ini, or of another file. Its
// first four lines, each "label value", name the server, the user, the password and the database; a fifth one
// follows. Error 53 without the file, error 62 if it has fewer lines.
StoreAddress ServerCatalogue(const ProgramFiles& files, const Text& name = Text(kServerFileName));

// Opens the catalogue of the server in mode 0, where a newer program is offered first, else the local one,
// and adds the word for the mode to the first panel of the status bar. Errors are passed over: the store then
// stays closed and the word is added all the same. Why the server was not opened stands in ServerProblem; who
// wants to know it of the local one opens LocalCatalogue directly.
void OpenCatalogue(MainForm& form, int mode);

}  // namespace commtest
