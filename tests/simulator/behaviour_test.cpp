#include "simulator/behaviour.h"

#include <gtest/gtest.h>

#include <set>

namespace simulator {
namespace {

struct Point {
    std::string words;
    double seconds;
    double value;
};

TEST(Behaviour, HasItsValueAtATime) {
    const Point points[] = {
        {"constant 12.5", 0, 12.5},    {"constant 12.5", 1e6, 12.5}, {"ramp 0 100 20", 0, 0},
        {"ramp 0 100 20", 5, 50},      {"ramp 0 100 20", 10, 100},   {"ramp 0 100 20", 15, 50},
        {"ramp 0 100 20", 25, 50},     {"sine -200 1800 8", 0, 800}, {"sine -200 1800 8", 2, 1800},
        {"sine -200 1800 8", 6, -200}, {"counter 100 0.5", 0, 100},  {"counter 100 0.5", 8, 104},
    };
    for (const auto& [words, seconds, value] : points) {
        const auto behaviour = Behaviour::Read(words);
        ASSERT_TRUE(behaviour) << words;
        EXPECT_NEAR(behaviour->ValueAt(seconds), value, 1e-9) << words << " at " << seconds;
    }
}

TEST(Behaviour, WalkStaysInItsRangeAndIsTheSameInEveryRun) {
    const auto walk = Behaviour::Read("walk 400 600 7");
    const auto again = Behaviour::Read("walk 400 600 7");
    const auto other = Behaviour::Read("walk 400 600 8");
    ASSERT_TRUE(walk && again && other);
    std::set<double> values;
    int equalToOther = 0;
    for (int second = 0; second < 100; ++second) {
        const double value = walk->ValueAt(second);
        EXPECT_GE(value, 400);
        EXPECT_LE(value, 600);
        EXPECT_EQ(again->ValueAt(second), value);
        equalToOther += other->ValueAt(second) == value ? 1 : 0;
        values.insert(value);
    }
    EXPECT_GT(values.size(), 90U);
    EXPECT_LT(equalToOther, 10);
}

TEST(Behaviour, IsNotReadFromOtherWords) {
    for (const char* words : {"", "constant", "constant x", "constant 1 2", "ramp 0 100", "ramp 0 100 0",
                              "sine 0 1 -5", "counter 1", "walk 1 2", "square 0 1 2", "ramp 0 100 20 s"}) {
        EXPECT_FALSE(Behaviour::Read(words)) << words;
    }
}

// The published first numbers of this generator for this seed.
TEST(RandomStream, GivesTheSameNumbersForASeedEverywhere) {
    RandomStream random(1234567);
    for (const std::uint64_t number : {6457827717110365317U, 3203168211198807973U, 9817491932198370423U,
                                       4593380528125082431U, 16408922859458223821U}) {
        EXPECT_EQ(random.Next(), number);
    }
}

TEST(RandomStream, NumbersBetweenReachBothEnds) {
    RandomStream random(5);
    std::set<int> seen;
    for (int i = 0; i < 1000; ++i) seen.insert(random.Between(-1, 2));
    EXPECT_EQ(seen, (std::set<int>{-1, 0, 1, 2}));
}

}  // namespace
}  // namespace simulator
