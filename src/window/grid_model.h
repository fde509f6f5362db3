#pragma once

#include <QAbstractTableModel>

#include "controls/grid.h"

namespace commtest {

// The cells of a grid as a view's model; it keeps no copy of them. Row 0 of the grid is the header, row r + 1
// is row r of the model.
class GridModel : public QAbstractTableModel {
  public:
    GridModel(const Grid& grid, QObject* parent);

    // Takes over the size that the grid has now.
    void Follow();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString TextAt(int row, int col) const;  // in the grid

    const Grid& grid_;
    int rows_;
    int columns_;
};

}  // namespace commtest
