#pragma once

#include <QAction>
#include <QPointer>
#include <QTabBar>
#include <QWidget>

namespace commtest {

// While the catalogue is being written, whatever asks it waits: dimmed, with the reason as its tooltip.
class StoreWait : public QObject {
    Q_OBJECT

  public:
    explicit StoreWait(QObject* parent) : QObject(parent) {}

    void Begin(const QString& reason);
    void End();
    bool Stands() const { return !reason_.isEmpty(); }
    const QString& Reason() const { return reason_; }

    void Cover(QWidget& widget);
    void Cover(QAction& action);
    // Pages that ask it when they are chosen; the one that is shown keeps its tab.
    void Cover(QTabBar& tabs, const QList<int>& pages);

  private:
    struct Covered {
        QPointer<QObject> object;  // a widget or an action
        QString tip = {};          // its own
        bool wasEnabled = true;
    };

    void Show(Covered& covered);
    void ShowTabs();

    QString reason_;
    QList<Covered> covered_;
    QPointer<QTabBar> tabs_;
    QList<int> pages_;
};

}  // namespace commtest
