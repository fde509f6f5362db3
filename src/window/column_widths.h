#pragma once

#include <QByteArray>
#include <QList>
#include <vector>

#include "controls/grid.h"
#include "window/window_face.h"

namespace commtest {

// The widths of the columns of MSHFlexGrid1(index), in logical pixels, and which of them are hidden. Each has
// a smallest width; what the room leaves over goes to the widths of the catalogue first, then by weight. A
// width that the user has set stays. A column that the catalogue makes 0 wide is hidden, unless the user has
// decided otherwise.
class ColumnWidths {
  public:
    ColumnWidths(const Grid& grid, int index, const FaceLayout& layout);

    // The grid has other columns or other texts. Lists whose columns the catalogue does not lay out are
    // measured.
    void BeginAnew();

    void SetByUser(int col, int width);

    bool IsHidden(int col) const;
    void Hide(int col, bool hidden);  // nothing where a column cannot be hidden

    // As the catalogue has them, nothing by the user.
    void Reset();

    std::vector<int> InRoom(int room) const;  // 0 for a hidden one

    // What the user has set. A list gets its columns when it is first filled: what was restored
    // waits for them, and counts for as many columns only.
    QByteArray Save() const;
    void Restore(const QByteArray& saved);

  private:
    struct Column {
        int smallest = 0;
        int wanted = 0;
        int weight = 0;
        bool isHidden = false;  // by the catalogue
    };

    enum Choice : qint8 { kOfTheCatalogue, kHidden, kShown };

    int SmallestOf(int col) const;
    int WidthOfTexts(int col) const;

    const Grid& grid_;
    int index_;
    FaceLayout layout_;
    std::vector<Column> columns_;
    QList<qint32> byUser_;  // 0 for a column that the user has not set
    QList<qint8> chosen_;   // a Choice each
};

}  // namespace commtest
