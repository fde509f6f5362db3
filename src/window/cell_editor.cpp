#include "window/cell_editor.h"

#include <QKeyEvent>
#include <algorithm>

#include "commissioning/write_watch.h"
#include "host_qt/words.h"
#include "session/grid_editing.h"
#include "window/bindings.h"
#include "window/editor_hint.h"
#include "window/grid_view.h"
#include "window/look.h"
#include "window/theme.h"
#include "window/write_words.h"

namespace commtest {

using namespace Qt::StringLiterals;

CellEditor::CellEditor(Binder& binder, const Theme& theme, GridView& grid, WriteWatch& writes, QWidget* page)
    : QLineEdit(grid.viewport()),
      binder_(binder),
      grid_(grid),
      writes_(writes),
      hint_(new EditorHint(theme, page)) {
    SetLook(*this, Look::CellEditor);
    setAccessibleName(Words::tr("修改值"));
    setFont(Theme::MonoFont());
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Bind(binder, binder.Form().InputText, *this);
    WhenLeft(*this, [this] { Hide(); });
    connect(this, &QLineEdit::textChanged, this, &CellEditor::Judge);
    binder.AtEachLook([this] { FollowCell(); });
}

// One pixel higher than the cell, to cover the edge of the row above.
void CellEditor::Place() {
    setGeometry(grid_.visualRect(cell_).adjusted(0, -1, 0, 0));
    const QWidget* page = hint_->parentWidget();
    const auto onPage = [page](const QWidget& widget) {
        return QRect(widget.mapTo(page, QPoint(0, 0)), widget.size());
    };
    hint_->PlaceAt(onPage(*this), onPage(*grid_.viewport()));
}

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
    setAccessibleName(
        Words::tr("修改值 %1").arg(QModelIndex(cell_).siblingAtColumn(column::kName).data().toString()));
    Judge();
    Place();
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void CellEditor::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    hint_->hide();
}

// A sign or a point alone is not finished yet.
void CellEditor::Judge() {
    hasWarned_ = false;
    if (isHidden() || !cell_.isValid()) return;
    const bool isFinished = std::ranges::any_of(text(), [](QChar c) { return !u"+-. "_s.contains(c); });
    const Text entry = text().toStdU16String();
    ShowHint(isFinished ? ObjectionToEntry(binder_.Form(), cell_.row() + 1, entry) : std::nullopt);
}

void CellEditor::ShowHint(const std::optional<WriteCheck>& objection) {
    const MainForm& form = binder_.Form();
    const int row = cell_.row() + 1;
    const QString keys = hasWarned_ ? Words::tr("再按一次回车仍写入，Esc 放弃") : QString();
    hint_->Say(WordsOnLimits(form, row), objection ? WordsOnObjection(form, row, *objection) : QString(),
               keys);
    setAccessibleDescription(hint_->Words());
    Place();
}

// What is no number, or has no code at all, never leaves.
bool CellEditor::MayEnter() {
    const auto objection = ObjectionToEntry(binder_.Form(), cell_.row() + 1, text().toStdU16String());
    if (!objection || (hasWarned_ && objection->CanLeave())) return true;
    hasWarned_ = objection->CanLeave();
    ShowHint(objection);
    return false;
}

// A reply may have moved the current cell away from the one that is edited.
void CellEditor::Enter() {
    const int row = cell_.row() + 1;
    binder_.Event([this, row] {
        MainForm& form = binder_.Form();
        form.ParameterGrid().Select(row, column::kNewValue);
        InputText_KeyDown(form, key::kEnter);
        writes_.Begin(row);
    });
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter && event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (isEnter) {
        if (MayEnter()) Enter();
    } else {
        binder_.Event([this] { InputText_KeyDown(binder_.Form(), key::kEscape); });
    }
    if (isHidden()) grid_.setFocus();
}

}  // namespace commtest
