#pragma once

#include "window/theme.h"

namespace commtest {

// The type of numbers for what is painted at each exchange: frames, codes and values. Each of their letters
// stands by itself; no ligature is looked for, which is most of the work of laying such a line out.
inline QFont FrameFont() {
    QFont font = Theme::MonoFont();
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

}  // namespace commtest
