#pragma once

#include <QLabel>
#include <QWidget>

namespace commtest {

// Lies over a grid of which no row fits the filter: says so and offers to clear it.
class NothingFound : public QWidget {
    Q_OBJECT

  public:
    explicit NothingFound(QWidget* parent);

    // For MSHFlexGrid1(index) and the words that were looked for.
    void Show(bool shown, int index, const QString& words);

  signals:
    void ClearWanted();

  private:
    QLabel* words_;
};

}  // namespace commtest
