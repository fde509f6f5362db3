#include "window/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "commands/list_clicks.h"
#include "commands/operation_menus.h"
#include "host_qt/words.h"
#include "session/cell_explanation.h"
#include "session/grid_editing.h"
#include "session/grid_rows.h"
#include "window/column_menu.h"
#include "window/grid_delegate.h"
#include "window/grid_header.h"
#include "window/grid_model.h"
#include "window/nothing_found.h"
#include "window/second_click.h"

namespace commtest {

namespace {

constexpr int kWheelStep = 120;
constexpr int kChipList = 3;

QString NameOf(int index) {
    switch (index) {
        case 0: return Words::tr("参数表");
        case 1: return Words::tr("仪表清单");
        case 2: return Words::tr("演示数据");
        default: return Words::tr("芯片清单");
    }
}

Grid& GridOf(Binder& binder, int index) {
    return binder.Form().MSHFlexGrid1[static_cast<std::size_t>(index)];
}

bool IsReading(int col) { return col >= column::kSingleRead && col <= column::kScaledValue; }

}  // namespace

GridView::GridView(Binder& binder, const Theme& theme, int index, QWidget* parent, ScrollHold::Clock clock)
    : FrozenTable(new GridHeader(GridOf(binder, index), index, theme, nullptr), theme, parent),
      binder_(binder),
      form_(binder.Form()),
      grid_(GridOf(binder, index)),
      index_(index),
      theme_(theme),
      widths_(grid_, index, FaceOf(binder.Form()).layout),
      model_(new GridModel(grid_, this, index == 0)),
      flash_(new CellFlash([this](CellFlash::Cell cell) { UpdateCell(cell.first, cell.second); }, this)),
      delegate_(new GridDelegate(form_, index, theme, *flash_, this)),
      filter_(grid_, index),
      nothingFound_(new NothingFound(viewport())),
      hold_(std::move(clock)),
      secondClick_(new SecondClick(this)) {
    setModel(model_);
    delegate_->UseFilter(filter_);
    setItemDelegate(delegate_);
    setAccessibleName(NameOf(index));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, &GridView::ScrolledByUser);
    for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &GridView::HideEditor);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int col, int, int width) {
        if (!isFitting_) widths_.SetByUser(col, width);
    });
    // The first of equal neighbours in view has the text.
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(), [this] {
        if (delegate_->Merges()) viewport()->update();
    });
    // A press on a heading does not mark its column.
    disconnect(&Header(), &QHeaderView::sectionPressed, this, nullptr);
    disconnect(&Header(), &QHeaderView::sectionEntered, this, nullptr);
    connect(&Header(), &QHeaderView::sectionClicked, this, &GridView::OrderBy);
    connect(&Header(), &GridHeader::MenuWanted, this, &GridView::PopUpColumnMenu);
    connect(nothingFound_, &NothingFound::ClearWanted, this, [this] { FilterBy({}); });
    connect(&theme, &Theme::Changed, viewport(), qOverload<>(&QWidget::update));
    BeginAnew();
    binder.AtEachLook([this] { Follow(); });
}

// --- What the grid says ---

void GridView::Follow() {
    if (!grid_.Redraw) {
        if (frozen_.isNull()) frozen_ = viewport()->grab();
        return;
    }
    Thaw();
    const QScopedValueRollback following(isFollowing_, true);
    if (generation_ != grid_.Generation()) FollowCells();
    FollowTopRow();
    FollowCurrentCell();
    FollowReadRow();
}

void GridView::Thaw() {
    if (frozen_.isNull()) return;
    frozen_ = {};
    viewport()->update();
}

void GridView::FollowCells() {
    generation_ = grid_.Generation();
    if (epoch_ != grid_.Epoch()) BeginAnew();
    if (order_.IsOn()) FollowOrder();
    if (filter_.IsOn()) FollowFilter();
    CompareCells();
}

void GridView::FollowOrder() {
    model_->Order(order_.IsOn() ? order_.RowsOf(grid_) : std::vector<int>());
    shown_.clear();
    shownRow_ = -1;  // the current cell stands at another place
}

void GridView::OrderBy(int col) {
    if (index_ == 0) return;
    order_.Turn(col);
    Header().ShowOrder(order_);
    model_->TellOrder(order_);
    FollowOrder();
    if (filter_.IsOn()) FollowFilter();
    shownTopRow_ = grid_.TopRow = 1;
    verticalScrollBar()->setValue(0);
    binder_.Look();
    viewport()->update();
}

// Another instrument: nothing of what was shown is left.
void GridView::BeginAnew() {
    epoch_ = grid_.Epoch();
    model_->Follow();
    executeDelayedItemsLayout();
    flash_->PutOut();
    shown_.clear();
    shownTopRow_ = grid_.TopRow;
    verticalScrollBar()->setValue(PlaceOfRow(shownTopRow_ - 1));
    widths_.BeginAnew();
    FitColumns();
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

int GridView::FirstRow() const { return RowOfPlace(verticalScrollBar()->value()) + 1; }

int GridView::LastRowInView() const {
    const int row = rowAt(viewport()->height() - 1);
    return row < 0 ? LastRow(grid_) : row + 1;
}

void GridView::CompareCells() {
    const int first = FirstRow();
    const int last = LastRowInView();
    const int cols = grid_.Cols();
    std::vector<ShownCell> shown;
    shown.reserve(static_cast<std::size_t>(std::max(last - first + 1, 0) * cols));
    const int shownEnd = shownFirst_ + static_cast<int>(shown_.size()) / std::max(cols, 1);
    for (int row = first; row <= last; ++row) {
        const bool wasShown = row >= shownFirst_ && row < shownEnd;
        for (int col = 0; col < cols; ++col) {
            ShownCell cell;
            if (wasShown)
                cell = std::move(shown_[static_cast<std::size_t>((row - shownFirst_) * cols + col)]);
            NoteCell(cell, model_->GridRow(row - 1), col, !wasShown);
            shown.push_back(std::move(cell));
        }
    }
    shown_ = std::move(shown);
    shownFirst_ = first;
}

void GridView::NoteCell(ShownCell& shown, int row, int col, bool isNew) {
    const Text& text = grid_.Cell(row, col);
    const std::optional<Colour> colour = grid_.GivenColour(row, col);
    if (!isNew && shown.text == text && shown.colour == colour) return;
    const bool isChangedReading =
        !isNew && index_ == 0 && IsReading(col) && !text.empty() && shown.text != text;
    shown = {text, colour};
    if (isChangedReading && style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this)) {
        flash_->Light({row, col});
    } else {
        UpdateCell(row, col);
    }
    if (grid_.Column(col).merge != 0) viewport()->update();
}

HoldReason GridView::Holds() {
    if (index_ != 0) return HoldReason::None;
    return hold_.Reason(form_.InputText.Visible(), isVisible() && (underMouse() || !menu_.isNull()));
}

void GridView::FollowTopRow() {
    if (shownTopRow_ != grid_.TopRow && Holds() == HoldReason::None) ShowTopRow();
}

void GridView::ShowTopRow() {
    shownTopRow_ = grid_.TopRow;
    verticalScrollBar()->setValue(PlaceOfRow(shownTopRow_ - 1));
    CompareCells();
}

void GridView::FollowCurrentCell() {
    if (shownRow_ == grid_.Row && shownCol_ == grid_.Col) return;
    UpdateRow(shownRow_);
    shownRow_ = grid_.Row;
    shownCol_ = grid_.Col;
    delegate_->ShowCurrentCell(shownRow_, shownCol_);
    UpdateRow(shownRow_);
    horizontalHeader()->viewport()->update();
    const QModelIndex current = model_->CellOf(grid_.Row, grid_.Col);
    if (current == currentIndex()) return;
    if (current.isValid()) {
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
    } else {
        selectionModel()->clear();  // it stands on the headings
    }
}

void GridView::FollowReadRow() {
    if (index_ != 0 || shownReadRow_ == form_.CurrentRow) return;
    UpdateCell(shownReadRow_, column::kNumber);
    shownReadRow_ = form_.CurrentRow;
    delegate_->ShowReadRow(shownReadRow_);
    UpdateCell(shownReadRow_, column::kNumber);
}

void GridView::UpdateCell(int row, int col) { update(model_->CellOf(row, col)); }

void GridView::UpdateRow(int row) {
    for (int col = 0; col < model_->columnCount(); ++col) UpdateCell(row, col);
}

void GridView::ShowWrites(const WriteWatch& writes) {
    model_->TellWrites(form_, writes);
    delegate_->ShowWrites(writes);
}

void GridView::ShowWrite(int row) { model_->WriteChanged(row); }

void GridView::FilterBy(const QString& words) {
    filter_.LookFor(words);
    FollowFilter();
    verticalScrollBar()->setValue(filter_.IsOn() ? 0 : PlaceOfRow(shownTopRow_ - 1));
    CompareCells();
    viewport()->update();
}

void GridView::StepIntoRows() {
    const QModelIndex current = currentIndex();
    if (current.isValid() && !isRowHidden(current.row())) return;
    const int row = RowOfPlace(0);
    if (!isRowHidden(row)) setCurrentIndex(model_->index(row, column::kName));
}

void GridView::FollowFilter() {
    const int rows = std::min(model_->rowCount(), LastRow(grid_));
    for (int row = 0; row < rows; ++row) {
        const bool isHidden = !filter_.Fits(model_->GridRow(row));
        if (isHidden != isRowHidden(row)) setRowHidden(row, isHidden);
    }
    updateGeometries();
    nothingFound_->Show(filter_.IsOn() && rows > 0 && verticalHeader()->hiddenSectionCount() == rows, index_,
                        filter_.Words());
    emit FilterChanged();
}

// --- Columns ---

// The style would not have a row lower than a high font likes it.
void GridView::SetRowHeight(int pixels) {
    verticalHeader()->setMinimumSectionSize(pixels);
    verticalHeader()->setDefaultSectionSize(pixels);
}

void GridView::FitColumns() {
    const QScopedValueRollback fitting(isFitting_, true);
    int col = 0;
    for (const int width : widths_.InRoom(viewport()->width())) {
        setColumnHidden(col, widths_.IsHidden(col));
        if (!widths_.IsHidden(col)) horizontalHeader()->resizeSection(col, width);
        ++col;
    }
}

void GridView::PopUpColumnMenu(int col, QPoint globalPosition) {
    menu_ = MakeColumnMenu(
        grid_, index_, col, widths_, [this] { FitColumns(); }, this);
    if (index_ != 0 && col >= 0)
        menu_->addAction(Words::tr("按此列排序"), this, [this, col] { OrderBy(col); });
    menu_->popup(globalPosition);
}

void GridView::RestoreWidths(const QByteArray& saved) {
    widths_.Restore(saved);
    FitColumns();
}

// An empty list says that it is one.
void GridView::paintEvent(QPaintEvent* event) {
    if (!frozen_.isNull()) {
        QPainter(viewport()).drawPixmap(0, 0, frozen_);
        return;
    }
    FrozenTable::paintEvent(event);
    if (model_->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(theme_.Now().text2);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, Words::tr("没有数据"));
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
    nothingFound_->setGeometry(viewport()->rect());
    verticalScrollBar()->setValue(PlaceOfRow(shownTopRow_ - 1));
}

// --- What the user does ---

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    setAttribute(Qt::WA_InputMethodEnabled);  // names are typed to find them
    if (isFollowing_ || !current.isValid()) return;
    if (!pressed_.isValid()) Reveal(current);  // under the pointer it stays where it is
    binder_.Event([&] {
        grid_.Select(model_->GridRow(current.row()), current.column());
        if (index_ == kChipList && current.row() != previous.row()) MSHFlexGrid1_Click(form_, index_);
    });
}

// The focus alone does not move the current cell.
void GridView::focusInEvent(QFocusEvent* event) { QAbstractScrollArea::focusInEvent(event); }

void GridView::mousePressEvent(QMouseEvent* event) {
    pressed_ = {};
    if (event->button() != Qt::LeftButton) return;  // the current cell stays
    pressed_ = indexAt(event->position().toPoint());
    QTableView::mousePressEvent(event);
}

// The second press of a double click on a grid that stays is no click of its own.
void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) QTableView::mousePressEvent(event);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const QModelIndex pressed = std::exchange(pressed_, {});
    const bool isClick = event->button() == Qt::LeftButton && pressed.isValid() &&
                         pressed == indexAt(event->position().toPoint());
    if (!isClick) return;
    // The polling may have moved the current cell since the press.
    ExplainCell(pressed);
    Reveal(pressed);
    Click(event->globalPosition().toPoint());
}

void GridView::ExplainCell(const QModelIndex& cell) {
    const RecordPane& explanation = form_.Explanation();
    const std::uint64_t before = explanation.Generation();
    binder_.Event([&] {
        grid_.Select(model_->GridRow(cell.row()), cell.column());
        MSHFlexGrid1_MouseUp(form_, index_);
    });
    if (explanation.Generation() != before) emit Explained(cell.row() + 1);
}

// Brings the whole of a cell into view.
void GridView::Reveal(const QModelIndex& cell) {
    scrollTo(cell);
    ScrolledByUser();
}

void GridView::Click(QPoint globalPosition) {
    binder_.Event([this] { MSHFlexGrid1_Click(form_, index_); });
    if (index_ == 1 || index_ == 2) {
        secondClick_->Await(globalPosition,
                            [this] { binder_.Event([this] { MSHFlexGrid1_DblClick(form_, index_); }); });
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const bool isClick =
        event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy)) {
        CopySelection();
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        PopUpMenu(PlaceOfCurrentCell());
    } else if (event->key() == Qt::Key_F10 &&
               event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        PopUpColumnMenu(grid_.Col, Header().PlaceBelow(grid_.Col));
    } else if (isClick) {
        if (!currentIndex().isValid()) return;
        ExplainCell(currentIndex());
        Reveal(currentIndex());
        binder_.Event([this] { MSHFlexGrid1_Click(form_, index_); });
    } else {
        QTableView::keyPressEvent(event);
    }
}

void GridView::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() == 0) {
        QTableView::wheelEvent(event);
        return;
    }
    wheelTravel_ += event->angleDelta().y();
    for (; std::abs(wheelTravel_) >= kWheelStep; wheelTravel_ -= wheelTravel_ > 0 ? kWheelStep : -kWheelStep)
        TurnByStep();
    event->accept();
}

void GridView::TurnByStep() {
    const int next = verticalScrollBar()->value() + (wheelTravel_ > 0 ? -1 : 1);
    binder_.Event([this, next] {
        grid_.TopRow = FirstRow();
        Obj_MouseWheel(form_, index_, wheelTravel_);
        if (filter_.IsOn()) grid_.TopRow = RowOfPlace(std::max(next, 0)) + 1;
    });
    hold_.NoteScroll();
    if (grid_.Redraw) ShowTopRow();
}

void GridView::ScrolledByUser() {
    const int topRow = RowOfPlace(verticalScrollBar()->sliderPosition()) + 1;
    if (topRow == FirstRow() && topRow == shownTopRow_) return;
    binder_.Event([this, topRow] {
        grid_.TopRow = topRow;
        MSHFlexGrid1_Scroll(form_, index_);
    });
    hold_.NoteScroll();
    if (grid_.Redraw) ShowTopRow();
}

void GridView::HideEditor() {
    if (index_ == 0 && form_.InputText.Visible())
        binder_.Event([this] { MSHFlexGrid1_Scroll(form_, index_); });
}

void GridView::keyboardSearch(const QString& typed) {
    TypedSearch::Table table{model_->rowCount(),
                             [this](int row) { return !isRowHidden(row); },
                             [this](int row, int col) { return model_->index(row, col).data().toString(); },
                             {std::max(grid_.Col, 0)}};
    for (int col = 1; col < model_->columnCount(); ++col) {
        if (!isColumnHidden(col)) table.columns.push_back(col);
    }
    table.columns.push_back(0);
    const int row = typed_.Type(typed, currentIndex().row(), table);
    if (row >= 0) setCurrentIndex(model_->index(row, std::max(grid_.Col, 0)));
}

void GridView::CopySelection() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) return;
    const QItemSelectionRange& range = selection.first();
    QStringList rows;
    for (int row = range.top(); row <= range.bottom(); ++row) {
        if (isRowHidden(row)) continue;
        QStringList cells;
        for (int col = range.left(); col <= range.right(); ++col) {
            if (!isColumnHidden(col)) cells += model_->index(row, col).data().toString();
        }
        rows += cells.join(u'\t');
    }
    QApplication::clipboard()->setText(rows.join(u'\n'));
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Mouse) {
        const int row = rowAt(event->pos().y());
        PopUpMenu(event->globalPos(), row < 0 ? 0 : model_->GridRow(row));
    } else {
        PopUpMenu(PlaceOfCurrentCell());
    }
}

QPoint GridView::PlaceOfCurrentCell() const {
    return viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
}

void GridView::PopUpMenu(QPoint globalPosition) { PopUpMenu(globalPosition, grid_.Row); }

void GridView::PopUpMenu(QPoint globalPosition, int row) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddFixedEntries(*menu, row);
    AddOwnEntries(*menu, row);
    if (menu->isEmpty()) return menu->deleteLater();
    menu_ = menu;
    menu->popup(globalPosition);
}

void GridView::AddFixedEntries(QMenu& menu, int row) {
    for (const MenuEntry& entry : EntriesOfGrid(form_, index_)) {
        if (entry.caption.empty()) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(QString::fromUtf16(entry.caption.data(), std::ssize(entry.caption)));
        action->setEnabled(entry.enabled);
        action->setCheckable(entry.isInForce);
        action->setChecked(entry.isInForce);
        connect(action, &QAction::triggered, this, [this, entry, row] {
            binder_.Event([&] {
                if (entry.takesRow && row > 0) form_.CurrentRow = static_cast<std::int16_t>(row);
                ChooseGridMenuEntry(form_, index_, entry.index, row);
            });
        });
    }
}

void GridView::AddOwnEntries(QMenu& menu, int row) {
    if (!additions_.isEmpty()) menu.addSeparator();
    for (const MenuAddition& addition : additions_) {
        QAction* action = menu.addAction(addition.caption);
        action->setEnabled(row > 0 || !addition.takesRow);
        connect(action, &QAction::triggered, this, [addition, row] { addition.choose(row); });
    }
}

}  // namespace commtest
