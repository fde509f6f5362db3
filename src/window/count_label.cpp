#include "window/count_label.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace commtest {

namespace {

constexpr int kGap = 8;

bool IsNumber(const QString& word) {
    return std::all_of(word.begin(), word.end(),
                       [](QChar one) { return one.isDigit() || one == u',' || one == u'/'; });
}

}  // namespace

CountLabel::CountLabel(const Theme& theme, const QStringList& framing, QWidget* parent)
    : QLabel(parent), theme_(theme), framing_(framing) {
    setTextFormat(Qt::PlainText);
    connect(&theme, &Theme::Changed, this, qOverload<>(&QWidget::update));
}

QList<CountLabel::Part> CountLabel::Parts() const {
    const Tokens& tokens = theme_.Now();
    QList<Part> parts;
    for (const QString& word : text().split(u' ', Qt::SkipEmptyParts)) {
        const QFont font = IsNumber(word) ? Theme::MonoFont() : Theme::CaptionFont();
        parts.append({word, font, framing_.contains(word) ? tokens.text2 : tokens.text});
    }
    return parts;
}

QSize CountLabel::sizeHint() const {
    double width = 0;
    for (const Part& part : Parts()) width += QFontMetricsF(part.font).horizontalAdvance(part.text) + kGap;
    return {static_cast<int>(std::ceil(std::max(width - kGap, 0.0))), QLabel::sizeHint().height()};
}

// All on the line of the words.
void CountLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFontMetricsF metrics(Theme::CaptionFont());
    const double baseline = std::round((height() - metrics.height()) / 2 + metrics.ascent());
    double x = 0;
    for (const Part& part : Parts()) {
        painter.setFont(part.font);
        painter.setPen(part.ink);
        painter.drawText(QPointF(x, baseline), part.text);
        x += QFontMetricsF(part.font).horizontalAdvance(part.text) + kGap;
    }
}

}  // namespace commtest
