#pragma once

#include <vector>

#include "host/clock.h"
#include "host/program_files.h"
#include "host/store.h"

namespace commtest {

// Copies of the catalogue stand in the program folder, named by the catalogue's file and the moment:
// "通讯数据.mdb.bak-YYYYMMDD-HHMMSS", a second one of the same second with "-2" behind it, and so on.
inline constexpr std::size_t kKeptCatalogueCopies = 3;

// Copies the open catalogue into a new file of the embedded engine, also that of a server, and gives the
// file's name. Of the copies the new one and the youngest others stay, kKeptCatalogueCopies in all, and
// `spared` beside them, one that is wanted yet. A copy that fails raises its error, leaves no file and takes
// no other copy away. Not within a transaction.
Text BackUpCatalogue(Store& store, ProgramFiles& files, const DateTime& now, const Text& spared = {});

// The names of the copies in the program folder, the youngest first.
std::vector<Text> CatalogueBackups(const ProgramFiles& files);

// Puts the instruments and parameters of a copy, a name of the program folder or a full path, in the place of
// those of the open catalogue; everything else stays. All in one transaction: an error, also that of a file
// which is no catalogue, leaves the catalogue as it was.
void RestoreCatalogue(Store& store, const ProgramFiles& files, const Text& copy);

}  // namespace commtest
