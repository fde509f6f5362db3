#pragma once

#include "commissioning/write_watch.h"
#include "window/binder.h"

namespace commtest {

class GridView;
class NoteBar;

// At each look: what has become of the user's writes goes to their cells and, as one line, to the note bar.
void FollowWrites(Binder& binder, WriteWatch& writes, GridView& grid, NoteBar& notes);

}  // namespace commtest
