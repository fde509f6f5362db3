#pragma once

#include <QLineEdit>
#include <QPersistentModelIndex>

#include "window/binder.h"

namespace commtest {

class GridView;

// InputText: the editor over a cell of the parameter grid. It belongs to the view of the grid.
class CellEditor : public QLineEdit {
    Q_OBJECT

  public:
    CellEditor(Binder& binder, GridView& grid);

    // Over the current cell, with the focus and all of its text selected.
    void TakeFocus();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Place();
    void Hide();
    void FollowCell();

    Binder& binder_;
    GridView& grid_;
    QPersistentModelIndex cell_;
};

}  // namespace commtest
