#pragma once

#include <QObject>

namespace commtest {

// The wheel over a list or spin box that has not the focus scrolls what the box stands on: it neither takes
// the focus nor changes the value. For all boxes that are shown while this lives.
class WheelGuard : public QObject {
  public:
    WheelGuard();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace commtest
