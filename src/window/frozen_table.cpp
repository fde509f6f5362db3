#include "window/frozen_table.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace commtest {

FrozenTable::FrozenTable(GridHeader* header, const Theme& theme, QWidget* parent)
    : QTableView(parent), header_(header), theme_(theme) {
    setHorizontalHeader(header);
    // The pixels of the frozen columns do not travel with the others.
    const auto showAnew = [this] {
        if (!Frozen().LieOver()) return;
        viewport()->update();
        header_->viewport()->update();
    };
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, showAnew);
    connect(header, &QHeaderView::sectionResized, this, showAnew);
    // What lies behind need not be painted for the sake of a cell.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

QRect FrozenTable::visualRect(const QModelIndex& index) const {
    QRect cell = QTableView::visualRect(index);
    if (cell.isValid()) cell.moveLeft(Frozen().PlaceOf(index.column()));
    return cell;
}

QModelIndex FrozenTable::indexAt(const QPoint& point) const {
    return QTableView::indexAt({point.x() + Frozen().ShiftAt(point.x()), point.y()});
}

void FrozenTable::scrollTo(const QModelIndex& index, ScrollHint) {
    if (!index.isValid() || isRowHidden(index.row()) || isColumnHidden(index.column())) return;
    ScrollToRow(index.row());
    ScrollToColumn(index.column());
}

void FrozenTable::ScrollToRow(int row) {
    const int top = rowViewportPosition(row);
    const int height = rowHeight(row);
    const int place = PlaceOfRow(row);
    if (top < 0) {
        verticalScrollBar()->setValue(place);
    } else if (top + height > viewport()->height()) {
        verticalScrollBar()->setValue(place + 1 - std::max(viewport()->height() / height, 1));
    }
}

void FrozenTable::ScrollToColumn(int col) {
    if (Frozen().Holds(col)) return;
    const int left = columnViewportPosition(col);
    const int missingLeft = Frozen().LeftEdge() - left;
    const int missingRight = left + columnWidth(col) - Frozen().RightEdge();
    if (missingLeft > 0) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - missingLeft);
    } else if (missingRight > 0) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                        std::min(missingRight, -missingLeft));
    }
}

int FrozenTable::PlaceOfRow(int row) const {
    int place = row;
    if (!verticalHeader()->sectionsHidden()) return place;
    for (int before = 0; before < row; ++before) place -= isRowHidden(before);
    return place;
}

int FrozenTable::RowOfPlace(int place) const {
    if (!verticalHeader()->sectionsHidden()) return place;
    const int rows = verticalHeader()->count();
    int row = 0;
    for (; row < rows; ++row) {
        if (!isRowHidden(row) && place-- <= 0) break;
    }
    return std::min(row, rows - 1);
}

// A cell may be seen at another place than where it stands among the others.
QRegion FrozenTable::visualRegionForSelection(const QItemSelection& selection) const {
    return Frozen().LieOver() ? viewport()->rect() : QTableView::visualRegionForSelection(selection);
}

void FrozenTable::paintEvent(QPaintEvent* event) {
    QPainter(viewport()).fillRect(event->rect(), theme_.Now().surface);
    QTableView::paintEvent(event);
    if (!Frozen().LieOver()) return;
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QRect dirty = event->region().boundingRect();
    const int first = rowAt(dirty.top());
    const int last = rowAt(dirty.bottom());
    for (int row = first; first >= 0 && row < model()->rowCount() && (last < 0 || row <= last); ++row) {
        for (const int col : FrozenColumns::kColumns) {
            const QModelIndex index = model()->index(row, col);
            option.rect = visualRect(index);
            if (!option.rect.intersects(dirty)) continue;
            option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
            itemDelegate()->paint(&painter, option, index);
        }
    }
    Frozen().PaintEdges(painter, theme_.Now());
}

}  // namespace commtest
