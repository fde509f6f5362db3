#pragma once

#include <QSettings>

#include "window/window_face.h"

namespace commtest {

class NoteBar;
class ToolBar;

// The face that `settings` remember, from the next start on; the Chinese one where they remember none.
const WindowFace& RememberedFace(const QSettings& settings);

// A menu of the faces among the system's tools. The one that is chosen is remembered, and comes with the next
// start.
void AddFaceChoice(const MainForm& form, ToolBar& toolBar, QSettings& settings, NoteBar& notes);

}  // namespace commtest
