#include "window/style_painting.h"

#include <QIcon>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QIcon& IconOf(Sign sign, bool isDark) {
    static const QIcon kUp(u":/icons/chevron-up.svg"_s);
    static const QIcon kDown(u":/icons/chevron-down.svg"_s);
    static const QIcon kTicks[] = {QIcon(u":/icons/check-on-light.svg"_s),
                                   QIcon(u":/icons/check-on-dark.svg"_s)};
    static const QIcon kMenuTicks[] = {QIcon(u":/icons/menu-tick-light.svg"_s),
                                       QIcon(u":/icons/menu-tick-dark.svg"_s)};
    switch (sign) {
        case Sign::Up: return kUp;
        case Sign::Tick: return kTicks[isDark];
        case Sign::MenuTick: return kMenuTicks[isDark];
        case Sign::Down: break;
    }
    return kDown;
}

}  // namespace

void PaintBox(QPainter& painter, const QRect& box, const QColor& ground, const Edge& edge, int radius) {
    const double half = edge.width / 2.0;
    const bool hasEdge = edge.width > 0 && edge.colour.alpha() > 0;
    if (!hasEdge && ground.alpha() == 0) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasEdge ? QPen(edge.colour, edge.width) : QPen(Qt::NoPen));
    painter.setBrush(ground.alpha() > 0 ? QBrush(ground) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(box).adjusted(half, half, -half, -half), radius - half, radius - half);
    painter.restore();
}

void PaintEdge(QPainter& painter, const QRect& box, const Edge& edge) {
    const int width = edge.width;
    painter.fillRect(box.left(), box.top(), box.width(), width, edge.colour);
    painter.fillRect(box.left(), box.bottom() + 1 - width, box.width(), width, edge.colour);
    const int height = box.height() - 2 * width;
    painter.fillRect(box.left(), box.top() + width, width, height, edge.colour);
    painter.fillRect(box.right() + 1 - width, box.top() + width, width, height, edge.colour);
}

void PaintSign(QPainter& painter, const QRect& place, Sign sign, int size, bool isDark) {
    const QRect middle(place.left() + (place.width() - size) / 2, place.top() + (place.height() - size) / 2,
                       size, size);
    IconOf(sign, isDark).paint(&painter, middle);
}

}  // namespace commtest
