#pragma once

#include <QCache>
#include <QFont>
#include <QPainter>
#include <QStaticText>

namespace commtest {

// Lines of one font that are drawn again and again, as the cells of a grid are: what was drawn lately stays
// laid out. A line looks as QPainter::drawText draws it, and one that is too long for its room is cut off
// with dots.
class LaidOutTexts {
  public:
    explicit LaidOutTexts(const QFont& font) : font_(font) {}

    const QFont& Font() const { return font_; }

    // `room` is as high as the font; `side` is where the line stands in it, from left to right.
    void Draw(QPainter& painter, const QRect& room, Qt::Alignment side, const QString& text);

    int Kept() const { return static_cast<int>(lines_.count()); }
    static constexpr int kMostKept = 1000;

  private:
    struct Line {
        QStaticText text;
        double width;
    };
    using Key = std::pair<QString, int>;  // text and width of the room

    const Line& LineOf(const QString& text, int room);

    QFont font_;
    QCache<Key, Line> lines_{kMostKept};
};

}  // namespace commtest
