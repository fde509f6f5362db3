#include "window/grid_delegate.h"

#include <QPainter>
#include <algorithm>

#include "session/grid_rows.h"
#include "window/baseline.h"
#include "window/grid_columns.h"
#include "window/grid_model.h"

namespace commtest {

namespace {

constexpr int kPadding = 8;
constexpr int kBarWidth = 3;
constexpr int kGlyphSize = 16;
constexpr int kGlyphGap = 4;

QColor Mixed(const QColor& ground, const QColor& light, double strength) {
    const auto part = [strength](int from, int to) {
        return static_cast<int>(from + (to - from) * strength + 0.5);
    };
    return {part(ground.red(), light.red()), part(ground.green(), light.green()),
            part(ground.blue(), light.blue())};
}

void PaintBar(QPainter& painter, const QRect& cell, const QColor& colour) {
    painter.fillRect(cell.left(), cell.top(), kBarWidth, cell.height(), colour);
}

}  // namespace

GridDelegate::GridDelegate(const MainForm& form, int index, const Theme& theme, const CellFlash& flash,
                           QObject* parent)
    : QStyledItemDelegate(parent),
      grid_(form.MSHFlexGrid1[static_cast<std::size_t>(index)]),
      index_(index),
      theme_(theme),
      flash_(flash) {}

bool GridDelegate::IsBeingRead(Place place) const {
    return index_ == 0 && place.col == column::kNumber && place.row == readRow_;
}

bool GridDelegate::IsMismatch(Place place) const {
    return grid_.CellColour(place.row, place.col) != kWindowBackground;
}

bool GridDelegate::MayBeWritten(Place place) const {
    return index_ == 0 && place.col == column::kNewValue &&
           Contains(grid_.Cell(place.row, column::kAttribute), u"W");
}

std::optional<WriteLook> GridDelegate::WriteLookOf(Place place) const {
    if (writes_ == nullptr || place.col != column::kNewValue) return std::nullopt;
    const ParameterWrite* write = writes_->Of(place.row);
    if (write == nullptr) return std::nullopt;
    return LookOf(write->State());
}

QColor GridDelegate::GroundOf(Place place, bool isSelected, bool isSecond) const {
    const Tokens& tokens = theme_.Now();
    const bool isCurrent = place.row == current_.row && place.col == current_.col;
    const auto write = WriteLookOf(place);
    if (IsMismatch(place) || (write && write->isTinted)) return tokens.warnTint;
    if (isSelected && !isCurrent) return tokens.tint;
    if (place.row == current_.row) return tokens.row;
    if (grid_.GivenColour(place.row, place.col)) return tokens.surface;  // the window's background
    if (MayBeWritten(place)) return tokens.edit;
    return isSecond ? tokens.zebra : tokens.surface;
}

QColor GridDelegate::InkOf(Place place) const {
    const Tokens& tokens = theme_.Now();
    if (IsMismatch(place) || flash_.StrengthOf({place.row, place.col}) > 0) return tokens.text;
    if (IsBeingRead(place)) return tokens.accent;
    return LookOfColumn(index_, place.col).isQuiet ? tokens.text2 : tokens.text;
}

bool GridDelegate::Merges() const {
    for (int col = 0; col < grid_.Cols(); ++col) {
        if (grid_.Column(col).merge != 0) return true;
    }
    return false;
}

// The first row in view has its text, whatever stands above.
bool GridDelegate::RepeatsTheRowAbove(const QRect& cell, Place place) const {
    if (grid_.Column(place.col).merge == 0 || cell.top() <= 0) return false;
    int above = place.row - 1;
    while (above > 0 && filter_ != nullptr && !filter_->Fits(above)) --above;
    return above > 0 && grid_.Cell(above, place.col) == grid_.Cell(place.row, place.col);
}

void GridDelegate::PaintHit(QPainter& painter, const QRect& room, Place place, const QString& text) const {
    const qsizetype at = filter_ != nullptr ? filter_->HitIn(place.col, text) : -1;
    if (at < 0) return;
    const QFontMetrics metrics(painter.font());
    const auto alignment = static_cast<int>(AlignmentOf(grid_.Column(place.col)));
    const QRect all = metrics.boundingRect(room, alignment | Qt::TextSingleLine, text);
    const int left = std::max(all.left(), room.left()) + metrics.horizontalAdvance(text.left(at));
    const int width = metrics.horizontalAdvance(text.mid(at, filter_->Words().size()));
    painter.fillRect(QRect(left, room.top() + 2, width, room.height() - 4) & room, theme_.Now().tint);
}

void GridDelegate::PaintText(QPainter& painter, const QRect& cell, Place place, const QString& text) const {
    if (text.isEmpty()) return;
    LaidOutTexts& texts = LookOfColumn(index_, place.col).isCode ? codeTexts_ : uiTexts_;
    const int glyphWidth = WriteLookOf(place) ? kGlyphSize + kGlyphGap : 0;
    const QRect room = cell.adjusted(kPadding + glyphWidth, 0, -kPadding, 0);
    painter.setFont(texts.Font());
    PaintHit(painter, room, place, text);
    painter.setPen(InkOf(place));
    texts.Draw(painter, LineInRow(room, QFontMetrics(texts.Font())), AlignmentOf(grid_.Column(place.col)),
               text);
}

void GridDelegate::PaintGlyph(QPainter& painter, const QRect& cell, const WriteLook& look) const {
    const Tokens& tokens = theme_.Now();
    const bool isWarning = look.weight == WriteLook::Weight::Warning;
    const QColor ink = isWarning                                 ? tokens.warn
                       : look.weight == WriteLook::Weight::Quiet ? tokens.text2
                                                                 : tokens.accent;
    if (look.hasBar) PaintBar(painter, cell, tokens.warn);
    painter.drawPixmap(cell.left() + kPadding, cell.top() + (cell.height() - kGlyphSize) / 2,
                       GlyphPicture(look.glyph, ink, kGlyphSize, painter.device()->devicePixelRatioF()));
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const Place place{static_cast<const GridModel*>(index.model())->GridRow(index.row()), index.column()};
    // A handler may have made the grid smaller since the last look.
    if (place.row >= grid_.Rows() || place.col >= grid_.Cols()) return;
    const Tokens& tokens = theme_.Now();
    const QRect& cell = option.rect;
    const QColor ground =
        GroundOf(place, option.state.testFlag(QStyle::State_Selected), index.row() % 2 != 0);
    painter->fillRect(cell, Mixed(ground, tokens.flash, flash_.StrengthOf({place.row, place.col})));
    if (IsMismatch(place)) PaintBar(*painter, cell, tokens.warn);
    if (IsBeingRead(place)) PaintBar(*painter, cell, tokens.accent);
    if (const auto write = WriteLookOf(place)) PaintGlyph(*painter, cell, *write);
    if (!RepeatsTheRowAbove(cell, place)) PaintText(*painter, cell, place, index.data().toString());
    if (LookOfColumn(index_, place.col).endsGroup) {
        painter->setPen(tokens.line);
        painter->drawLine(cell.topRight(), cell.bottomRight());
    }
    if (place.row == current_.row && place.col == current_.col) {
        painter->setPen(tokens.accent);
        painter->drawRect(cell.adjusted(0, 0, -1, -1));
    }
}

}  // namespace commtest
