#include "window/column_menu.h"

#include "host_qt/words.h"
#include "window/grid_columns.h"
#include "window/pieces.h"

namespace commtest {

QMenu* MakeColumnMenu(const Grid& grid, int index, int col, ColumnWidths& widths,
                      const std::function<void()>& changed, QWidget* parent) {
    auto* menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto hide = [&widths, changed](int column, bool hidden) {
        widths.Hide(column, hidden);
        changed();
    };
    if (index == 0) {
        QAction* hideThis = menu->addAction(Words::tr("隐藏此列"), parent, [hide, col] { hide(col, true); });
        hideThis->setEnabled(CanBeHidden(index, col));
        menu->addSeparator();
        for (int other = 0; other < grid.Cols(); ++other) {
            if (!CanBeHidden(index, other)) continue;
            QAction* tick = menu->addAction(ToQt(grid.Cell(0, other)).trimmed());
            tick->setCheckable(true);
            tick->setChecked(!widths.IsHidden(other));
            QObject::connect(tick, &QAction::triggered, parent,
                             [hide, other](bool shown) { hide(other, !shown); });
        }
        menu->addSeparator();
    }
    menu->addAction(Words::tr("恢复列宽"), parent, [&widths, changed] {
        widths.Reset();
        changed();
    });
    return menu;
}

}  // namespace commtest
