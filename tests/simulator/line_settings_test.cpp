#include "simulator/line_settings.h"

#include <gtest/gtest.h>

#include "simulator/sample_lines.h"

namespace simulator {
namespace {

Parameter Named(const std::string& name, const std::string& address, const std::string& length) {
    return {name, address, length, "RW", "0", {}, {}, {}};
}

Instrument WithSettings(int address, int rate = 0, bool isVolatile = false) {
    std::vector<Parameter> parameters = {Fixed("0010", "2", "R", 100), Named("仪表地址", "0030", "2"),
                                         Named("波特率代码", "0031", "2")};
    for (Parameter& parameter : parameters) parameter.isVolatile = isVolatile;
    Instrument instrument({31, 1}, address, "sample", parameters);
    instrument.SetManner({.rate = rate});
    return instrument;
}

std::string AskAt(Bus& bus, const std::string& pairs, int rate) {
    return Pairs(BytesOf(bus.Receive(FromPairs(pairs), 0, rate)));
}

constexpr const char* kReadOfOne = "01 03 00 10 00 01 85 CF";
constexpr const char* kReadOfTwo = "02 03 00 10 00 01 85 FC";
constexpr const char* kAnswerOfOne = "01 03 02 00 64 B9 AF";
constexpr const char* kAnswerOfTwo = "02 03 02 00 64 FD AF";
constexpr const char* kBecomeTwo = "01 06 00 30 00 02 08 04";
constexpr const char* kTake19200 = "01 06 00 31 00 04 D9 C6";

TEST(RateOfCode, CodesAreTheEightRatesOfTheList) {
    const int rates[] = {1200, 2400, 4800, 9600, 19200, 28800, 38400, 57600};
    for (int code = 0; code < 8; ++code) {
        EXPECT_EQ(RateOfCode(code), rates[code]);
        EXPECT_EQ(CodeOfRate(rates[code]), code);
    }
    EXPECT_EQ(RateOfCode(-1), std::nullopt);
    EXPECT_EQ(RateOfCode(8), std::nullopt);
    EXPECT_EQ(CodeOfRate(9601), std::nullopt);
}

TEST(LineSettings, RowsHoldWhatTheHeadOfTheDescriptionSays) {
    QuietLine line({WithSettings(1, 9600)});
    EXPECT_EQ(line.AskPairs("01 03 00 30 00 02 C4 04"), "01 03 04 00 01 00 03 EB F2");
}

TEST(LineSettings, WrittenAddressIsAnsweredFromTheOldOneAndHoldsFromThenOn) {
    QuietLine line({WithSettings(1)});
    EXPECT_EQ(line.AskPairs(kBecomeTwo), kBecomeTwo);
    EXPECT_EQ(line.AskPairs(kReadOfOne), "");
    EXPECT_EQ(line.AskPairs(kReadOfTwo), kAnswerOfTwo);
    EXPECT_EQ(line.bus.Instruments()[0].Address(), 2);
}

TEST(LineSettings, AddressThatIsNotTakenChangesNothing) {
    Parameter address = Named("仪表地址", "0030", "2");
    address.highest = 1;
    QuietLine line({Instrument({31, 1}, 1, "sample", {Fixed("0010", "2", "R", 100), address})});
    EXPECT_EQ(line.AskPairs(kBecomeTwo), "01 86 02 C3 A1");
    EXPECT_EQ(line.AskPairs(kReadOfOne), kAnswerOfOne);
}

TEST(LineSettings, WrittenRateIsAnsweredAtTheOldOneAndHoldsFromThenOn) {
    Bus bus({WithSettings(1, 9600)}, FaultRates{}, 1);
    EXPECT_EQ(AskAt(bus, kTake19200, 9600), kTake19200);
    EXPECT_EQ(AskAt(bus, kReadOfOne, 9600), "");
    EXPECT_EQ(AskAt(bus, kReadOfOne, 19200), kAnswerOfOne);
}

TEST(LineSettings, InstrumentOfAnyRateHearsTheWrittenOneAlone) {
    Bus bus({WithSettings(1)}, FaultRates{}, 1);
    EXPECT_EQ(AskAt(bus, kReadOfOne, 9600), kAnswerOfOne);
    AskAt(bus, kTake19200, 9600);
    EXPECT_EQ(AskAt(bus, kReadOfOne, 9600), "");
}

TEST(Power, WithoutItAllRequestsAreIgnored) {
    QuietLine line({WithSettings(1)});
    line.bus.TakePower();
    EXPECT_EQ(line.AskPairs(kReadOfOne), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    line.bus.GivePower();
    EXPECT_EQ(line.AskPairs(kReadOfOne), kAnswerOfOne);
}

TEST(Power, RowsThatAreNotVolatileKeepWhatWasWritten) {
    QuietLine line({WithSettings(1)});
    line.AskPairs(kBecomeTwo);
    line.bus.TakePower();
    line.bus.GivePower();
    EXPECT_EQ(line.AskPairs(kReadOfTwo), kAnswerOfTwo);
}

TEST(Power, VolatileRowsAreAsDescribedBehindIt) {
    QuietLine line({WithSettings(1, 0, true)});
    line.AskPairs(kBecomeTwo);
    line.bus.TakePower();
    line.bus.GivePower();
    EXPECT_EQ(line.AskPairs(kReadOfTwo), "");
    EXPECT_EQ(line.AskPairs(kReadOfOne), kAnswerOfOne);
}

TEST(Power, NoPartOfAnAnswerIsLeftBehindIt) {
    QuietLine line({Instrument(11, 1, "sample", SampleParameters(), 7)});
    EXPECT_EQ(line.Ask("@01RR01\r"), "@01RR01C88004A0000006\n");
    line.bus.TakePower();
    line.bus.GivePower();
    EXPECT_EQ(line.Ask("\n"), "");
}

}  // namespace
}  // namespace simulator
