#pragma once

#include <QTableWidget>

namespace commtest {

// A small table to be read, in a box.
class FactTable : public QTableWidget {
    Q_OBJECT

  public:
    FactTable(const QStringList& headings, QWidget* parent);

    void AddRow(const QStringList& cells);

    void ShowNumbersIn(int column);  // in the type of numbers, at the right
    void ShowCodesIn(int column);    // in the type of numbers

    // Of the first columns; the last one takes the rest.
    void SetColumnWidths(const QList<int>& widths);

    // As high as its rows, `most` of them at most; the others scroll.
    void ShowRows(int most);

    static constexpr int kRowHeight = 22;

  private:
    void Dress(int column, Qt::Alignment alignment);
};

}  // namespace commtest
