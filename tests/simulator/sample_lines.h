#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "simulator/bus.h"
#include "simulator/byte_pairs.h"
#include "simulator/sample_instruments.h"

namespace simulator {

// A line without faults.
class QuietLine {
  public:
    explicit QuietLine(std::vector<Instrument> instruments) : bus(std::move(instruments), FaultRates{}, 1) {}

    std::string Ask(const std::string& bytes, double timeMs = 0) {
        return BytesOf(bus.Receive(bytes, timeMs));
    }
    std::string AskPairs(const std::string& pairs, double timeMs = 0) {
        return Pairs(Ask(FromPairs(pairs), timeMs));
    }

    Bus bus;
};

// The corrupt ones of many replies on a line that corrupts every other one.
inline std::vector<std::string> CorruptReplies(const Instrument& instrument, const std::string& request,
                                               const std::string& reply) {
    constexpr int kReplies = 3000;
    Bus bus({instrument}, {.corrupt = 0.5}, 7);
    std::vector<std::string> corrupt;
    for (int i = 0; i < kReplies; ++i) {
        std::string bytes = BytesOf(bus.Receive(request, 0));
        if (bytes != reply) corrupt.push_back(std::move(bytes));
    }
    EXPECT_EQ(bus.Total().faults.corruptions, static_cast<long>(corrupt.size()));
    EXPECT_GT(corrupt.size(), kReplies / 3U);
    return corrupt;
}

// The places, from 0, at which they differ from the reply; each in one byte.
inline std::set<std::size_t> CorruptPlaces(const std::vector<std::string>& corrupt,
                                           const std::string& reply) {
    std::set<std::size_t> places;
    for (const std::string& bytes : corrupt) {
        EXPECT_EQ(bytes.size(), reply.size());
        int differences = 0;
        for (std::size_t at = 0; at < std::min(bytes.size(), reply.size()); ++at) {
            if (bytes[at] == reply[at]) continue;
            ++differences;
            places.insert(at);
        }
        EXPECT_EQ(differences, 1);
    }
    return places;
}

}  // namespace simulator
