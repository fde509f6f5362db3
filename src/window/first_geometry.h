#pragma once

#include <QRect>

namespace commtest {

// A window before the user has moved it.
struct FirstGeometry {
    QRect place;     // of its contents, without the frame
    QSize smallest;  // it may not be made smaller
};

// What the design wants of a window: its first size, and the size below which its contents scroll.
inline constexpr QSize kFirstSize(1366, 700);
inline constexpr QSize kSmallestContents(880, 446);

// Within the area of a screen that no panel takes, frame and all, in the middle; where the area is smaller
// than the smallest contents, the window fills it. Logical pixels.
FirstGeometry FirstGeometryIn(const QRect& free);

}  // namespace commtest
