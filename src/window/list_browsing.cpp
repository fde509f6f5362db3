#include "window/list_browsing.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

namespace commtest {

namespace {

class BrowseFilter : public QObject {
  public:
    explicit BrowseFilter(QComboBox& box) : QObject(&box), box_(box) { box.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !Browses(static_cast<QKeyEvent&>(*event)))
            return QObject::eventFilter(watched, event);
        if (box_.count() == 0) return true;
        box_.showPopup();
        QApplication::sendEvent(box_.view(), event);
        return true;
    }

  private:
    static bool Browses(const QKeyEvent& event) {
        if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
        switch (event.key()) {
            case Qt::Key_Up:
            case Qt::Key_Down:
            case Qt::Key_PageUp:
            case Qt::Key_PageDown:
            case Qt::Key_Home:
            case Qt::Key_End: return true;
            default:
                return event.key() != Qt::Key_Space && !event.text().isEmpty() && event.text()[0].isPrint();
        }
    }

    QComboBox& box_;
};

}  // namespace

void BrowseBeforeChoosing(QComboBox& box) { new BrowseFilter(box); }

}  // namespace commtest
