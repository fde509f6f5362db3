#include "cli/list_progress.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

namespace commtest {

namespace {

TEST(ListProgressWords, TellRowsInstrumentsShareAndTheTimeLeft) {
    EXPECT_EQ(ToUtf8(WordsOn({1200, 7, 250, 1000}, 4000)), "1200 行，7 台仪表，25%，还需 13 秒");
    EXPECT_EQ(ToUtf8(WordsOn({1200, 7, 250, 1000}, 999)), "1200 行，7 台仪表，25%");
    EXPECT_EQ(ToUtf8(WordsOn({0, 0, 0, 1000}, 4000)), "0 行，0 台仪表，0%");
    EXPECT_EQ(ToUtf8(WordsOn({3, 1, 0, 0}, 4000)), "3 行，1 台仪表");
}

class ListProgressTest : public ::testing::Test {
  protected:
    std::istringstream input;
    std::ostringstream results;
    std::ostringstream problems;
    Console console{{input}, results, problems, 80};
    ListProgress progress{console};
};

TEST_F(ListProgressTest, StepsAreTakenToTheirEnd) {
    int steps = 0;
    EXPECT_TRUE(progress.Run([&steps] { return ++steps < 1000; }, [] { return ListPlace{}; }));
    EXPECT_EQ(steps, 1000);
}

TEST_F(ListProgressTest, InterruptEndsTheStepsWithinTheNextFew) {
    int steps = 0;
    const auto step = [&steps] {
        if (++steps == 1000) std::raise(SIGINT);
        return steps < 100'000;
    };
    EXPECT_FALSE(progress.Run(step, [] { return ListPlace{}; }));
    EXPECT_LT(steps, 2000);
}

TEST_F(ListProgressTest, InterruptBehindTheLastStepCounts) {
    EXPECT_FALSE(progress.Run(
        [] {
            std::raise(SIGINT);
            return false;
        },
        [] { return ListPlace{}; }));
}

}  // namespace

}  // namespace commtest
