#include "window/look.h"

#include <QStyle>
#include <QVariant>

namespace commtest {

namespace {

constexpr const char* kName = "look";

}  // namespace

void SetLook(QWidget& widget, Look look) {
    if (LookOf(&widget) == look) return;
    widget.setProperty(kName, static_cast<int>(look));
    if (!widget.testAttribute(Qt::WA_WState_Polished)) return;
    widget.style()->polish(&widget);
    widget.updateGeometry();
    widget.update();
}

Look LookOf(const QWidget* widget) {
    return widget == nullptr ? Look::Plain : static_cast<Look>(widget->property(kName).toInt());
}

}  // namespace commtest
