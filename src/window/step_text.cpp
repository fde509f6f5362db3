#include "window/step_text.h"

#include "window/pieces.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace commtest {

StepText::StepText(QWidget* parent) : QLabel(parent) {
    ShowAsCaption(*this);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void StepText::paintEvent(QPaintEvent*) {
    const int line = fontMetrics().lineSpacing();
    QPainter painter(this);
    painter.setClipRect(0, 0, width(), height() / line * line);
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, palette(),
                          isEnabled(), text(), foregroundRole());
}

bool StepText::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    if (heightForWidth(width()) > height())
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

}  // namespace commtest
