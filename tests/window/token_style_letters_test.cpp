#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>

#include "window/pieces.h"
#include "window/theme.h"

namespace commtest::testing {
namespace {

// With the font of the run.
class TokenStyleLettersTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};

    // How many rows of a picture the letters take, from column `left` on.
    static int RowsOfLetters(QWidget& widget, int left = 0) {
        widget.ensurePolished();
        widget.resize(200, widget.height());
        const QImage picture = widget.grab().toImage();
        const QColor ground = picture.pixelColor(picture.width() - 1, picture.height() / 2);
        int rows = 0;
        for (int y = 0; y < picture.height(); ++y) {
            bool hasInk = false;
            for (int x = left; x < picture.width() - 1; ++x)
                hasInk = hasInk || std::abs(picture.pixelColor(x, y).lightness() - ground.lightness()) > 20;
            rows += hasInk;
        }
        return rows;
    }
};

TEST_F(TokenStyleLettersTest, TitleIsNotCutAtItsFeet) {
    const std::unique_ptr<QLabel> title(MakeTitle("Tjgpq"));
    QLabel roomy("Tjgpq");
    roomy.setFixedHeight(60);
    EXPECT_EQ(RowsOfLetters(*title), RowsOfLetters(roomy));
}

TEST_F(TokenStyleLettersTest, TickIsNotCutAtItsFeet) {
    constexpr int kBehindTheBox = 24;
    QCheckBox low("Tjgpq");
    low.setFixedHeight(20);
    QCheckBox roomy("Tjgpq");
    roomy.setFixedHeight(60);
    EXPECT_EQ(RowsOfLetters(low, kBehindTheBox), RowsOfLetters(roomy, kBehindTheBox));
}

}  // namespace
}  // namespace commtest::testing
