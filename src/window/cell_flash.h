#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <utility>

namespace commtest {

// Cells that light up for a moment when their text has changed. One timer for all of them, running only while
// one is lit.
class CellFlash : public QObject {
  public:
    using Cell = std::pair<int, int>;       // row and column
    using Clock = std::function<qint64()>;  // milliseconds since a moment of its own

    // `repaint` is asked for each cell whose light has changed.
    CellFlash(std::function<void(Cell)> repaint, QObject* parent, Clock clock = RunningClock());

    void Light(Cell cell);
    void PutOut();  // all of them

    // 0 for a dark cell, 1 for one in full light.
    double StrengthOf(Cell cell) const;

    bool IsRunning() const { return timer_.isActive(); }

  private:
    static Clock RunningClock();
    void Step();

    struct Lit {
        qint64 since;  // of clock_
        double strength;
    };

    std::function<void(Cell)> repaint_;
    std::map<Cell, Lit> lit_;
    Clock clock_;
    QTimer timer_;
};

}  // namespace commtest
