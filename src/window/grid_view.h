#pragma once

#include <QPixmap>
#include <QPointer>
#include <functional>
#include <optional>
#include <vector>

#include "window/binder.h"
#include "window/cell_flash.h"
#include "window/column_widths.h"
#include "window/frozen_table.h"
#include "window/row_filter.h"
#include "window/row_order.h"
#include "window/scroll_hold.h"
#include "window/theme.h"
#include "window/typed_search.h"

class QMenu;

namespace commtest {

class GridDelegate;
class GridModel;
class NothingFound;
class SecondClick;
class WriteWatch;

// MSHFlexGrid1(index). It shows the cells, the current cell and the first row that the grid has, and stands
// still while the grid's redraw is off. The parameters do not scroll on while the user is at them; those
// whose readings have changed light up for a moment.
class GridView : public FrozenTable {
    Q_OBJECT

  public:
    GridView(Binder& binder, const Theme& theme, int index, QWidget* parent,
             ScrollHold::Clock clock = ScrollHold::RunningClock());

    int Index() const { return index_; }

    // Why the first row that the grid has is not brought into view now.
    HoldReason Holds();

    // The right-mouse menu of the current cell.
    void PopUpMenu(QPoint globalPosition);

    // An entry of the window's own below the fixed ones of that menu. It gets the row that the menu is about;
    // without one, 0, an entry that takes a row is dimmed.
    struct MenuAddition {
        QString caption;
        bool takesRow;
        std::function<void(int row)> choose;
    };
    void AddToMenu(const QList<MenuAddition>& additions) { additions_ = additions; }

    void SetRowHeight(int pixels);

    // The cells of column 10 tell what has become of their values.
    void ShowWrites(const WriteWatch& writes);
    void ShowWrite(int row);

    // The columns whose width the user has changed or that he has hidden or shown.
    QByteArray SaveWidths() const { return widths_.Save(); }
    void RestoreWidths(const QByteArray& saved);

    // Shows only the rows that hold the words; all of them where there are none.
    void FilterBy(const QString& words);
    const RowFilter& Filter() const { return filter_; }

    // From the filter into its rows: the current cell goes to the first of them unless it is one.
    void StepIntoRows();

    // A list is shown in the order of a column; once more, in the other direction; then as the grid has it.
    void OrderBy(int col);

    void keyboardSearch(const QString& typed) override;

  signals:
    void FilterChanged();     // or what it finds
    void Explained(int row);  // how the value of that row is reached is told anew

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    struct ShownCell {
        Text text;
        std::optional<Colour> colour;  // given to the cell
    };

    // --- What the grid says ---
    void Follow();
    void Thaw();
    void FollowCells();
    void FollowCurrentCell();
    void FollowReadRow();
    void FollowTopRow();
    void ShowTopRow();
    void BeginAnew();
    void CompareCells();
    void NoteCell(ShownCell& shown, int row, int col, bool isNew);
    int FirstRow() const;  // in view, of the grid
    int LastRowInView() const;
    void UpdateCell(int row, int col);
    void UpdateRow(int row);
    void FollowOrder();
    void FollowFilter();

    void FitColumns();
    void PopUpColumnMenu(int col, QPoint globalPosition);

    // --- What the user does ---
    void ExplainCell(const QModelIndex& cell);
    void Click(QPoint globalPosition);
    void TurnByStep();
    void Reveal(const QModelIndex& cell);
    void ScrolledByUser();
    void HideEditor();
    void CopySelection() const;
    QPoint PlaceOfCurrentCell() const;
    void PopUpMenu(QPoint globalPosition, int row);
    void AddFixedEntries(QMenu& menu, int row);
    void AddOwnEntries(QMenu& menu, int row);

    Binder& binder_;
    MainForm& form_;
    Grid& grid_;
    int index_;
    const Theme& theme_;
    ColumnWidths widths_;
    GridModel* model_;
    CellFlash* flash_;
    GridDelegate* delegate_;
    RowFilter filter_;
    RowOrder order_;
    TypedSearch typed_;
    NothingFound* nothingFound_;
    ScrollHold hold_;
    QPointer<QMenu> menu_;  // while it is open
    QList<MenuAddition> additions_;
    SecondClick* secondClick_;

    // What is on the screen.
    QPixmap frozen_;  // while the redraw is off
    std::uint64_t generation_ = 0;
    std::uint64_t epoch_ = 0;
    std::vector<ShownCell> shown_;  // row by row from shownFirst_ on
    int shownFirst_ = 0;
    int shownRow_ = -1;
    int shownCol_ = -1;
    int shownReadRow_ = -1;
    int shownTopRow_ = 0;
    bool isFollowing_ = false;

    bool isFitting_ = false;
    QModelIndex pressed_;
    int wheelTravel_ = 0;  // eighths of a degree, less than a step
};

}  // namespace commtest
