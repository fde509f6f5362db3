#include "window/cell_flash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CellFlashTest : public ::testing::Test {
  protected:
    std::vector<CellFlash::Cell> repainted;
    CellFlash flash{[this](CellFlash::Cell cell) { repainted.push_back(cell); }, nullptr};
};

TEST_F(CellFlashTest, NothingIsLitAtTheStart) {
    EXPECT_EQ(flash.StrengthOf({1, 6}), 0);
    EXPECT_FALSE(flash.IsRunning());
}

TEST_F(CellFlashTest, LitCellIsInFullLightAtOnce) {
    flash.Light({3, 9});
    EXPECT_EQ(flash.StrengthOf({3, 9}), 1);
    EXPECT_EQ(flash.StrengthOf({3, 8}), 0);
    EXPECT_EQ(flash.StrengthOf({9, 3}), 0);
    EXPECT_TRUE(flash.IsRunning());
    EXPECT_THAT(repainted, ElementsAre(CellFlash::Cell(3, 9)));
}

TEST_F(CellFlashTest, LightGoesDownInTwoStepsAndOut) {
    struct Step {
        double strength;
        qint64 earliest;  // milliseconds since the change
    };
    const std::vector<Step> expected = {{0.5, 250}, {0.25, 550}, {0, 850}};
    constexpr qint64 kPatience = 200;
    QElapsedTimer clock;
    clock.start();
    flash.Light({3, 9});
    double before = 1;
    for (const Step& step : expected) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return flash.StrengthOf({3, 9}) != before; }, 1000));
        const qint64 age = clock.elapsed();
        before = flash.StrengthOf({3, 9});
        EXPECT_EQ(before, step.strength);
        EXPECT_GE(age, step.earliest);
        EXPECT_LE(age, step.earliest + kPatience);
    }
    EXPECT_FALSE(flash.IsRunning());
    EXPECT_EQ(repainted, std::vector<CellFlash::Cell>(4, {3, 9}));
}

TEST_F(CellFlashTest, CellLitAgainBeginsAnewAndOthersGoOutByThemselves) {
    flash.Light({1, 6});
    flash.Light({2, 7});
    QTest::qWait(600);
    flash.Light({2, 7});
    EXPECT_EQ(flash.StrengthOf({1, 6}), 0.25);
    EXPECT_EQ(flash.StrengthOf({2, 7}), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return flash.StrengthOf({1, 6}) == 0; }, 1000));
    EXPECT_GT(flash.StrengthOf({2, 7}), 0);
    EXPECT_TRUE(flash.IsRunning());
}

TEST_F(CellFlashTest, PutOutDarkensAllCells) {
    flash.Light({1, 6});
    flash.Light({2, 7});
    flash.PutOut();
    repainted.clear();
    EXPECT_EQ(flash.StrengthOf({1, 6}), 0);
    EXPECT_EQ(flash.StrengthOf({2, 7}), 0);
    EXPECT_FALSE(flash.IsRunning());
    QTest::qWait(120);
    EXPECT_THAT(repainted, IsEmpty());
}

}  // namespace
}  // namespace commtest::testing
