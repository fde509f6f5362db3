#include "session/outcome_ring.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

// A ring that has been given the outcomes of exchanges 1 to `count`.
OutcomeRing RingOf(std::int32_t count) {
    OutcomeRing ring;
    for (std::int32_t number = 1; number <= count; ++number) {
        const auto outcome = std::make_shared<Outcome>();
        outcome->exchange.number = number;
        ring.Add(outcome);
    }
    return ring;
}

std::int32_t NumberOf(const OutcomePointer& outcome) { return outcome ? outcome->exchange.number : 0; }

TEST(OutcomeRing, NewOneIsEmpty) {
    const OutcomeRing ring;
    EXPECT_EQ(ring.Total(), 0U);
    EXPECT_EQ(ring.Size(), 0U);
    EXPECT_EQ(ring.Last(), nullptr);
    EXPECT_EQ(ring.Last(1), nullptr);
}

TEST(OutcomeRing, LastOnesStandFromTheNewestBack) {
    const OutcomeRing ring = RingOf(3);
    EXPECT_EQ(ring.Total(), 3U);
    EXPECT_EQ(ring.Size(), 3U);
    EXPECT_EQ(NumberOf(ring.Last()), 3);
    EXPECT_EQ(NumberOf(ring.Last(1)), 2);
    EXPECT_EQ(NumberOf(ring.Last(2)), 1);
    EXPECT_EQ(ring.Last(3), nullptr);
}

TEST(OutcomeRing, HoldsTheLastThousandAndCountsThemAll) {
    struct Case {
        std::int32_t count;
        std::size_t size;
        std::int32_t oldest;
    };
    for (const Case& one : {Case{999, 999, 1}, Case{1000, 1000, 1}, Case{1001, 1000, 2},
                            Case{2000, 1000, 1001}, Case{2503, 1000, 1504}}) {
        SCOPED_TRACE(one.count);
        const OutcomeRing ring = RingOf(one.count);
        EXPECT_EQ(ring.Total(), static_cast<std::uint64_t>(one.count));
        EXPECT_EQ(ring.Size(), one.size);
        for (std::size_t back = 0; back < one.size; ++back) {
            ASSERT_EQ(NumberOf(ring.Last(back)), one.count - static_cast<std::int32_t>(back));
        }
        EXPECT_EQ(NumberOf(ring.Last(one.size - 1)), one.oldest);
        EXPECT_EQ(ring.Last(one.size), nullptr);
    }
}

TEST(OutcomeRing, OutcomeThatHasLeftLivesOnWithItsHolder) {
    OutcomeRing ring = RingOf(1);
    const OutcomePointer first = ring.Last();
    for (int i = 0; i < 1000; ++i) ring.Add(std::make_shared<Outcome>());
    EXPECT_EQ(NumberOf(first), 1);
    EXPECT_EQ(first.use_count(), 1);
}

}  // namespace
}  // namespace commtest
