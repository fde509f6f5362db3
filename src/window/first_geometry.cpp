#include "window/first_geometry.h"

namespace commtest {

namespace {

constexpr int kTitleBar = 28;  // of the desktops' usual frames

}  // namespace

FirstGeometry FirstGeometryIn(const QRect& free) {
    const QRect room = free.adjusted(0, kTitleBar, 0, 0);
    QRect place(QPoint(), kFirstSize.boundedTo(room.size()));
    place.moveCenter(room.center());
    return {place, kSmallestContents.boundedTo(room.size())};
}

}  // namespace commtest
