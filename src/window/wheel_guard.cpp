#include "window/wheel_guard.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>

namespace commtest {

WheelGuard::WheelGuard() { qApp->installEventFilter(this); }

bool WheelGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Polish && event->type() != QEvent::Wheel) return false;
    const bool isBox =
        qobject_cast<QComboBox*>(watched) != nullptr || qobject_cast<QAbstractSpinBox*>(watched) != nullptr;
    if (!isBox) return false;
    auto* box = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Polish) {
        box->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    const bool isIdle = !box->hasFocus();
    if (isIdle) event->ignore();
    return isIdle;
}

}  // namespace commtest
