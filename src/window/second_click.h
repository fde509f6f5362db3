#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <functional>

namespace commtest {

// Waits for the second click of a double click whose first one has already taken its widget away: it belongs
// to nobody else, whatever stands under the pointer by then.
class SecondClick : public QObject {
  public:
    explicit SecondClick(QObject* parent);

    // From a first click at `globalPosition` on: a press there within the desktop's time runs `doubleClick`
    // and goes no further, nor does its release.
    void Await(QPoint globalPosition, std::function<void()> doubleClick);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool IsSecondPress(const QEvent& event) const;
    void Stop();

    std::function<void()> doubleClick_;
    QPoint first_;
    QElapsedTimer clock_;
    bool swallowsRelease_ = false;
};

}  // namespace commtest
