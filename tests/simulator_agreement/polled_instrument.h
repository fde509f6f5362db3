#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/toolbar_commands.h"
#include "runtime/number.h"
#include "session/grid_rows.h"
#include "simulator/bus.h"
#include "support/bench_session.h"

namespace commtest::testing {

inline constexpr int kExchanges = 20000;
inline constexpr int kTurnaround = 5;  // milliseconds
inline constexpr std::uint64_t kSeed = 7;

// A row of the list that program and simulated instrument have in common, and the value that the instrument
// holds.
struct SharedRow {
    std::string name;
    std::string address;
    std::string length;
    std::string attribute;
    double value;
};

inline std::vector<TestParameter> ListOfProgram(const std::vector<SharedRow>& rows) {
    std::vector<TestParameter> list;
    for (const SharedRow& row : rows) {
        list.push_back(
            {FromUtf8(row.name), FromUtf8(row.address), FromUtf8(row.length), FromUtf8(row.attribute), u"0"});
    }
    return list;
}

inline std::vector<simulator::Parameter> ListOfInstrument(const std::vector<SharedRow>& rows) {
    std::vector<simulator::Parameter> list;
    for (const SharedRow& row : rows) {
        list.push_back({row.name,
                        row.address,
                        row.length,
                        row.attribute,
                        "0",
                        {},
                        {},
                        simulator::Behaviour::Constant(row.value)});
    }
    return list;
}

// A session that polls a simulated instrument of that model at address 1.
class PolledInstrument : public BenchSession {
  public:
    PolledInstrument(const simulator::Model& model, const std::vector<SharedRow>& rows,
                     const HexText& address, const simulator::FaultRates& rates, int partLength = 0)
        : bus({{model, 1, "仪表", ListOfInstrument(rows), partLength}}, rates, kSeed, kTurnaround) {
        const Text protocol(Form().protocols.Of(model.code).name);
        Text code = FittedToWidth(WholeText(model.code * 100 + model.format), 4);
        Add(u"仪表", protocol, code + u"00", ListOfProgram(rows));
        Choose(protocol, u"仪表");
        Form().AddressText = address;
        line.KeepsFrames = false;
        line.Answer = [this](const std::string& frame) { return Answer(frame); };
    }

    // Polls that many times; the last exchange comes to its end.
    void Poll(int exchanges) {
        constexpr std::int64_t kLongestExchange = 5000;  // milliseconds
        const std::int64_t latest = exchanges * kLongestExchange;
        Press(toolbar::kStartStop);
        line.RunWhile([&] { return Form().SendCount < exchanges; }, latest);
        line.RunWhile([&] { return Form().CycleStep != 1; }, latest);
    }

    simulator::Bus bus;

  private:
    std::vector<Arrival> Answer(const std::string& frame) {
        std::vector<Arrival> arrivals;
        for (const simulator::Chunk& chunk : bus.Receive(frame, static_cast<double>(line.Time()))) {
            arrivals.emplace_back(chunk.delayMs, chunk.bytes);
        }
        return arrivals;
    }
};

inline void ExpectAgreement(PolledInstrument& polled) {
    const simulator::InstrumentCounts counts = polled.bus.Total();
    EXPECT_EQ(polled.bus.IgnoredFrames(), 0);
    EXPECT_EQ(counts.refusals, 0);
    EXPECT_EQ(polled.Form().SendCount, counts.requests);
    EXPECT_EQ(polled.Form().NoReplyCount, counts.faults.drops);
    EXPECT_EQ(polled.Form().IncompleteCount, counts.faults.truncations);
    EXPECT_EQ(polled.Form().CheckErrorCount, counts.faults.corruptions);
    EXPECT_TRUE(polled.dialogs.Shown.empty());
}

// That each fault of the situation did happen, about as often as it should.
inline void ExpectFaults(const simulator::FaultCounts& faults, const simulator::FaultRates& rates) {
    const auto expectHappened = [](const char* fault, long count, double rate) {
        EXPECT_EQ(count > 0, rate > 0) << fault;
        EXPECT_GE(static_cast<double>(count), rate * kExchanges / 2) << fault;
    };
    expectHappened("drop", faults.drops, rates.drop);
    expectHappened("truncate", faults.truncations, rates.truncate);
    expectHappened("corrupt", faults.corruptions, rates.corrupt);
    expectHappened("split", faults.splits, rates.split);
    expectHappened("delay", faults.delays, rates.delay);
}

inline const simulator::FaultRates kAllTogether = {
    .drop = 0.05, .corrupt = 0.05, .truncate = 0.05, .split = 0.2, .delay = 0.2};

}  // namespace commtest::testing
