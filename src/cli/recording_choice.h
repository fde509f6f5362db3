#pragma once

#include "cli/arguments.h"
#include "runtime/text.h"

namespace commtest {

// The note under which exchanges are recorded, in capitals as the session has it.
extern const Option kNoteOption;
Text NoteOf(const Arguments& arguments, QStringView option = u"note");

// A Problem that says where the recordings are listed.
Problem NoRecording(const Text& instrument, const Text& note);

}  // namespace commtest
