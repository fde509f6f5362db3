#pragma once

#include <QIcon>

namespace commtest {

// Small signs of one stroke, in a box of 16 pixels; what they say stands beside them in words.
enum class Glyph { Dots, Tick, Differs, Refused, Unknown, Warning, Information, Pencil, Lens, Plug, Replay };

// In one colour. Null if drawings of their kind cannot be read.
QIcon GlyphIcon(Glyph glyph, const QColor& colour);

// Its picture of `size` logical pixels, for a device of that ratio; kept, so that cells can be painted with
// it. Null as above.
QPixmap GlyphPicture(Glyph glyph, const QColor& colour, int size, qreal ratio);

}  // namespace commtest
