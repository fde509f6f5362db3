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

extern const Option kServerOption;
extern const Option kServerSettingsOption;

enum class CatalogueUse { Reading, Writing };

// Which catalogue a verb opens: the local file of the program folder, or that of a server.
struct CataloguePlace {
    bool isServer = false;
    Text settings;  // the file that says where the server is; a name of the program folder, or a full path
    CatalogueUse use = CatalogueUse::Reading;
};

CataloguePlace CataloguePlaceOf(const Arguments& arguments, CatalogueUse use);

// The server, for a verb to which one belongs in any case.
CataloguePlace ServerPlaceOf(const Arguments& arguments, CatalogueUse use);

// Opens the catalogue; a Problem if that fails, also if another program holds it. Where a server does not
// give it to who only reads, the local file takes its place, and the user is told why. One of a newer version
// is told and only read. The place of the one that is open.
CataloguePlace OpenCatalogueOf(const ProgramFiles& files, Store& store, const CataloguePlace& place,
                               Console& console);

// For who will write the open catalogue: one of an older version is brought up behind a copy in the folder,
// or, where that is not allowed, used as it is, and the user is told; `spared` is a copy that is wanted yet.
// A Problem for one of a newer version.
void PrepareForWriting(Store& store, ProgramFiles& files, Console& console, const Text& spared = {});

// The local file of the folder; of one in the older desktop format the user is told how to bring it over.
void OpenLocalCatalogue(const ProgramFiles& files, Store& store, Console& console);

// A server, with or without a catalogue; a Problem if it cannot be opened.
void OpenServer(const ProgramFiles& files, Store& store, const CataloguePlace& place);

// What the catalogue knows.
std::vector<Text> ProtocolNames(Store& store);
std::vector<Text> InstrumentNames(Store& store, const Text& protocol);

// The instrument of that name, or the only one whose name has it as a part; a Problem where there is none,
// which is that of RequireKnown, or several, which it lists.
Text InstrumentMeant(const Text& word, const std::vector<Text>& known);

// A Problem unless the name is one of those known; `listing` is the call that lists them.
void RequireKnown(QStringView kind, const Text& name, const std::vector<Text>& known, QStringView listing);

}  // namespace commtest
