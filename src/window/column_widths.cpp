#include "window/column_widths.h"

#include <QDataStream>
#include <QFontMetricsF>
#include <QIODevice>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "session/grid_rows.h"
#include "window/grid_columns.h"
#include "window/theme.h"

namespace commtest {

namespace {

constexpr int kPadding = 16;        // both sides of a text
constexpr int kMeasuredRows = 200;  // from the headings on
constexpr int kWidestByText = 360;
constexpr int kWidestByUser = 2000;

// Divides `amount` among the widths in proportion to their shares.
void Divide(int amount, const std::vector<int>& shares, std::vector<int>& widths) {
    int rest = std::accumulate(shares.begin(), shares.end(), 0);
    for (std::size_t col = 0; col < widths.size() && rest > 0; ++col) {
        const int part = amount * shares[col] / rest;
        widths[col] += part;
        amount -= part;
        rest -= shares[col];
    }
}

}  // namespace

ColumnWidths::ColumnWidths(const Grid& grid, int index, const FaceLayout& layout)
    : grid_(grid), index_(index), layout_(layout) {
    BeginAnew();
}

void ColumnWidths::BeginAnew() {
    columns_.resize(static_cast<std::size_t>(grid_.Cols()));
    for (int col = 0; col < grid_.Cols(); ++col) {
        const ColumnLook look = LookOfColumn(index_, col);
        Column& column = columns_[static_cast<std::size_t>(col)];
        column.smallest = SmallestOf(col);
        column.wanted = std::max(column.smallest, WidthOf(grid_.Column(col)));
        column.weight = look.weight;
        column.isHidden =
            IsLeftToTheListBeside(index_, col) ||
            (CanBeHidden(index_, col) && grid_.Column(col).isLaidOut && grid_.Column(col).width == 0);
    }
}

int ColumnWidths::SmallestOf(int col) const {
    const int smallest = LookOfColumn(index_, col).smallest;
    if (index_ != 0) return std::max(smallest, WidthOfTexts(col));
    return col < column::kCount ? std::max(smallest, layout_.columns[static_cast<std::size_t>(col)])
                                : smallest;
}

int ColumnWidths::WidthOfTexts(int col) const {
    const QFontMetricsF metrics(LookOfColumn(index_, col).isCode ? Theme::MonoFont() : Theme::UiFont());
    double widest = 0;
    for (int row = 0; row < std::min(grid_.Rows(), kMeasuredRows); ++row)
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdU16String(grid_.Cell(row, col))));
    return std::min(static_cast<int>(std::ceil(widest)) + kPadding, kWidestByText);
}

void ColumnWidths::SetByUser(int col, int width) {
    const auto count = std::ssize(columns_);
    if (col >= count) return;
    if (byUser_.size() != count) byUser_ = QList<qint32>(count, 0);
    byUser_[col] = width;
}

bool ColumnWidths::IsHidden(int col) const {
    if (col >= std::ssize(columns_)) return false;
    const bool isChosen = chosen_.size() == std::ssize(columns_) && chosen_[col] != kOfTheCatalogue;
    return isChosen ? chosen_[col] == kHidden : columns_[static_cast<std::size_t>(col)].isHidden;
}

void ColumnWidths::Hide(int col, bool hidden) {
    const auto count = std::ssize(columns_);
    if (col >= count || !CanBeHidden(index_, col)) return;
    if (chosen_.size() != count) chosen_ = QList<qint8>(count, kOfTheCatalogue);
    chosen_[col] = hidden ? kHidden : kShown;
}

void ColumnWidths::Reset() {
    byUser_.clear();
    chosen_.clear();
}

std::vector<int> ColumnWidths::InRoom(int room) const {
    std::vector<int> widths;
    std::vector<int> wishes;
    std::vector<int> weights;
    const bool isByUser = byUser_.size() == std::ssize(columns_);
    for (qsizetype col = 0; col < std::ssize(columns_); ++col) {
        const Column& column = columns_[static_cast<std::size_t>(col)];
        if (IsHidden(static_cast<int>(col))) {
            for (std::vector<int>* list : {&widths, &wishes, &weights}) list->push_back(0);
            continue;
        }
        const bool isFree = !isByUser || byUser_[col] == 0;
        widths.push_back(isFree ? column.smallest : byUser_[col]);
        wishes.push_back(isFree ? column.wanted - column.smallest : 0);
        weights.push_back(isFree ? column.weight : 0);
    }
    const int spare = std::max(room - std::accumulate(widths.begin(), widths.end(), 0), 0);
    const int wished = std::min(spare, std::accumulate(wishes.begin(), wishes.end(), 0));
    Divide(wished, wishes, widths);
    Divide(spare - wished, weights, widths);
    return widths;
}

QByteArray ColumnWidths::Save() const {
    QByteArray saved;
    QDataStream stream(&saved, QIODevice::WriteOnly);
    stream << byUser_ << chosen_;
    return saved;
}

void ColumnWidths::Restore(const QByteArray& saved) {
    QList<qint32> widths;
    QList<qint8> chosen;
    QDataStream stream(saved);
    stream >> widths >> chosen;
    if (!chosen.isEmpty()) chosen_ = chosen;
    if (widths.isEmpty()) return;
    for (qint32& width : widths) width = std::clamp(width, 0, kWidestByUser);
    byUser_ = widths;
}

}  // namespace commtest
