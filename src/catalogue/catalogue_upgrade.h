#pragma once

#include "host/clock.h"
#include "host/program_files.h"
#include "host/store.h"

namespace commtest {

// Brings an open catalogue of an older version up to kSchemaVersion: what it lacks is made, nothing that
// stands changes. Gives the name of the copy that was made before; `spared` is a copy that is wanted yet. An
// error of the store or of the folder leaves the catalogue as it was. Not within a transaction.
Text UpgradeCatalogue(Store& store, ProgramFiles& files, const DateTime& now, const Text& spared = {});

}  // namespace commtest
