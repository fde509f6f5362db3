#pragma once

#include <time.h>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>
#include <cstdio>

// Ends the program behind the first paint of a widget and prints the moment, in seconds of the monotonic
// clock: who started the program knows when that was.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isPaint = event->type() == QEvent::Paint;
        if (isPaint && !seen_) {
            seen_ = true;
            // The paint itself is still to come.
            QMetaObject::invokeMethod(
                this,
                [] {
                    timespec now = {};
                    clock_gettime(CLOCK_MONOTONIC, &now);
                    std::printf("%.6f\n",
                                static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9);
                    QCoreApplication::exit(0);
                },
                Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    bool seen_ = false;
};
