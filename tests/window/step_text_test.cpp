#include "window/step_text.h"

#include <gtest/gtest.h>

#include "window/theme.h"

namespace commtest::testing {
namespace {

class StepTextTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};
    StepText text{nullptr};
    int line = 0;

    StepTextTest() {
        text.setText("HHH\nHHH\nHHH");
        text.ensurePolished();
        line = text.fontMetrics().lineSpacing();
    }

    bool HasInkBelow(int top) {
        const QImage picture = text.grab().toImage();
        const QColor ground = picture.pixelColor(picture.width() - 1, 0);
        const int first = static_cast<int>(top * picture.devicePixelRatio());
        for (int y = first; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != ground) return true;
            }
        }
        return false;
    }
};

TEST_F(StepTextTest, ShowsAllLinesWhereThereIsRoom) {
    text.resize(200, 3 * line);
    EXPECT_TRUE(HasInkBelow(2 * line));
}

TEST_F(StepTextTest, ShowsWholeLinesFromTheFirstOnWhereThereIsNone) {
    text.resize(200, 3 * line - 3);
    EXPECT_TRUE(HasInkBelow(line));
    EXPECT_FALSE(HasInkBelow(2 * line));
}

}  // namespace
}  // namespace commtest::testing
