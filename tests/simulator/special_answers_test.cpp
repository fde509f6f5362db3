#include "simulator/special_answers.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"
#include "simulator/instrument.h"
#include "simulator/sample_instruments.h"

namespace simulator {
namespace {

class Asked {
  public:
    Asked(int code, std::vector<Parameter> parameters)
        : instrument(code, 1, "instrument", std::move(parameters)) {}

    // The content of the answer.
    std::string Ask(const std::string& request, double seconds = 0) {
        last = instrument.AnswerTo(FromPairs(request), seconds);
        return Pairs(last.parts.at(0));
    }

    Instrument instrument;
    Answer last;
};

// Rows of these values from the sixth on.
std::vector<Parameter> Reporting(const std::vector<double>& values) {
    std::vector<Parameter> parameters(5, Fixed("0000", "2", "R", 0));
    for (const double value : values) parameters.push_back(Fixed("0001", "2", "R", value));
    return parameters;
}

// --- NOVAX ---

// Reports FA 00 FE FF 03 C8.
Asked Controller() {
    std::vector<Parameter> parameters = Reporting({250, -2, 3, 200});
    parameters.push_back(Fixed("0010", "2", "RW", 750, 0, 3000));
    parameters.push_back(Fixed("0012", "2", "RW", -150, -1999, 9999));
    parameters.push_back(Fixed("0112", "2", "RW", 7));
    parameters.push_back(Fixed("0A20", "2", "RW", 77));
    parameters.push_back(Fixed("001B", "2", "R", 12));
    return {41, parameters};
}

TEST(NovaxRead, TellsFourRowsAndTheParameterThatIsAskedFor) {
    Asked asked = Controller();
    EXPECT_EQ(asked.Ask("52 10 00 00"), "FA 00 FE FF 03 C8 EE 02");
    EXPECT_EQ(asked.Ask("52 12 00 00"), "FA 00 FE FF 03 C8 6A FF");
    EXPECT_EQ(asked.Ask("52 1B 00 00"), "FA 00 FE FF 03 C8 0C 00");
    EXPECT_FALSE(asked.last.isRefused);
    EXPECT_FALSE(asked.last.isWrite);
}

TEST(NovaxRead, NumberIsTheLowByteOfAnAddress) {
    EXPECT_EQ(Controller().Ask("52 20 00 00"), "FA 00 FE FF 03 C8 4D 00");
}

TEST(NovaxRead, NumberOfNoRowFromTheTenthOnReadsZero) {
    Asked asked = Controller();
    EXPECT_EQ(asked.Ask("52 7F 00 00"), "FA 00 FE FF 03 C8 00 00");
    EXPECT_EQ(asked.Ask("52 01 00 00"), "FA 00 FE FF 03 C8 00 00");  // that of the sixth row
    EXPECT_FALSE(asked.last.isRefused);
}

TEST(NovaxRead, TenthRowIsTheFirstParameter) {
    std::vector<Parameter> parameters = Reporting({0, 0, 0, 0});
    parameters[8] = Fixed("0010", "1", "R", 5);
    parameters.push_back(Fixed("0010", "2", "R", 9));
    EXPECT_EQ(Asked(41, parameters).Ask("52 10 00 00"), "00 00 00 00 00 05 09 00");
}

TEST(NovaxRead, ValuesAreRoundedAndHeldInTheRangeOfTheirFields) {
    const auto read = [](const std::vector<double>& values, double parameter) {
        std::vector<Parameter> parameters = Reporting(values);
        parameters.push_back(Fixed("0010", "2", "R", parameter));
        return Asked(41, parameters).Ask("52 10 00 00");
    };
    EXPECT_EQ(read({32767, -32768, 255, 0}, -32768), "FF 7F 00 80 FF 00 00 80");
    EXPECT_EQ(read({32768, -32769, 256, -1}, 32768), "FF 7F 00 80 FF 00 FF 7F");
    EXPECT_EQ(read({2.5, -2.5, 4.4, 4.5}, 1.6), "03 00 FD FF 04 05 02 00");
}

TEST(NovaxRead, RowsThatAreNotThereAreZero) {
    EXPECT_EQ(Asked(41, {}).Ask("52 10 00 00"), "00 00 00 00 00 00 00 00");
    EXPECT_EQ(Asked(41, Reporting({250, -2})).Ask("52 10 00 00"), "FA 00 FE FF 00 00 00 00");
}

TEST(NovaxWrite, IsKeptAndReadBack) {
    Asked asked = Controller();
    EXPECT_EQ(asked.Ask("43 10 B8 0B"), "FA 00 FE FF 03 C8 B8 0B");  // 3000, the limit
    EXPECT_TRUE(asked.last.isWrite);
    EXPECT_FALSE(asked.last.isRefused);
    EXPECT_EQ(asked.Ask("52 10 00 00"), "FA 00 FE FF 03 C8 B8 0B");
    EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 3000.0);
}

TEST(NovaxWrite, NegativeValueIsKeptAndReadBack) {
    Asked asked = Controller();
    EXPECT_EQ(asked.Ask("43 12 31 F8"), "FA 00 FE FF 03 C8 31 F8");
    EXPECT_EQ(asked.instrument.ValueOf("at 0012", 0), -1999.0);
    EXPECT_EQ(asked.Ask("52 12 00 00"), "FA 00 FE FF 03 C8 31 F8");
}

TEST(NovaxWrite, OfTwoRowsWithOneNumberTheFirstIsWritten) {
    Asked asked = Controller();
    asked.Ask("43 12 05 00");
    EXPECT_EQ(asked.instrument.ValueOf("at 0012", 0), 5.0);
    EXPECT_EQ(asked.instrument.ValueOf("at 0112", 0), 7.0);
}

TEST(NovaxWrite, ThatIsNotTakenIsAnsweredLikeOneThatIs) {
    struct Refusal {
        const char* write;
        const char* answer;
        const char* read;
        const char* value;
    };
    const Refusal refusals[] = {
        {"43 10 B9 0B", "FA 00 FE FF 03 C8 B9 0B", "52 10 00 00", "FA 00 FE FF 03 C8 EE 02"},  // 3001
        {"43 12 30 F8", "FA 00 FE FF 03 C8 30 F8", "52 12 00 00", "FA 00 FE FF 03 C8 6A FF"},  // -2000
        {"43 1B 05 00", "FA 00 FE FF 03 C8 05 00", "52 1B 00 00", "FA 00 FE FF 03 C8 0C 00"},  // R alone
        {"43 7F 05 00", "FA 00 FE FF 03 C8 05 00", "52 7F 00 00", "FA 00 FE FF 03 C8 00 00"},  // no row
        {"43 01 05 00", "FA 00 FE FF 03 C8 05 00", "52 01 00 00", "FA 00 FE FF 03 C8 00 00"}};
    for (const Refusal& refusal : refusals) {
        Asked asked = Controller();
        EXPECT_EQ(asked.Ask(refusal.write), refusal.answer);
        EXPECT_TRUE(asked.last.isWrite && asked.last.isRefused) << refusal.write;
        EXPECT_EQ(asked.Ask(refusal.read), refusal.value);
        EXPECT_FALSE(asked.last.isRefused) << refusal.read;
    }
}

TEST(NovaxWrite, IsAnsweredWithTheValuesOfItsMoment) {
    std::vector<Parameter> parameters = Reporting({0, 0, 0, 0});
    parameters[5].behaviour = Behaviour::Read("counter 10 2");
    parameters.push_back(Fixed("0010", "2", "RW", 9));
    parameters.back().behaviour = Behaviour::Read("counter 100 1");
    Asked asked(41, parameters);
    EXPECT_EQ(asked.Ask("52 10 00 00", 7), "18 00 00 00 00 00 6B 00");
    EXPECT_EQ(asked.Ask("43 10 05 00", 7), "18 00 00 00 00 00 05 00");
    EXPECT_EQ(asked.Ask("52 10 00 00", 8), "1A 00 00 00 00 00 05 00");
}

// --- HCT615D ---

TEST(Hct615dRead, TellsFourRowsInDecimalDigits) {
    Asked asked(42, Reporting({1234, 56, 7890, 123456, 5}));
    EXPECT_EQ(asked.Ask(""), "12 34 00 56 00 78 90 00 12 34 56");
    EXPECT_FALSE(asked.last.isRefused);
    EXPECT_FALSE(asked.last.isWrite);
}

TEST(Hct615dRead, ValuesAreRoundedAndHeldInTheRangeOfTheirFields) {
    const auto read = [](const std::vector<double>& values) { return Asked(42, Reporting(values)).Ask(""); };
    EXPECT_EQ(read({9999, 9998, 999999, 99999999}), "99 99 99 98 99 99 99 99 99 99 99");
    EXPECT_EQ(read({10000, -1, 1000000, 100000000}), "99 99 00 00 99 99 99 99 99 99 99");
    EXPECT_EQ(read({-1, 10000, -1, -1}), "00 00 99 99 00 00 00 00 00 00 00");
    EXPECT_EQ(read({12.5, 12.4, 7.5, 99999999.4}), "00 13 00 12 00 00 08 99 99 99 99");
}

TEST(Hct615dRead, RowsThatAreNotThereAreZero) {
    EXPECT_EQ(Asked(42, {}).Ask(""), "00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(Asked(42, Reporting({1234, 56})).Ask(""), "12 34 00 56 00 00 00 00 00 00 00");
}

// --- Values that nobody described ---

std::vector<Parameter> Undescribed() {
    std::vector<Parameter> parameters = Reporting({0, 0, 0, 0});
    parameters.push_back(Fixed("0010", "2", "RW", 0, 0, 3000));
    for (Parameter& parameter : parameters) parameter.behaviour.reset();
    return parameters;
}

TEST(SpecialLives, FourRowsOfANovaxInstrumentLive) {
    Asked asked(41, Undescribed());
    EXPECT_EQ(asked.Ask("52 10 00 00", 0), "E8 03 00 00 00 00 EE 02");
    EXPECT_EQ(asked.Ask("52 10 00 00", 5), "08 07 FA 00 05 01 EE 02");
}

TEST(SpecialLives, FourRowsOfAnHct615dInstrumentLive) {
    Asked asked(42, Undescribed());
    EXPECT_EQ(asked.Ask("", 0), "05 00 00 00 00 40 00 00 00 10 00");
    EXPECT_EQ(asked.Ask("", 5), "09 00 00 13 00 65 00 00 00 10 03");
}

TEST(SpecialLives, AreThoseOfTheSixthToTheNinthRow) {
    for (const int code : {41, 42}) {
        for (const std::size_t row : {0U, 4U, 9U, 100U}) EXPECT_FALSE(LifeInEveryReply({code}, row)) << row;
        for (const std::size_t row : {5U, 8U}) EXPECT_TRUE(LifeInEveryReply({code}, row)) << row;
    }
    for (const int code : {11, 21, 31}) EXPECT_FALSE(LifeInEveryReply({code}, 5)) << code;
}

}  // namespace
}  // namespace simulator
