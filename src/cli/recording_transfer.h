#pragma once

#include <QString>
#include <vector>

#include "catalogue/recordings.h"
#include "cli/arguments.h"
#include "cli/console.h"

namespace commtest {

// Whether the change is wanted: by --yes, else by a yes typed at the terminal; a Problem where nobody types.
bool IsConfirmed(const Text& change, const Arguments& arguments, Console& console);

// Writes the exchanges of one instrument and note, of which there is at least one, and gives their number; a
// Problem if the file cannot be written.
std::size_t ExportRecording(const QString& file, const std::vector<RecordedExchange>& exchanges);

// Adds the pairs of the file that are not known yet by instrument, note and reply, all or none; asks first
// where the note has pairs of the instrument already. A Problem for a file that cannot be read or does not
// fit.
ExitStatus ImportRecording(const QString& file, const Arguments& arguments, Recordings& recordings,
                           Console& console);

}  // namespace commtest
