#include "window/store_wait.h"

namespace commtest {

namespace {

template <typename Object>
void Dim(Object& object, const QString& reason, QString& tip, bool& wasEnabled) {
    if (!reason.isEmpty()) {
        tip = object.toolTip();
        wasEnabled = object.isEnabled();
    }
    object.setEnabled(reason.isEmpty() && wasEnabled);
    object.setToolTip(reason.isEmpty() ? tip : reason);
}

}  // namespace

void StoreWait::Begin(const QString& reason) {
    reason_ = reason;
    for (Covered& covered : covered_) Show(covered);
    ShowTabs();
}

void StoreWait::End() {
    if (!Stands()) return;
    reason_.clear();
    for (Covered& covered : covered_) Show(covered);
    ShowTabs();
}

void StoreWait::Cover(QWidget& widget) { covered_ += Covered{&widget}; }

void StoreWait::Cover(QAction& action) { covered_ += Covered{&action}; }

void StoreWait::Cover(QTabBar& tabs, const QList<int>& pages) {
    tabs_ = &tabs;
    pages_ = pages;
    connect(&tabs, &QTabBar::currentChanged, this, &StoreWait::ShowTabs);
}

void StoreWait::Show(Covered& covered) {
    if (auto* const widget = qobject_cast<QWidget*>(covered.object.data()))
        Dim(*widget, reason_, covered.tip, covered.wasEnabled);
    if (auto* const action = qobject_cast<QAction*>(covered.object.data()))
        Dim(*action, reason_, covered.tip, covered.wasEnabled);
}

void StoreWait::ShowTabs() {
    if (!tabs_) return;
    for (const int page : pages_) {
        const bool waits = Stands() && page != tabs_->currentIndex();
        tabs_->setTabEnabled(page, !waits);
        tabs_->setTabToolTip(page, waits ? reason_ : QString());
    }
}

}  // namespace commtest
