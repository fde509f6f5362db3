#include "window/whole_letters.h"

namespace commtest {

WholeLetters::WholeLetters() : QProxyStyle(QStringLiteral("Fusion")) {}

void WholeLetters::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                                bool isEnabled, const QString& text, QPalette::ColorRole role) const {
    QProxyStyle::drawItemText(painter, rect, flags | Qt::TextDontClip, palette, isEnabled, text, role);
}

}  // namespace commtest
