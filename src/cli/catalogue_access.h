#pragma once

#include <QString>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "host/program_files.h"
#include "host/store.h"

namespace commtest {

extern const Option kFolderOption;

// The program folder: the one of the option, else the folder of the program if a catalogue stands there, else
// the user's own, which is made from the shipped catalogue the first time.
QString ProgramFolderOf(const Arguments& arguments, Console& console);

// Opens the catalogue of the folder; a Problem if that fails, also if another program holds it.
void OpenCatalogueOf(const ProgramFiles& files, Store& store);

// What the catalogue knows.
std::vector<Text> ProtocolNames(Store& store);
std::vector<Text> InstrumentNames(Store& store, const Text& protocol);

// The instrument of that name, or the only one whose name has it as a part; a Problem where there is none,
// which is that of RequireKnown, or several, which it lists.
Text InstrumentMeant(const Text& word, const std::vector<Text>& known);

// A Problem unless the name is one of those known; `listing` is the call that lists them.
void RequireKnown(QStringView kind, const Text& name, const std::vector<Text>& known, QStringView listing);

}  // namespace commtest
