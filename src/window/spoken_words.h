#pragma once

#include <QTranslator>

#include "window/window_face.h"

namespace commtest {

// While it stands, the window's own words and those of the toolkit, as in the menu of a field, are those of a
// face; the toolkit's are English where their translation is not installed. Stands in a running application.
class SpokenWords {
  public:
    explicit SpokenWords(const WindowFace& face);

  private:
    QTranslator own_;
    QTranslator toolkit_;
};

}  // namespace commtest
