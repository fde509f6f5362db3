#include "window/cell_flash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CellFlashTest : public ::testing::Test {
  protected:
    std::vector<CellFlash::Cell> repainted;
    qint64 now = 1000;
    int looks = 0;  // at the clock
    CellFlash flash{[this](CellFlash::Cell cell) { repainted.push_back(cell); }, nullptr,
                    [this] {
                        ++looks;
                        return now;
                    }};

    void LetItLook() {
        const int before = looks;
        ASSERT_TRUE(QTest::qWaitFor([&] { return looks > before; }));
    }
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
        qint64 age;  // milliseconds since the change
        double strength;
    };
    flash.Light({3, 9});
    for (const Step& step :
         {Step{249, 1}, Step{250, 0.5}, Step{549, 0.5}, Step{550, 0.25}, Step{849, 0.25}, Step{850, 0}}) {
        now = 1000 + step.age;
        LetItLook();
        EXPECT_EQ(flash.StrengthOf({3, 9}), step.strength) << step.age;
    }
    EXPECT_FALSE(flash.IsRunning());
    EXPECT_EQ(repainted, std::vector<CellFlash::Cell>(4, {3, 9}));
}

TEST_F(CellFlashTest, NothingIsLookedAtUntilALightHasToChange) {
    flash.Light({3, 9});
    ASSERT_EQ(looks, 1);
    bool isHalfOver = false;
    QTimer::singleShot(125, &flash, [&isHalfOver] { isHalfOver = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return isHalfOver; }));
    EXPECT_EQ(looks, 1);
}

TEST_F(CellFlashTest, CellLitAgainBeginsAnewAndOthersGoOutByThemselves) {
    flash.Light({1, 6});
    flash.Light({2, 7});
    now = 1600;
    LetItLook();
    flash.Light({2, 7});
    EXPECT_EQ(flash.StrengthOf({1, 6}), 0.25);
    EXPECT_EQ(flash.StrengthOf({2, 7}), 1);
    now = 1850;
    LetItLook();
    EXPECT_EQ(flash.StrengthOf({1, 6}), 0);
    EXPECT_EQ(flash.StrengthOf({2, 7}), 0.5);
    EXPECT_TRUE(flash.IsRunning());
}

TEST_F(CellFlashTest, TimeGoesOnByItself) {
    CellFlash running([](CellFlash::Cell) {}, nullptr);
    running.Light({3, 9});
    EXPECT_TRUE(QTest::qWaitFor([&] { return running.StrengthOf({3, 9}) == 0; }));
    EXPECT_FALSE(running.IsRunning());
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
