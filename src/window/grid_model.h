#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "controls/grid.h"
#include "window/row_order.h"

namespace commtest {

class MainForm;
class WriteWatch;

// The cells of a grid as a view's model; it keeps no copy of them. Row 0 of the grid is the header, the
// others are the rows of the model, from 0, in the order that it was told. Of a grid that numbers its rows, a
// row whose number was emptied shows it all the same.
class GridModel : public QAbstractTableModel {
  public:
    GridModel(const Grid& grid, QObject* parent, bool numbersRows = false);

    // Takes over the size that the grid has now; its order is the grid's own then.
    void Follow();

    // Every row of the grid once.
    void Order(std::vector<int> gridRows);
    int GridRow(int row) const;
    QModelIndex CellOf(int gridRow, int col) const;

    // The heading tells it to those who hear it.
    void TellOrder(const RowOrder& order) { told_ = order; }

    // The grid is that of the parameters: its cells of column 10 tell what has become of their values, in
    // their tooltip and to those who hear them.
    void TellWrites(const MainForm& form, const WriteWatch& writes);
    void WriteChanged(int row);  // of the grid

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString TextAt(int row, int col) const;  // in the grid
    QString WordsOnWriteOf(int row) const;   // empty where nothing was written

    const Grid& grid_;
    const MainForm* form_ = nullptr;
    const WriteWatch* writes_ = nullptr;
    bool numbersRows_;
    int rows_;
    int columns_;
    std::vector<int> order_;  // grid row of each row; empty: as the grid has them
    RowOrder told_;
    std::vector<int> places_;  // row of each grid row
};

}  // namespace commtest
