#include "window/frozen_columns.h"

#include <QPainter>
#include <algorithm>

namespace commtest {

namespace {

constexpr int kLeastRoom = 120;  // to scroll in

}  // namespace

int FrozenColumns::LeftWidth() const {
    return header_.sectionSize(column::kNumber) + header_.sectionSize(column::kName);
}

bool FrozenColumns::LieOver() const {
    return hasThem_ && header_.count() == column::kCount && header_.length() > Width() &&
           LeftWidth() + RightWidth() + kLeastRoom <= Width();
}

bool FrozenColumns::Holds(int col) const {
    return std::find(kColumns.begin(), kColumns.end(), col) != kColumns.end() && LieOver();
}

int FrozenColumns::LeftEdge() const { return LieOver() ? LeftWidth() : 0; }

int FrozenColumns::RightEdge() const { return LieOver() ? Width() - RightWidth() : Width(); }

int FrozenColumns::PlaceOf(int col) const {
    if (!Holds(col)) return header_.sectionViewportPosition(col);
    return col == column::kNewValue ? Width() - RightWidth() : header_.sectionPosition(col);
}

int FrozenColumns::ShiftAt(int x) const {
    if (!LieOver()) return 0;
    if (x < LeftEdge()) return -header_.offset();
    return x >= RightEdge() ? RightShift() : 0;
}

void FrozenColumns::PaintEdges(QPainter& painter, const Tokens& tokens) const {
    if (!LieOver()) return;
    painter.setPen(tokens.border);
    const int bottom = painter.device()->height();
    if (header_.offset() > 0) painter.drawLine(LeftEdge() - 1, 0, LeftEdge() - 1, bottom);
    if (RightShift() > 0) painter.drawLine(RightEdge(), 0, RightEdge(), bottom);
}

}  // namespace commtest
