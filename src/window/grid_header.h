#pragma once

#include <QHeaderView>

#include "session/main_form.h"
#include "window/frozen_columns.h"
#include "window/row_order.h"
#include "window/theme.h"

namespace commtest {

// The headings of MSHFlexGrid1(index); of the parameters the one of the current cell's column is marked, of a
// list the one that it is ordered by.
class GridHeader : public QHeaderView {
    Q_OBJECT

  public:
    GridHeader(const Grid& grid, int index, const Theme& theme, QWidget* parent);

    const FrozenColumns& Frozen() const { return frozen_; }

    // The list is shown in the order of a column, which its heading tells.
    void ShowOrder(const RowOrder& order);

    // Below the heading of a column, on the screen.
    QPoint PlaceBelow(int col) const;

  signals:
    void MenuWanted(int col, QPoint globalPosition);  // -1 beside the columns

  protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void PaintArrow(QPainter& painter, int left) const;
    int ShiftOfPointer(int x) const;
    QMouseEvent Shifted(const QMouseEvent& event) const;

    const Grid& grid_;
    int index_;
    const Theme& theme_;
    FrozenColumns frozen_;
    RowOrder order_;
    int shift_ = 0;  // of the column that the pointer went down on
};

}  // namespace commtest
