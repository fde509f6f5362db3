#include "window/laid_out_texts.h"

#include <gtest/gtest.h>

#include <QFontMetrics>

#include "window/theme.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;

class LaidOutTextsTest : public ::testing::Test {
  protected:
    static constexpr QSize kRoom{120, 24};

    LaidOutTexts texts{Theme::UiFont()};

    static QImage Blank() {
        QImage image(kRoom, QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    }
    QRect Line(int width = 100) const { return {10, 2, width, QFontMetrics(texts.Font()).height()}; }

    QImage Drawn(const QString& text, Qt::Alignment side, int width = 100) {
        QImage image = Blank();
        QPainter painter(&image);
        painter.setPen(Qt::blue);
        texts.Draw(painter, Line(width), side, text);
        return image;
    }

    QImage DrawnByThePainter(const QString& text, Qt::Alignment side) const {
        QImage image = Blank();
        QPainter painter(&image);
        painter.setFont(texts.Font());
        painter.setPen(Qt::blue);
        painter.drawText(Line(), static_cast<int>(side) | Qt::TextSingleLine,
                         QFontMetrics(texts.Font()).elidedText(text, Qt::ElideRight, 100));
        return image;
    }
};

TEST_F(LaidOutTextsTest, LineLooksAsThePainterDrawsIt) {
    for (const QString& text : {u"001 "_s, u"W"_s, u"12.5"_s, u"测量值"_s,
                                u"HX-D10 智能数字显示控制仪，很长"_s, u"一行\r\n两行"_s}) {
        for (const Qt::Alignment side : {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter}) {
            const QImage expected = DrawnByThePainter(text, side);
            ASSERT_NE(expected, Blank()) << text.toStdString();
            EXPECT_EQ(Drawn(text, side), expected) << text.toStdString() << " " << side;
            EXPECT_EQ(Drawn(text, side), expected) << text.toStdString() << " " << side << ", again";
        }
    }
}

TEST_F(LaidOutTextsTest, LineIsLaidOutOnceForEachWidthOfItsRoom) {
    Drawn(u"12.5"_s, Qt::AlignLeft);
    Drawn(u"12.5"_s, Qt::AlignRight);
    EXPECT_EQ(texts.Kept(), 1);
    Drawn(u"12.5"_s, Qt::AlignRight, 90);
    Drawn(u"12.6"_s, Qt::AlignRight);
    EXPECT_EQ(texts.Kept(), 3);
}

TEST_F(LaidOutTextsTest, OnlySoManyLinesAreKept) {
    for (int number = 0; number < LaidOutTexts::kMostKept + 10; ++number)
        Drawn(QString::number(number), Qt::AlignLeft);
    EXPECT_EQ(texts.Kept(), 1000);
}

}  // namespace
}  // namespace commtest::testing
