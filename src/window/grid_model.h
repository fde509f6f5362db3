#pragma once

#include <QAbstractTableModel>

#include "controls/grid.h"

namespace commtest {

class MainForm;
class WriteWatch;

// The cells of a grid as a view's model; it keeps no copy of them. Row 0 of the grid is the header, row r + 1
// is row r of the model. Of a grid that numbers its rows, a row whose number was emptied shows it all the
// same.
class GridModel : public QAbstractTableModel {
  public:
    GridModel(const Grid& grid, QObject* parent, bool numbersRows = false);

    // Takes over the size that the grid has now.
    void Follow();

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
};

}  // namespace commtest
