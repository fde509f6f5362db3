#include "window/typed_search.h"

#include <QApplication>
#include <algorithm>

namespace commtest {

int TypedSearch::Type(const QString& text, int current, const Table& table) {
    const bool goesOn = sinceLast_.isValid() && !word_.isEmpty() &&
                        sinceLast_.elapsed() < QApplication::keyboardInputInterval();
    word_ = goesOn ? word_ + text : text;
    sinceLast_.start();
    const int first = goesOn ? std::max(current, 0) : current + 1;
    for (const int col : table.columns) {
        for (int step = 0; step < table.rows; ++step) {
            const int row = (first + step) % table.rows;
            if (table.isShown(row) && table.textAt(row, col).startsWith(word_, Qt::CaseInsensitive))
                return row;
        }
    }
    return -1;
}

}  // namespace commtest
