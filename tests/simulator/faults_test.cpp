#include "simulator/faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "simulator/sample_instruments.h"

namespace simulator {
namespace {

constexpr int kReplies = 3000;
constexpr int kWaitMs = 4 * 300;
const std::string kReply = "@01RD00C800646E\r";

// Replies that went over a line with these faults, and what it counted.
struct Traffic {
    explicit Traffic(const FaultRates& rates, std::uint64_t seed = 7, int turnaroundMs = 0) {
        FaultyLine line(rates, seed);
        for (int i = 0; i < kReplies; ++i) replies.push_back(line.Carry(kReply, turnaroundMs, counts));
    }

    long HowMany(bool (*isSo)(const std::vector<Chunk>&)) const {
        return std::ranges::count_if(replies, isSo);
    }

    std::vector<std::vector<Chunk>> replies;
    FaultCounts counts;
};

bool IsMissing(const std::vector<Chunk>& chunks) { return chunks.empty(); }

bool IsCutShort(const std::vector<Chunk>& chunks) {
    const std::string bytes = BytesOf(chunks);
    return !bytes.empty() && bytes.size() < kReply.size() && kReply.starts_with(bytes);
}

// One byte differs, behind the start and before the line end, and is no line end itself.
bool IsCorrupt(const std::vector<Chunk>& chunks) {
    const std::string bytes = BytesOf(chunks);
    if (bytes.size() != kReply.size()) return false;
    std::size_t place = 0;
    int differences = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == kReply[i]) continue;
        ++differences;
        place = i;
    }
    return differences == 1 && place >= 1 && place + 2 <= bytes.size() && bytes[place] != '\r' &&
           bytes[place] != '\n';
}

bool IsWhole(const std::vector<Chunk>& chunks) { return BytesOf(chunks) == kReply; }

bool IsInsideTheWait(const std::vector<Chunk>& chunks) {
    const auto isInside = [](const Chunk& chunk) { return chunk.delayMs >= 0 && chunk.delayMs < kWaitMs; };
    return std::ranges::all_of(chunks, isInside) && std::ranges::is_sorted(chunks, {}, &Chunk::delayMs);
}

void ExpectAbout(double rate, long count) { EXPECT_NEAR(static_cast<double>(count) / kReplies, rate, 0.04); }

TEST(FaultyLine, WithoutFaultsCarriesRepliesAsTheyAre) {
    const Traffic traffic(FaultRates{}, 7, 12);
    for (const auto& chunks : traffic.replies) {
        ASSERT_EQ(chunks.size(), 1U);
        EXPECT_EQ(chunks[0].delayMs, 12);
        EXPECT_EQ(chunks[0].bytes, kReply);
    }
}

TEST(FaultyLine, DroppedRepliesAreMissing) {
    const Traffic traffic({.drop = 0.2});
    EXPECT_EQ(traffic.HowMany(IsMissing), traffic.counts.drops);
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies - traffic.counts.drops);
    ExpectAbout(0.2, traffic.counts.drops);
}

TEST(FaultyLine, TruncatedRepliesKeepAtLeastOneByteAndLoseTheirEnd) {
    const Traffic traffic({.truncate = 0.2});
    EXPECT_EQ(traffic.HowMany(IsCutShort), traffic.counts.truncations);
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies - traffic.counts.truncations);
    ExpectAbout(0.2, traffic.counts.truncations);
    std::set<std::size_t> lengths;
    for (const auto& chunks : traffic.replies) lengths.insert(BytesOf(chunks).size());
    EXPECT_EQ(*lengths.begin(), 1U);
    EXPECT_EQ(lengths.size(), kReply.size());  // every length occurs
}

TEST(FaultyLine, CorruptRepliesDifferInOneByteOfWhatTheCheckWordCovers) {
    const Traffic traffic({.corrupt = 0.5});
    EXPECT_EQ(traffic.HowMany(IsCorrupt), traffic.counts.corruptions);
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies - traffic.counts.corruptions);
    ExpectAbout(0.5, traffic.counts.corruptions);
    std::set<std::size_t> places;
    for (const auto& chunks : traffic.replies) {
        const std::string bytes = BytesOf(chunks);
        const auto place = std::ranges::mismatch(bytes, kReply).in1;
        if (place != bytes.end()) places.insert(static_cast<std::size_t>(place - bytes.begin()));
    }
    EXPECT_EQ(places.size(), kReply.size() - 2);  // from the second to the last of the check word
}

TEST(FaultyLine, OnlyOneOfDropCorruptAndTruncateHitsAReply) {
    const Traffic traffic({.drop = 0.3, .corrupt = 0.4, .truncate = 0.5});
    const FaultCounts& counts = traffic.counts;
    EXPECT_EQ(traffic.HowMany(IsMissing), counts.drops);
    EXPECT_EQ(traffic.HowMany(IsCorrupt), counts.corruptions);
    EXPECT_EQ(traffic.HowMany(IsCutShort), counts.truncations);
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies - counts.drops - counts.corruptions - counts.truncations);
    EXPECT_GT(counts.drops, 0);
    EXPECT_GT(counts.corruptions, 0);
    EXPECT_GT(counts.truncations, 0);
}

TEST(FaultyLine, SplitRepliesComeWholeInTwoToFourPiecesInsideTheWait) {
    const Traffic traffic({.split = 0.5});
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies);
    EXPECT_EQ(traffic.HowMany(IsInsideTheWait), kReplies);
    const auto isSplit = [](const std::vector<Chunk>& chunks) {
        return chunks.size() >= 2 && chunks.size() <= 4;
    };
    EXPECT_EQ(traffic.HowMany(isSplit), traffic.counts.splits);
    for (const auto& chunks : traffic.replies) {
        for (std::size_t i = 1; i < chunks.size(); ++i) EXPECT_GT(chunks[i].delayMs, chunks[i - 1].delayMs);
        for (const Chunk& chunk : chunks) EXPECT_FALSE(chunk.bytes.empty());
    }
}

TEST(FaultyLine, DelayedRepliesComeWholeAndInsideTheWait) {
    const Traffic traffic({.delay = 0.5});
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies);
    EXPECT_EQ(traffic.HowMany(IsInsideTheWait), kReplies);
    EXPECT_EQ(traffic.HowMany([](const std::vector<Chunk>& chunks) { return chunks[0].delayMs > 0; }),
              traffic.counts.delays);
}

TEST(FaultyLine, SplitAndDelayTogetherStayInsideTheWait) {
    const Traffic traffic({.split = 1, .delay = 1});
    EXPECT_EQ(traffic.HowMany(IsInsideTheWait), kReplies);
    EXPECT_EQ(traffic.counts.splits, kReplies);
    EXPECT_EQ(traffic.counts.delays, kReplies);
}

TEST(FaultyLine, LateRepliesComeWholeAfterTheWait) {
    const Traffic traffic({.late = 0.5});
    EXPECT_EQ(traffic.HowMany(IsWhole), kReplies);
    EXPECT_EQ(traffic.HowMany([](const std::vector<Chunk>& chunks) { return chunks[0].delayMs > kWaitMs; }),
              traffic.counts.lateReplies);
}

TEST(FaultyLine, NoiseStandsBeforeOrBehindTheReply) {
    const Traffic traffic({.noise = 1});
    EXPECT_EQ(traffic.counts.noises, kReplies);
    bool isBefore = false;
    bool isBehind = false;
    for (const auto& chunks : traffic.replies) {
        const std::string bytes = BytesOf(chunks);
        EXPECT_GT(bytes.size(), kReply.size());
        EXPECT_LE(bytes.size(), kReply.size() + 3);
        ASSERT_TRUE(bytes.starts_with(kReply) || bytes.ends_with(kReply));
        isBehind = isBehind || bytes.starts_with(kReply);
        isBefore = isBefore || bytes.ends_with(kReply);
    }
    EXPECT_TRUE(isBefore);
    EXPECT_TRUE(isBehind);
}

std::string Transcript(std::uint64_t seed) {
    const Traffic traffic(
        {.drop = 0.1, .corrupt = 0.1, .truncate = 0.1, .late = 0.1, .split = 0.3, .delay = 0.3}, seed);
    std::string transcript;
    for (const auto& chunks : traffic.replies) {
        for (const Chunk& chunk : chunks) transcript += std::to_string(chunk.delayMs) + chunk.bytes;
        transcript += '\n';
    }
    return transcript;
}

TEST(FaultyLine, SameSeedDoesTheSameAgain) {
    EXPECT_EQ(Transcript(7), Transcript(7));
    EXPECT_NE(Transcript(7), Transcript(8));
}

TEST(FaultyBus, CountsFaultsOfTheInstrumentThatTheyHit) {
    Bus bus({TwoValues(11, 1), TwoValues(11, 2)}, {.drop = 0.3, .truncate = 0.3}, 7);
    long missing = 0;
    long answered = 0;
    for (int i = 0; i < kReplies; ++i) {
        const bool isAnswered = !bus.Receive("@02RD14\r", 0).empty();
        missing += isAnswered ? 0 : 1;
        answered += isAnswered ? 1 : 0;
    }
    EXPECT_EQ(bus.CountsOf(1).faults.drops, missing);
    EXPECT_EQ(bus.CountsOf(1).answers, answered);
    EXPECT_EQ(bus.CountsOf(1).requests, kReplies);
    EXPECT_EQ(bus.CountsOf(0).faults.drops, 0);
    EXPECT_EQ(bus.Total().faults.drops, missing);
    EXPECT_EQ(bus.Total().faults.truncations, bus.CountsOf(1).faults.truncations);
}

TEST(FaultyBus, DroppedPartIsCountedLikeADroppedReply) {
    Bus bus({Instrument(11, 1, "parts", SampleParameters(), 7)}, {.drop = 1}, 7);
    EXPECT_TRUE(bus.Receive("@01RR01\r", 0).empty());
    EXPECT_TRUE(bus.Receive("\n", 0).empty());
    EXPECT_EQ(bus.Total().faults.drops, 2);
    EXPECT_EQ(bus.Total().continueBytes, 1);
    EXPECT_EQ(bus.Total().answers, 0);
}

}  // namespace
}  // namespace simulator
