#include "window/grid_header.h"

#include <QPainter>

#include "window/grid_columns.h"

namespace commtest {

namespace {

constexpr int kHeight = 26;
constexpr int kPadding = 8;
constexpr int kNarrowestColumn = 24;

}  // namespace

GridHeader::GridHeader(const Grid& grid, int index, const Theme& theme, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), grid_(grid), index_(index), theme_(theme) {
    setFixedHeight(kHeight);
    setMinimumSectionSize(kNarrowestColumn);
    setSectionResizeMode(QHeaderView::Interactive);
    setFont(Theme::CaptionFont());
    connect(&theme, &Theme::Changed, viewport(), qOverload<>(&QWidget::update));
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    if (column >= grid_.Cols()) return;
    const Tokens& tokens = theme_.Now();
    painter->fillRect(rect, tokens.header);
    painter->setPen(tokens.line);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    if (LookOfColumn(index_, column).endsGroup) painter->drawLine(rect.topRight(), rect.bottomRight());
    const bool isCurrent = grid_.Row > 0 && grid_.Col == column;
    const QRect room = rect.adjusted(kPadding, 0, -kPadding, 0);
    const QString heading = model()->headerData(column, Qt::Horizontal).toString();
    painter->setFont(font());
    painter->setPen(isCurrent ? tokens.accent : tokens.text2);
    painter->drawText(room, static_cast<int>(AlignmentOf(grid_.Column(column))) | Qt::TextSingleLine,
                      fontMetrics().elidedText(heading, Qt::ElideRight, room.width()));
}

}  // namespace commtest
