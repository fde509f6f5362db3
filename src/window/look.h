#pragma once

#include <QWidget>

namespace commtest {

// What a widget is to the eye, beyond its class; its measures and colours come from that.
enum class Look {
    Plain,
    // Buttons
    Primary,         // filled with the accent: what a press of the return key does
    LineAction,      // a word that can be pressed
    Flat,            // of the tools; without an outline
    FlatChosen,      // the same while what it does is on
    ToolBar,         // of the toolbar
    ToolBarPrimary,  // the one that is filled
    ToolBarTinted,   // the same while it ends what it has begun
    // Options
    Tight,  // with the words close to the box
    Quiet,  // in the colour of captions
    // Fields
    Compact,     // 24 high
    Refused,     // outlined as a failure
    CellEditor,  // over a cell: outlined in the accent
    Given,       // on the ground of the window: nothing is typed into it
    // Areas
    Boxed,      // texts with the outline of a field
    Lined,      // texts in a hairline
    FactTable,  // a table in a hairline, of few rows
    // Surfaces
    Hint,       // raised over others, with the outline of a field
    LineFrame,  // a frame of one hairline
    Band,       // over a hairline
    TintBand,   // the same on the tint
    Dot,        // round, of the accent
    Word        // a label that can have the focus
};

// Paints and lays it out anew, if it is another one.
void SetLook(QWidget& widget, Look look);

// Of none it is plain.
Look LookOf(const QWidget* widget);

}  // namespace commtest
