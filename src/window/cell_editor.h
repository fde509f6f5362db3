#pragma once

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <optional>

#include "commissioning/write_check.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class EditorHint;
class GridView;
class WriteWatch;

// InputText: the editor over a cell of the parameter grid. It belongs to the view of the grid. A text that
// should not be written is objected to at once; Enter then warns first, and writes when it is pressed again.
class CellEditor : public QLineEdit {
    Q_OBJECT

  public:
    // Its hint may lie over all of `page`.
    CellEditor(Binder& binder, const Theme& theme, GridView& grid, WriteWatch& writes, QWidget* page);

    // Over the current cell, with the focus and all of its text selected.
    void TakeFocus();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void Place();
    void Hide();
    void FollowCell();
    bool MayEnter();
    void Enter();
    void Judge();
    void ShowHint(const std::optional<WriteCheck>& objection);

    Binder& binder_;
    GridView& grid_;
    WriteWatch& writes_;
    EditorHint* hint_;
    QPersistentModelIndex cell_;
    bool hasWarned_ = false;  // of the text as it stands, by an Enter
};

}  // namespace commtest
