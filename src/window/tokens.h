#pragma once

#include <QColor>

namespace commtest {

// The colours of one palette, each named by its use.
struct Tokens {
    QColor window;       // toolbar, sidebar, strips, status bar
    QColor surface;      // grids, panes, fields
    QColor zebra;        // every second row of a grid
    QColor header;       // header of a grid
    QColor hover;        // button or tab under the pointer
    QColor row;          // current row of a grid
    QColor tint;         // checked button, running state, search panel, menu selection
    QColor edit;         // cells that may be written
    QColor flash;        // a cell that has just changed
    QColor line;         // hairlines
    QColor border;       // outline of fields and boxes
    QColor text;         // main text; the only one on flash and warnTint
    QColor text2;        // captions, column heads, quiet columns, the words of the record
    QColor disabled;     // what cannot be used, only
    QColor accent;       // active, focused, current, running
    QColor accentHover;  // primary button under the pointer
    QColor onAccent;     // text on accent
    QColor warn;         // failures, only
    QColor warnTint;     // a cell whose readings differ
    QColor ink;          // first tone of the icons
    QColor scroll;       // thumb of a scroll bar
};

extern const Tokens kLightTokens;
extern const Tokens kDarkTokens;

}  // namespace commtest
