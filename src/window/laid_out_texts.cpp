#include "window/laid_out_texts.h"

#include <QFontMetricsF>

namespace commtest {

namespace {

// What would begin another line is a blank.
QString InOneLine(QString text) {
    for (QChar& one : text) {
        if (one == u'\r' || one == u'\n' || one == u'\t') one = u' ';
    }
    return text;
}

double IndentOf(Qt::Alignment side, double room, double line) {
    if (side & Qt::AlignRight) return room - line;
    return side & Qt::AlignHCenter ? (room - line) / 2 : 0;
}

}  // namespace

const LaidOutTexts::Line& LaidOutTexts::LineOf(const QString& text, int room) {
    const Key key(text, room);
    if (const Line* kept = lines_.object(key)) return *kept;
    const QFontMetricsF metrics(font_);
    QString shown = InOneLine(text);
    double width = metrics.horizontalAdvance(shown);
    if (width > room) {
        shown = metrics.elidedText(shown, Qt::ElideRight, room);
        width = metrics.horizontalAdvance(shown);
    }
    auto* line = new Line{QStaticText(shown), width};
    line->text.setTextFormat(Qt::PlainText);
    line->text.prepare({}, font_);
    lines_.insert(key, line);
    return *line;
}

void LaidOutTexts::Draw(QPainter& painter, const QRect& room, Qt::Alignment side, const QString& text) {
    const Line& line = LineOf(text, room.width());
    const double indent = IndentOf(side, room.width(), line.width);
    painter.setFont(font_);
    painter.drawStaticText(QPointF(room.left() + indent, room.top()), line.text);
}

}  // namespace commtest
