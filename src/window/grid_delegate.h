#pragma once

#include <QStyledItemDelegate>
#include <optional>

#include "commissioning/write_watch.h"
#include "session/main_form.h"
#include "window/cell_flash.h"
#include "window/frame_font.h"
#include "window/laid_out_texts.h"
#include "window/row_filter.h"
#include "window/theme.h"
#include "window/write_words.h"

namespace commtest {

// Paints the cells of MSHFlexGrid1(index), whose model is a GridModel. What a cell says by colour it says by
// a bar, an outline or its text as well.
class GridDelegate : public QStyledItemDelegate {
  public:
    GridDelegate(const MainForm& form, int index, const Theme& theme, const CellFlash& flash,
                 QObject* parent);

    // The grid is that of the parameters: its cells of column 10 show what has become of their values.
    void ShowWrites(const WriteWatch& writes) { writes_ = &writes; }
    // The marks stay where they were told to be, however far the polling has come since: one of each stands.
    void ShowReadRow(int row) { readRow_ = row; }
    void ShowCurrentCell(int row, int col) { current_ = {row, col}; }

    // The words that rows are filtered by are marked where they stand.
    void UseFilter(const RowFilter& filter) { filter_ = &filter; }

    // Whether a column shows equal neighbours once, so that a cell depends on the one above it.
    bool Merges() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    struct Place {
        int row;  // of the grid
        int col;
    };

    bool IsBeingRead(Place place) const;
    bool IsMismatch(Place place) const;
    bool MayBeWritten(Place place) const;
    std::optional<WriteLook> WriteLookOf(Place place) const;
    QColor GroundOf(Place place, bool isSelected, bool isSecond) const;
    QColor InkOf(Place place) const;
    bool RepeatsTheRowAbove(const QRect& cell, Place place) const;
    void PaintHit(QPainter& painter, const QRect& room, Place place, const QString& text) const;
    void PaintText(QPainter& painter, const QRect& cell, Place place, const QString& text) const;
    void PaintGlyph(QPainter& painter, const QRect& cell, const WriteLook& look) const;

    const Grid& grid_;
    int index_;
    const Theme& theme_;
    const CellFlash& flash_;
    const WriteWatch* writes_ = nullptr;
    const RowFilter* filter_ = nullptr;
    int readRow_ = -1;
    Place current_{-1, -1};
    mutable LaidOutTexts uiTexts_{Theme::UiFont()};
    mutable LaidOutTexts codeTexts_{FrameFont()};
};

}  // namespace commtest
