#pragma once

#include <QApplication>
#include <QBackingStore>
#include <QEvent>
#include <QImage>
#include <QPaintEvent>
#include <QWidget>

namespace commtest::testing {

// Hears what of a widget is painted.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }

    const QRegion& Painted() const { return painted_; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }

  private:
    QRegion painted_;
};

// Lays out and paints all of the window that waits for it, whenever the toolkit would have come to it.
inline void PaintWhatIsDue(QWidget& window) {
    for (int turn = 0; turn < 3; ++turn) {  // what is laid out asks for paint
        QApplication::processEvents();
        QEvent due(QEvent::UpdateRequest);
        QApplication::sendEvent(&window, &due);
    }
}

// The pixels that a window has on the screen.
inline QImage OnTheScreen(const QWidget& window) {
    return static_cast<const QImage*>(window.backingStore()->paintDevice())
        ->convertToFormat(QImage::Format_RGB32);
}

// The pixels that it has when it is painted anew.
inline QImage PaintedAnew(QWidget& window) {
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

}  // namespace commtest::testing
