#include "simulator/refusals.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "simulator/description.h"
#include "simulator/sample_lines.h"

namespace simulator {
namespace {

class RefusingLine : public QuietLine {
  public:
    RefusingLine(Instrument instrument, std::vector<RefusalRate> rates) : QuietLine({std::move(instrument)}) {
        bus.SetRefusals({std::move(rates), 1});
    }
};

Instrument Indicator(int code) { return {{code, 1}, 1, "indicator", {Fixed("0010", "2", "RW", 100)}}; }

constexpr const char* kAsciiRead = ":010300100001EB\r";
constexpr const char* kAsciiWrite = ":010600100005E4\r";

TEST(Refusals, UsualOneOfModbusIsBusy) {
    RefusingLine ascii(Indicator(21), {{1, ""}});
    EXPECT_EQ(ascii.Ask(kAsciiRead), ":01880275\r\n");
    RefusingLine rtu(Indicator(31), {{1, ""}});
    EXPECT_EQ(rtu.AskPairs("01 03 00 10 00 01 85 CF"), "01 88 02 C7 C1");
}

TEST(Refusals, RefusedWriteChangesNothingAndIsCounted) {
    RefusingLine line(Indicator(21), {{1, "\x86\x02"}});
    EXPECT_EQ(line.Ask(kAsciiWrite), ":01860277\r\n");
    EXPECT_EQ(line.Ask(kAsciiRead), ":010302006496\r\n");
    EXPECT_EQ(line.bus.Total().refusals, 1);
    EXPECT_EQ(line.bus.Total().writesAccepted, 0);
}

TEST(Refusals, ExceptionsOfWritesAreForWritesAlone) {
    for (const char* exception : {"\x86\x02", "\x87\x03", "\x90\x02"}) {
        EXPECT_FALSE(Indicator(31).RefusalOf(FromPairs("03 00 10 00 01"), exception, 0)) << exception;
        EXPECT_TRUE(Indicator(31).RefusalOf(FromPairs("06 00 10 00 01"), exception, 0)) << exception;
    }
}

TEST(Refusals, SeveralShareALineAndTheFirstThatHappensCounts) {
    RefusingLine line(Indicator(21), {{1, "\x86\x02"}, {1, "\x88\x02"}});
    EXPECT_EQ(line.Ask(kAsciiWrite), ":01860277\r\n");
    EXPECT_EQ(line.Ask(kAsciiRead), ":01880275\r\n");
}

TEST(Refusals, NativeInstrumentRefusesReadsAndWrites) {
    RefusingLine line(TwoValues(), {{1, ""}});
    EXPECT_EQ(line.Ask("@01RD17\r"), "@01**01\r");
    EXPECT_EQ(line.Ask("@01W365\r"), "@01**01\r");
    EXPECT_EQ(line.bus.Total().refusals, 2);
}

TEST(Refusals, NovaxInstrumentDoesNotTakeAWriteAndAnswersAsIfItDid) {
    std::vector<Parameter> parameters(9, Fixed("0000", "2", "R", 0));
    parameters.push_back(Fixed("0012", "2", "RW", 7));
    Instrument instrument(41, 1, "furnace", parameters);
    RefusingLine line(instrument, {{1, ""}});
    EXPECT_EQ(line.AskPairs("81 81 43 12 05 00 49 12"), "00 00 00 00 00 00 05 00 05 00");
    EXPECT_EQ(line.AskPairs("81 81 52 12 00 00 53 12"), "00 00 00 00 00 00 07 00 07 00");
    EXPECT_EQ(line.bus.Total().refusals, 1);
}

TEST(Refusals, HappenAsOftenAsTheirRateAndTheSameWithTheSameSeed) {
    const auto refusedOf = [](std::uint64_t seed) {
        QuietLine line({TwoValues()});
        line.bus.SetRefusals({{{0.25, ""}}, seed});
        std::string pattern;
        for (int i = 0; i < 2000; ++i) pattern += line.Ask("@01RD17\r") == "@01**01\r" ? '1' : '0';
        return pattern;
    };
    const std::string pattern = refusedOf(7);
    EXPECT_NEAR(static_cast<double>(std::count(pattern.begin(), pattern.end(), '1')), 500, 100);
    EXPECT_EQ(pattern, refusedOf(7));
    EXPECT_NE(pattern, refusedOf(8));
}

TEST(Refusals, InstrumentsThatCannotRefuseSoAreNamed) {
    const auto messageOn = [](int code, const std::string& exception) -> std::string {
        try {
            RefuseStrangeRefusals({{0.5, exception}}, Instrument(code, 1, "sample", {}));
        } catch (const DescriptionError& error) {
            return error.what();
        }
        return "accepted";
    };
    EXPECT_EQ(messageOn(11, ""), "accepted");
    EXPECT_EQ(messageOn(21, "\x88\x02"), "accepted");
    EXPECT_EQ(messageOn(41, ""), "accepted");
    EXPECT_EQ(messageOn(42, ""), "--refuse: expected an instrument that can refuse, found \"sample\"");
    EXPECT_EQ(messageOn(11, "\x88\x02"),
              "--refuse: expected a Modbus instrument for an exception, found \"sample\"");
}

Parameter Lock(double value) {
    return {"参数锁CLK", "0020", "2", "RW", "0", {}, {}, Behaviour::Constant(value)};
}

TEST(ParameterLock, WritesAreRefusedUntilItHoldsEight) {
    QuietLine line({Instrument({21, 0}, 1, "locked", {Fixed("0010", "2", "RW", 100), Lock(0)})});
    EXPECT_EQ(line.Ask(kAsciiWrite), ":01860178\r\n");
    EXPECT_EQ(line.Ask(":010600200008D1\r"), ":010600200008D1\r\n");
    EXPECT_EQ(line.Ask(kAsciiWrite), ":010600100005E4\r\n");
}

TEST(ParameterLock, UnderRtuTheSameExceptionIsTold) {
    QuietLine line({Instrument({31, 1}, 1, "locked", {Fixed("0010", "2", "RW", 100), Lock(0)})});
    EXPECT_EQ(line.AskPairs("01 06 00 10 03 E8 88 B1"), "01 86 01 83 A0");
}

}  // namespace
}  // namespace simulator
