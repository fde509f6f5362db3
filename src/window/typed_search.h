#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <vector>

namespace commtest {

// What is typed into a table finds the row that begins so. Letters that follow each other within the
// desktop's time are one word.
class TypedSearch {
  public:
    struct Table {
        int rows;
        std::function<bool(int row)> isShown;
        std::function<QString(int row, int col)> textAt;
        std::vector<int> columns;  // the first of them in which a row begins so counts
    };

    // The row, from 0, beginning with `current` (behind it where a new word begins), then from the top again;
    // -1 if there is none.
    int Type(const QString& text, int current, const Table& table);

  private:
    QString word_;
    QElapsedTimer sinceLast_;
};

}  // namespace commtest
