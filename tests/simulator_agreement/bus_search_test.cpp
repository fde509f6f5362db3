#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/search_panel.h"
#include "simulator/bus.h"
#include "simulator/description.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::Happen;
using testing::NativeBench;

constexpr std::size_t k4800 = 2;
constexpr std::size_t k9600 = 3;
constexpr std::size_t k19200 = 4;

// The one at 11 answers 300 ms before it would be given up, the one at 20 with rubbish.
constexpr const char* kSevenInstruments =
    "11000101 | a | 1 | | 4800\n"
    "11000101 | b | 7 | | 4800\n"
    "11000101 | c | 8 | | 9600\n"
    "11000101 | d | 11 | | 9600 | 900\n"
    "11000101 | e | 20 | | 9600 | | garbage\n"
    "11000101 | f | 31 | | 19200\n"
    "11000101 | g | 32 | | 19200\n"
    "11000101 | not searched | 5 | | 1200\n"
    "11000101 | not searched | 33 | | 9600\n";

class BusSearch : public ::testing::Test, public NativeBench {
  protected:
    BusSearch() : bus(simulator::ReadDescription(kSevenInstruments, "bus"), {}, 1, 20) {
        Form().ConSettingComm.Set(u"COM1");
        line.Answer = [this](const std::string& frame) { return Answer(frame); };
    }

    void Search() {
        for (const std::size_t rate : {k4800, k9600, k19200}) Form().ConSettingBT.at(rate).Set(true);
        Form().ConSettingDE[0].Set(u"1");
        Form().ConSettingDE[1].Set(u"32");
        Happen(*this, [](MainForm& form) { FindMeter_Click(form, 1); });
        constexpr std::int64_t kLongest = 10 * 60 * 1000;
        line.RunWhile([this] { return Form().IsRunning(); }, kLongest);
    }

    // "9600 11 920": where and how late, "?" behind it for a wrong check word.
    std::vector<std::string> Found() {
        std::vector<std::string> found;
        for (const SearchHit& hit : Form().SearchHits) {
            found.push_back(ToUtf8(hit.rate) + " " + std::to_string(hit.address) + " " +
                            std::to_string(hit.replyTime.value_or(0) / 1000) +
                            (hit.check == CheckWord::Right ? "" : "?"));
        }
        return found;
    }

    simulator::Bus bus;

  private:
    std::vector<testing::Arrival> Answer(const std::string& frame) {
        const int rate = std::stoi(ToUtf8(Before(line.Settings(), u',')));
        std::vector<testing::Arrival> arrivals;
        for (const simulator::Chunk& chunk : bus.Receive(frame, static_cast<double>(line.Time()), rate)) {
            arrivals.emplace_back(chunk.delayMs, chunk.bytes);
        }
        return arrivals;
    }
};

TEST_F(BusSearch, FindsEachInstrumentAtItsRateAndNoOther) {
    Search();
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_THAT(Found(), ElementsAre("4800 1 20", "4800 7 20", "9600 8 20", "9600 11 920", "9600 20 20?",
                                     "19200 31 20", "19200 32 20"));
    EXPECT_EQ(Form().SearchFoundCount, 7);
    EXPECT_EQ(bus.IgnoredFrames(), 3 * 32 - 7);
}

}  // namespace
}  // namespace commtest
