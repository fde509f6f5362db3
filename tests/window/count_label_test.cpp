#include "window/count_label.h"

#include <gtest/gtest.h>

namespace commtest::testing {
namespace {

class CountLabelTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};

    QImage PictureOf(const QString& text, const QStringList& framing) {
        CountLabel label(theme, framing, nullptr);
        label.setText(text);
        label.resize(120, 24);
        return label.grab().toImage();
    }
    int WidthOf(const QString& text) {
        CountLabel label(theme, {}, nullptr);
        label.setText(text);
        return label.sizeHint().width();
    }
};

TEST_F(CountLabelTest, WordsThatFrameANumberAreQuietAndOthersAreNot) {
    EXPECT_NE(PictureOf("新 12", {"新"}), PictureOf("新 12", {}));
    EXPECT_EQ(PictureOf("甲 12", {"新"}), PictureOf("甲 12", {}));
    EXPECT_NE(PictureOf("12", {"12"}), PictureOf("12", {}));
}

TEST_F(CountLabelTest, EachWordHasItsPlaceWithAGapBetween) {
    EXPECT_EQ(WidthOf(""), 0);
    EXPECT_NEAR(WidthOf("新 12"), WidthOf("新") + 8 + WidthOf("12"), 1);
}

TEST_F(CountLabelTest, NumbersAreOfTheTypeOfNumbers) {
    EXPECT_EQ(WidthOf("11,111"), WidthOf("88,888"));
    EXPECT_EQ(WidthOf("1,111"),
              static_cast<int>(std::ceil(QFontMetricsF(Theme::MonoFont()).horizontalAdvance("1,111"))));
}

TEST_F(CountLabelTest, InksFollowThePalette) {
    CountLabel label(theme, {"新"}, nullptr);
    label.setText("新 12");
    label.resize(120, 24);
    const QImage light = label.grab().toImage();
    theme.Use(Theme::Choice::Dark);
    EXPECT_NE(label.grab().toImage(), light);
}

}  // namespace
}  // namespace commtest::testing
