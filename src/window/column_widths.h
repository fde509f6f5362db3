#pragma once

#include <QByteArray>
#include <vector>

#include "controls/grid.h"

namespace commtest {

// The widths of the columns of MSHFlexGrid1(index), in logical pixels. Each has a smallest width; what the
// room leaves over goes to the widths of the catalogue first, then by weight. A width that the user has set
// stays.
class ColumnWidths {
  public:
    ColumnWidths(const Grid& grid, int index);

    // The grid has other columns or other texts. Lists whose columns the catalogue does not lay out are
    // measured.
    void BeginAnew();

    void SetByUser(int col, int width);

    std::vector<int> InRoom(int room) const;

    // The widths that the user has set.
    QByteArray Save() const;
    void Restore(const QByteArray& saved);

  private:
    struct Column {
        int smallest = 0;
        int wanted = 0;
        int weight = 0;
        int byUser = 0;  // 0 if the user has set none
    };

    int WidthOfTexts(int col) const;

    const Grid& grid_;
    int index_;
    std::vector<Column> columns_;
};

}  // namespace commtest
