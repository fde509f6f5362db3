#include "window/row_order.h"

#include <QString>
#include <algorithm>
#include <numeric>

#include "window/pieces.h"

namespace commtest {

namespace {

constexpr std::size_t kMostDigits = 15;  // that a double holds

bool IsWhole(const Text& text) {
    return text.size() <= kMostDigits && std::all_of(text.begin(), text.end(), [](char16_t character) {
               return character >= u'0' && character <= u'9';
           });
}

struct Key {
    int row;
    const Text* text;
    double number;
};

std::vector<Key> KeysOf(const Grid& grid, int column) {
    std::vector<Key> keys;
    bool areNumbers = true;
    for (int row = 1; row < grid.Rows(); ++row) {
        const Text& text = grid.Cell(row, column);
        keys.push_back({row, &text, 0});
        areNumbers = areNumbers && IsWhole(text);
    }
    if (!areNumbers) return keys;
    for (Key& key : keys) key.number = ToQt(*key.text).toDouble();
    return keys;
}

int Compared(const Key& left, const Key& right) {
    if (left.number != right.number) return left.number < right.number ? -1 : 1;
    const auto view = [](const Text& text) {
        return QStringView(text.data(), static_cast<qsizetype>(text.size()));
    };
    return QtPrivate::compareStrings(view(*left.text), view(*right.text), Qt::CaseInsensitive);
}

}  // namespace

void RowOrder::Turn(int clicked) {
    if (column != clicked) {
        *this = {clicked, false};
    } else if (!isDescending) {
        isDescending = true;
    } else {
        *this = {};
    }
}

std::vector<int> RowOrder::RowsOf(const Grid& grid) const {
    std::vector<int> rows(static_cast<std::size_t>(std::max(grid.Rows() - 1, 0)));
    std::iota(rows.begin(), rows.end(), 1);
    if (!IsOn() || column >= grid.Cols()) return rows;
    std::vector<Key> keys = KeysOf(grid, column);
    std::stable_sort(keys.begin(), keys.end(), [this](const Key& left, const Key& right) {
        if (left.text->empty() || right.text->empty()) return !left.text->empty() && right.text->empty();
        return isDescending ? Compared(right, left) < 0 : Compared(left, right) < 0;
    });
    std::transform(keys.begin(), keys.end(), rows.begin(), [](const Key& key) { return key.row; });
    return rows;
}

}  // namespace commtest
