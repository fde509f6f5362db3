#pragma once

#include "window/binder.h"
#include "window/note_bar.h"

namespace commtest {

// Makes the table of channels, and a note of what was written where, which offers to open the folder; a
// failure is told with what to do.
using FolderOpener = std::function<void(const QString& folder)>;
void MakeChannelTable(Binder& binder, NoteBar& notes, const FolderOpener& open);

}  // namespace commtest
