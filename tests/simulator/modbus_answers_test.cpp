#include "simulator/modbus_answers.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"
#include "simulator/sample_instruments.h"

namespace simulator {
namespace {

class Asked {
  public:
    Asked(Model model, std::vector<Parameter> parameters)
        : instrument(model, 1, "instrument", std::move(parameters)) {}

    // Function and data of the answer.
    std::string Ask(const std::string& request) {
        last = instrument.AnswerTo(FromPairs(request), 0);
        return Pairs(last.parts.at(0));
    }

    Instrument instrument;
    Answer last;
};

// Two's complement in words, an address with a first digit, a byte, a gap, and one that cannot be written.
Asked Indicator(int code = 31) {
    return {{code, 1},
            {Fixed("0010", "2", "RW", 100, -1999, 9999), Fixed("0011", "2", "RW", -2, -1999, 9999),
             Fixed("4012", "2", "RW", 7), Fixed("0013", "1", "RW", 200), Fixed("0020", "4", "RW", 65537),
             Fixed("0030", "2", "R", 5)}};
}

// --- Reads ---

TEST(ModbusRead, RegistersOfAnyRun) {
    Asked asked = Indicator();
    EXPECT_EQ(asked.Ask("03 00 10 00 01"), "03 02 00 64");
    EXPECT_EQ(asked.Ask("04 00 10 00 01"), "04 02 00 64");
    EXPECT_EQ(asked.Ask("03 00 10 00 04"), "03 08 00 64 FF FE 00 07 C8 00");
    EXPECT_EQ(asked.Ask("03 00 11 00 01"), "03 02 FF FE");
    EXPECT_FALSE(asked.last.isRefused);
    EXPECT_FALSE(asked.last.isWrite);
}

TEST(ModbusRead, FirstDigitOfAnAddressDoesNotCount) {
    Asked asked = Indicator();
    EXPECT_EQ(asked.Ask("03 00 12 00 01"), "03 02 00 07");
    EXPECT_EQ(asked.Ask("03 40 12 00 01"), "03 02 00 07");
    EXPECT_EQ(asked.Ask("03 40 10 00 01"), "03 02 00 64");
}

TEST(ModbusRead, PartsOfAValueAndGapsBehindIt) {
    Asked asked = Indicator();
    EXPECT_EQ(asked.Ask("03 00 20 00 01"), "03 02 00 01");
    EXPECT_EQ(asked.Ask("03 00 21 00 01"), "03 02 00 01");
    EXPECT_EQ(asked.Ask("04 00 20 00 04"), "04 08 00 01 00 01 00 00 00 00");
}

TEST(ModbusRead, OfTwoParametersAtOneAddressTheFirstIsRead) {
    Asked asked({31, 1}, {Fixed("0000", "2", "R", 1), Fixed("0000", "2", "R", 2)});
    EXPECT_EQ(asked.Ask("03 00 00 00 01"), "03 02 00 01");
}

TEST(ModbusRead, LengthFiveTakesFiveRegistersUnderRtu) {
    Asked asked({31, 3}, {Fixed("0010", "5", "R", 100)});
    EXPECT_EQ(asked.Ask("04 00 10 00 05"), "04 0A 42 C8 00 00 00 00 00 00 00 00");
    EXPECT_EQ(asked.Ask("04 00 14 00 01"), "04 02 00 00");
    EXPECT_EQ(asked.Ask("04 00 15 00 01"), "84 02");
}

TEST(ModbusRead, UnknownAddressIsRefused) {
    Asked rtu = Indicator();
    EXPECT_EQ(rtu.Ask("03 00 0F 00 01"), "83 02");
    EXPECT_TRUE(rtu.last.isRefused);
    EXPECT_EQ(rtu.Ask("03 00 14 00 01"), "83 02");
    EXPECT_EQ(rtu.Ask("04 00 22 00 01"), "84 02");
    EXPECT_EQ(rtu.Ask("03 00 10 00 7E"), "83 02");  // 126 registers
    Asked ascii = Indicator(21);
    EXPECT_EQ(ascii.Ask("03 00 0F 00 01"), "82 02");
}

TEST(ModbusRead, NoRegisterIsRefused) {
    for (const int code : {21, 31}) {
        Asked asked = Indicator(code);
        EXPECT_EQ(asked.Ask("03 00 10 00 00"), "85 03");
        EXPECT_TRUE(asked.last.isRefused);
    }
}

TEST(ModbusRead, UnknownFunctionIsRefused) {
    for (const int code : {21, 31}) EXPECT_EQ(Indicator(code).Ask("01 00 10 00 01"), "81 01");
    for (const char* request : {"08 00 10 1F 2E", "09 00 00 00 00", "10 00 10 00 01 02 00 05"}) {
        EXPECT_EQ(Indicator(21).Ask(request), "81 01") << request;
    }
    EXPECT_EQ(Indicator(21).Ask("03 10 01"), "81 01");  // the form of code 22
}

TEST(ModbusRead, TestFrameComesBackAndTheBoardTellsItsType) {
    Asked asked = Indicator();
    EXPECT_EQ(asked.Ask("08 00 10 1F 2E"), "08 00 10 1F 2E");
    EXPECT_EQ(asked.Ask("09 00 00 00 00"), "09 01 00 00 12");
    EXPECT_FALSE(asked.last.isRefused);
}

TEST(ModbusRead, Code22ReadsParametersByTheLowByteOfTheirAddress) {
    Asked asked({22, 5}, {Fixed("1210", "5", "R", 759.73), Fixed("0011", "5", "R", -2)});
    EXPECT_EQ(asked.Ask("03 10 01"), "03 05 02 00 07 59 73");
    EXPECT_EQ(asked.Ask("03 10 02"), "03 0A 02 00 07 59 73 08 00 00 00 02");
    EXPECT_EQ(asked.Ask("03 11 02"), "82 02");
    EXPECT_EQ(asked.Ask("03 10 00"), "85 03");
    EXPECT_EQ(asked.Ask("06 10 00"), "81 01");
    EXPECT_EQ(asked.Ask("03 00 10 00 01"), "81 01");
}

// --- Writes ---

TEST(ModbusWrite, RegisterComesBackAndIsReadAsWritten) {
    for (const int code : {21, 31}) {
        Asked asked({code, 1}, {Fixed("0010", "2", "RW", 100)});
        EXPECT_EQ(asked.Ask("06 00 10 00 E8"), "06 00 10 00 E8");
        EXPECT_TRUE(asked.last.isWrite);
        EXPECT_FALSE(asked.last.isRefused);
        EXPECT_EQ(asked.Ask("03 00 10 00 01"), "03 02 00 E8");
        EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 232.0);
    }
}

TEST(ModbusWrite, DataOfOneAndOfFourBytes) {
    Asked asked = Indicator();
    EXPECT_EQ(asked.Ask("06 00 13 64"), "06 00 13 64");
    EXPECT_EQ(asked.Ask("03 00 13 00 01"), "03 02 64 00");
    EXPECT_EQ(asked.Ask("06 00 20 00 02 00 03"), "06 00 20 00 02 00 03");
    EXPECT_EQ(asked.Ask("03 00 20 00 02"), "03 04 00 02 00 03");
}

TEST(ModbusWrite, FunctionTenIsAnsweredWithAddressAndCount) {
    Asked asked({35, 3}, {Fixed("0010", "4", "RW", 1)});
    EXPECT_EQ(asked.Ask("10 00 10 00 02 04 42 C8 00 00"), "10 00 10 00 02");
    EXPECT_TRUE(asked.last.isWrite);
    EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 100.0);
    EXPECT_EQ(asked.Ask("10 00 10 00 01 04 42 C8 00 00"), "90 02");
    EXPECT_EQ(asked.Ask("10 00 40 00 02 04 42 C8 00 00"), "90 03");
}

TEST(ModbusWrite, HalvesOfAValueAreTakenOneByOne) {
    Asked asked({35, 3}, {Fixed("0010", "4", "RW", 1, 50, 200)});
    EXPECT_EQ(asked.Ask("06 00 11 80 00"), "06 00 11 80 00");  // 1.004, below the limit
    EXPECT_EQ(asked.Ask("06 00 10 42 C8"), "06 00 10 42 C8");
    EXPECT_EQ(asked.Ask("03 00 10 00 02"), "03 04 42 C8 80 00");
    EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 100.25);
}

TEST(ModbusWrite, RatioOfCode21TakesItsTwoBytesOneByOne) {
    Asked asked({21, 1}, {Fixed("0110", "4", "RW", 350, 1, 9999)});
    EXPECT_EQ(asked.Ask("03 01 10 00 02"), "03 04 00 01 00 5E");
    EXPECT_EQ(asked.Ask("06 01 10 00 12"), "06 01 10 00 12");
    EXPECT_EQ(asked.Ask("06 01 11 00 34"), "06 01 11 00 34");
    EXPECT_EQ(asked.Ask("03 01 10 00 02"), "03 04 00 12 00 34");
    EXPECT_EQ(asked.instrument.ValueOf("at 0110", 0), 4660.0);
}

TEST(ModbusWrite, WhatIsNotTakenChangesNothing) {
    struct Refusal {
        const char* request;
        const char* rtu;
        const char* ascii;
    };
    const Refusal refusals[] = {{"06 00 10 7F FF", "86 02", "87 03"},        // beyond the limit
                                {"06 00 10 F0 00", "86 02", "87 03"},        // below it
                                {"06 00 30 00 06", "86 02", "87 03"},        // cannot be written
                                {"06 00 10 00 01 00 02", "86 02", "87 03"},  // longer than the parameter
                                {"06 00 0F 00 01", "86 03", "82 02"}};       // nobody there
    for (const Refusal& refusal : refusals) {
        for (const int code : {21, 31}) {
            Asked asked({code, 1}, {Fixed("0010", "2", code == 21 ? "W" : "RW", 100, -1999, 9999),
                                    Fixed("0030", "2", "R", 5)});
            EXPECT_EQ(asked.Ask(refusal.request), code == 31 ? refusal.rtu : refusal.ascii)
                << refusal.request;
            EXPECT_TRUE(asked.last.isRefused);
            EXPECT_TRUE(asked.last.isWrite);
            EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 100.0);
            EXPECT_EQ(asked.instrument.ValueOf("at 0030", 0), 5.0);
        }
    }
}

TEST(ModbusWrite, FloatThatIsNoNumberIsNotTaken) {
    Asked asked({35, 3}, {Fixed("0010", "4", "RW", 1)});
    EXPECT_EQ(asked.Ask("06 00 10 7F 80 00 00"), "86 02");
    EXPECT_EQ(asked.instrument.ValueOf("at 0010", 0), 1.0);
}

}  // namespace
}  // namespace simulator
