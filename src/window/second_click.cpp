#include "window/second_click.h"

#include <QApplication>
#include <QMouseEvent>
#include <utility>

namespace commtest {

SecondClick::SecondClick(QObject* parent) : QObject(parent) {}

void SecondClick::Await(QPoint globalPosition, std::function<void()> doubleClick) {
    first_ = globalPosition;
    doubleClick_ = std::move(doubleClick);
    swallowsRelease_ = false;
    clock_.start();
    qApp->installEventFilter(this);
}

void SecondClick::Stop() {
    qApp->removeEventFilter(this);
    doubleClick_ = nullptr;
}

bool SecondClick::IsSecondPress(const QEvent& event) const {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint way = mouse.globalPosition().toPoint() - first_;
    return mouse.button() == Qt::LeftButton && !clock_.hasExpired(QApplication::doubleClickInterval()) &&
           way.manhattanLength() < QApplication::startDragDistance();
}

bool SecondClick::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    const QEvent::Type type = event->type();
    if (swallowsRelease_) {
        if (type != QEvent::MouseButtonRelease) return false;
        Stop();
        return true;
    }
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) return false;
    if (!IsSecondPress(*event)) {
        Stop();
        return false;
    }
    swallowsRelease_ = true;
    std::exchange(doubleClick_, nullptr)();
    return true;
}

}  // namespace commtest
