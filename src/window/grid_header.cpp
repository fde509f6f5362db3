#include "window/grid_header.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include "window/baseline.h"
#include "window/grid_columns.h"

namespace commtest {

namespace {

constexpr int kHeight = 26;
constexpr int kPadding = 8;
constexpr int kNarrowestColumn = 24;
constexpr int kArrowGap = 6;
constexpr int kArrowHeight = 4;  // half its width
constexpr int kRoomOfArrow = kArrowGap + 2 * kArrowHeight;

}  // namespace

GridHeader::GridHeader(const Grid& grid, int index, const Theme& theme, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent),
      grid_(grid),
      index_(index),
      theme_(theme),
      frozen_(*this, index == 0) {
    setFixedHeight(kHeight);
    setMinimumSectionSize(kNarrowestColumn);
    setSectionResizeMode(QHeaderView::Interactive);
    setSectionsClickable(index != 0);
    setFont(Theme::CaptionFont());
    connect(&theme, &Theme::Changed, viewport(), qOverload<>(&QWidget::update));
}

QPoint GridHeader::PlaceBelow(int col) const {
    return viewport()->mapToGlobal(QPoint(frozen_.PlaceOf(col), viewport()->height()));
}

void GridHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    if (!frozen_.LieOver()) return;
    QPainter painter(viewport());
    for (const int col : FrozenColumns::kColumns)
        paintSection(&painter, {frozen_.PlaceOf(col), 0, sectionSize(col), viewport()->height()}, col);
    frozen_.PaintEdges(painter, theme_.Now());
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    if (column >= grid_.Cols()) return;
    const Tokens& tokens = theme_.Now();
    painter->fillRect(rect, tokens.header);
    painter->setPen(tokens.line);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    if (LookOfColumn(index_, column).endsGroup) painter->drawLine(rect.topRight(), rect.bottomRight());
    const bool isOrdered = order_.column == column;
    const bool isMarked = isOrdered || (index_ == 0 && grid_.Row > 0 && grid_.Col == column);
    const QRect room = rect.adjusted(kPadding, 0, -kPadding - (isOrdered ? kRoomOfArrow : 0), 0);
    const QString heading = model()->headerData(column, Qt::Horizontal).toString();
    painter->setFont(font());
    painter->setPen(isMarked ? tokens.accent : tokens.text2);
    const QString shown = fontMetrics().elidedText(heading, Qt::ElideRight, room.width());
    painter->drawText(LineInRow(room, fontMetrics()), SideOf(grid_.Column(column)) | Qt::TextSingleLine,
                      shown);
    if (isOrdered) PaintArrow(*painter, room.left() + fontMetrics().horizontalAdvance(shown) + kArrowGap);
}

void GridHeader::PaintArrow(QPainter& painter, int left) const {
    const int middle = viewport()->height() / 2;
    const int tip = order_.isDescending ? middle + kArrowHeight / 2 : middle - kArrowHeight / 2;
    const int ends = 2 * middle - tip;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme_.Now().accent, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{QPointF(left, ends), QPointF(left + kArrowHeight, tip),
                                   QPointF(left + 2 * kArrowHeight, ends)});
    painter.restore();
}

void GridHeader::ShowOrder(const RowOrder& order) {
    order_ = order;
    viewport()->update();
}

// --- The pointer: it acts on the frozen columns where they are seen ---

// The edge over the columns that scroll underneath is the handle of none of them.
int GridHeader::ShiftOfPointer(int x) const {
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this) + 1;
    const bool isAtEdge = frozen_.LieOver() && x >= frozen_.RightEdge() && x < frozen_.RightEdge() + grip;
    return frozen_.ShiftAt(x) + (isAtEdge ? grip : 0);
}

QMouseEvent GridHeader::Shifted(const QMouseEvent& event) const {
    return {event.type(),           event.position() + QPointF(shift_, 0),
            event.globalPosition(), event.button(),
            event.buttons(),        event.modifiers(),
            event.pointingDevice()};
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
    shift_ = ShiftOfPointer(event->position().toPoint().x());
    QMouseEvent shifted = Shifted(*event);
    QHeaderView::mousePressEvent(&shifted);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) shift_ = ShiftOfPointer(event->position().toPoint().x());
    QMouseEvent shifted = Shifted(*event);
    QHeaderView::mouseMoveEvent(&shifted);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent shifted = Shifted(*event);
    QHeaderView::mouseReleaseEvent(&shifted);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    QMouseEvent shifted = Shifted(*event);
    QHeaderView::mouseDoubleClickEvent(&shifted);
}

void GridHeader::contextMenuEvent(QContextMenuEvent* event) {
    const int x = event->pos().x();
    emit MenuWanted(logicalIndexAt(x + frozen_.ShiftAt(x)), event->globalPos());
}

}  // namespace commtest
