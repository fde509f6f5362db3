#include "window/cell_editor.h"

#include <QKeyEvent>

#include "session/grid_editing.h"
#include "window/bindings.h"
#include "window/grid_view.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

CellEditor::CellEditor(Binder& binder, GridView& grid)
    : QLineEdit(grid.viewport()), binder_(binder), grid_(grid) {
    setObjectName(u"cellEditor"_s);
    setAccessibleName(u"修改值"_s);
    setFont(Theme::MonoFont());
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Bind(binder, binder.Form().InputText, *this);
    WhenLeft(*this, [this] { Hide(); });
    binder.AtEachLook([this] { FollowCell(); });
}

// One pixel higher than the cell, to cover the edge of the row above.
void CellEditor::Place() { setGeometry(grid_.visualRect(cell_).adjusted(0, -1, 0, 0)); }

void CellEditor::Hide() {
    binder_.Event([this] { InputText_LostFocus(binder_.Form()); });
}

// The window and the columns change under it, and a reply on its way moves the current cell.
void CellEditor::FollowCell() {
    if (isHidden()) return;
    if (grid_.visualRect(cell_).intersects(grid_.viewport()->rect())) {
        Place();
    } else {
        Hide();
        grid_.setFocus();
    }
}

void CellEditor::TakeFocus() {
    cell_ = grid_.currentIndex();
    Place();
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter && event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const int code = isEnter ? key::kEnter : key::kEscape;
    binder_.Event([this, code] { InputText_KeyDown(binder_.Form(), code); });
    if (isHidden()) grid_.setFocus();
}

}  // namespace commtest
