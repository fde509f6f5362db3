#pragma once

#include "cli/console.h"
#include "host/program_files.h"
#include "host/store.h"

namespace commtest {

// Copies the catalogue beside itself and gives the name of the copy; a Problem where that fails. `spared` is
// another copy, which stays in any case.
Text CopyCatalogue(Store& store, ProgramFiles& files, const Text& spared = {});

}  // namespace commtest
