#pragma once

#include <QTableView>

#include "window/grid_header.h"
#include "window/theme.h"

namespace commtest {

// A table whose frozen columns lie over the others. It answers for each cell where it is seen, for the
// pointer, the editor over a cell and those who hear the table alike. All rows are equally high; some may be
// hidden.
class FrozenTable : public QTableView {
    Q_OBJECT

  public:
    FrozenTable(GridHeader* header, const Theme& theme, QWidget* parent);

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    // Brings the whole of a cell into view, beside the frozen columns.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    const FrozenColumns& Frozen() const { return header_->Frozen(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

    GridHeader& Header() { return *header_; }

    // Rows of the model and places of the scroll bar, which knows only rows that are not hidden.
    int PlaceOfRow(int row) const;
    int RowOfPlace(int place) const;

  private:
    void ScrollToRow(int row);
    void ScrollToColumn(int col);

    GridHeader* header_;
    const Theme& theme_;
};

}  // namespace commtest
