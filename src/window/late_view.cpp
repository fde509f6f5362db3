#include "window/late_view.h"

#include <QVBoxLayout>
#include <utility>

namespace commtest {

namespace {

bool IsField(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr;
}

// What is made late stands last in the tab order of its window. Only what takes the focus can be put there.
void PutBehind(QWidget& place, QWidget& view) {
    QList<QWidget*> fields;
    if (IsField(view)) fields += &view;
    for (QWidget* next = view.nextInFocusChain(); view.isAncestorOf(next); next = next->nextInFocusChain()) {
        if (IsField(*next)) fields += next;
    }
    place.setFocusPolicy(Qt::TabFocus);
    QWidget* former = &place;
    for (QWidget* field : fields) QWidget::setTabOrder(std::exchange(former, field), field);
    place.setFocusPolicy(Qt::NoFocus);
}

}  // namespace

LateView::LateView(std::function<QWidget*(QWidget* parent)> make, QWidget* parent)
    : QWidget(parent), make_(std::move(make)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void LateView::setVisible(bool visible) {
    if (visible && make_) Make();
    QWidget::setVisible(visible);
}

void LateView::Make() {
    QWidget* view = std::exchange(make_, nullptr)(this);
    layout()->addWidget(view);
    PutBehind(*this, *view);
}

}  // namespace commtest
