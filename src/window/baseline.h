#pragma once

#include <QFontMetrics>
#include <QRect>

namespace commtest {

// Where a line of text goes in a row of a grid, to be drawn at its top: digits stand in the middle of the
// row, and the texts of a row share their baseline, whatever their fonts.
inline QRect LineInRow(const QRect& row, const QFontMetrics& font) {
    constexpr int kDigitHeight = 9;
    const int baseline = row.top() + (row.height() + kDigitHeight) / 2;
    return {row.left(), baseline - font.ascent(), row.width(), font.height()};
}

}  // namespace commtest
