#pragma once

namespace commtest {

class MainForm;
class NoteBar;

// Behind the opening: a local catalogue of an older program is brought up behind a copy, one of a newer
// program is only read, and the user is told.
void SettleCatalogueVersion(const MainForm& form, NoteBar& notes);

}  // namespace commtest
