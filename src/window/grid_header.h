#pragma once

#include <QHeaderView>

#include "session/main_form.h"
#include "window/theme.h"

namespace commtest {

// The headings of MSHFlexGrid1(index); the one of the current cell's column is marked.
class GridHeader : public QHeaderView {
    Q_OBJECT

  public:
    GridHeader(const Grid& grid, int index, const Theme& theme, QWidget* parent);

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;

  private:
    const Grid& grid_;
    int index_;
    const Theme& theme_;
};

}  // namespace commtest
