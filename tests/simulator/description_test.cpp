#include "simulator/description.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "simulator/hex_digits.h"
#include "simulator/sample_instruments.h"

namespace simulator {
namespace {

std::string MessageOf(const std::string& text) {
    try {
        ReadDescription(text, "bench.txt");
    } catch (const DescriptionError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(ReadDescription, GivesInstrumentsWithTheirRows) {
    std::vector<Instrument> instruments = ReadDescription(
        "# a bench\n"
        "\n"
        "11000101 | first | 5 | 3\r\n"
        "one | 0020 | 1 | RW | 0 | 0 | 3 | constant 2\n"
        "two|0021|2|RW|1|||constant 1234\n"
        "  three | 0023 | 2 | R | 0 \n"
        "13000102 | second | 7\n"
        "one | 0020 | 1 | RW | 0 | | | constant 9\n",
        "bench.txt");
    ASSERT_EQ(instruments.size(), 2U);
    EXPECT_EQ(instruments[0].Code(), 11);
    EXPECT_EQ(instruments[0].Address(), 5);
    EXPECT_EQ(instruments[0].Name(), "first");
    EXPECT_EQ(instruments[0].AnswerTo("RR", 0).parts.size(), 2U);
    EXPECT_EQ(instruments[0].AnswerTo("RR", 0).parts[0], "RR02D204");
    EXPECT_EQ(instruments[0].AnswerTo("W1002004", 0).parts[0], "**");
    EXPECT_EQ(instruments[1].Code(), 13);
    EXPECT_EQ(instruments[1].Address(), 7);
    EXPECT_EQ(instruments[1].AnswerTo("RR", 0).parts[0], "RR09");
}

TEST(ReadDescription, InstrumentsWithoutAnAddressAreNumbered) {
    const auto instruments = ReadDescription("11000101 | first\n12000101 | second\n", "bench.txt");
    ASSERT_EQ(instruments.size(), 2U);
    EXPECT_EQ(instruments[0].Address(), 1);
    EXPECT_EQ(instruments[1].Address(), 2);
}

TEST(ReadDescription, GivesWhatInstrumentsDoNotSayThemselves) {
    std::vector<Instrument> instruments = ReadDescription(
        "11000101 | first\n"
        "one | 0020 | 1 | RW | 0\n"
        "two | 0021 | 1 | RW | 0\n"
        "11000102 | second | | 0\n"
        "one | 0020 | 1 | RW | 0\n"
        "two | 0021 | 1 | RW | 0\n",
        "bench.txt", {.firstAddress = 7, .partLength = 1});
    EXPECT_EQ(instruments[0].Address(), 7);
    EXPECT_EQ(instruments[1].Address(), 8);
    EXPECT_EQ(instruments[0].AnswerTo("RR", 0).parts.size(), 2U);
    EXPECT_EQ(instruments[1].AnswerTo("RR", 0).parts.size(), 1U);
}

TEST(RefuseSharedAddresses, NamesBothInstruments) {
    const auto instruments = ReadDescription("11000101 | first | 5\n13000101 | second | 5\n", "bench.txt");
    try {
        RefuseSharedAddresses(instruments);
        FAIL() << "accepted";
    } catch (const DescriptionError& error) {
        EXPECT_STREQ(error.what(), "address 5: expected one instrument, found \"first\" and \"second\"");
    }
    RefuseSharedAddresses({instruments[0]});
}

TEST(RefuseSharedAddresses, InstrumentsAtDifferentRatesShareAnAddress) {
    RefuseSharedAddresses(ReadDescription("11000101 | a | 5 | | 9600\n11000101 | b | 5 | | 1200\n", "x"));
    for (const char* other : {"11000101 | b | 5 | | 9600\n", "11000101 | b | 5\n"}) {
        const std::string text = std::string("11000101 | a | 5 | | 9600\n") + other;
        EXPECT_THROW(RefuseSharedAddresses(ReadDescription(text, "x")), DescriptionError) << other;
    }
}

TEST(ReadDescription, HeadSaysHowAnInstrumentStandsOnItsLine) {
    const auto instruments =
        ReadDescription("11000101 | a | 5 | 0 | 9600 | 800 | garbage\n11000101 | b\n", "x");
    EXPECT_EQ(instruments[0].Manner().rate, 9600);
    EXPECT_EQ(instruments[0].Manner().delayMs, 800);
    EXPECT_TRUE(instruments[0].Manner().garbles);
    EXPECT_EQ(instruments[1].Manner().rate, 0);
    EXPECT_EQ(instruments[1].Manner().delayMs, 0);
    EXPECT_FALSE(instruments[1].Manner().garbles);
}

TEST(ReadDescription, RowMayBeVolatile) {
    std::vector<Instrument> instruments = ReadDescription(
        "11000101 | first | 5\n"
        "one | 0020 | 1 | RW | 0 | | | constant 1 | volatile\n"
        "two | 0021 | 1 | RW | 0 | | | constant 2\n",
        "bench.txt");
    EXPECT_EQ(instruments[0].AnswerTo("W1002009", 0).parts[0], "##");
    EXPECT_EQ(instruments[0].AnswerTo("W1002109", 0).parts[0], "##");
    EXPECT_EQ(instruments[0].AnswerTo("RR", 0).parts[0], "RR0909");
    instruments[0].LosePower();
    EXPECT_EQ(instruments[0].AnswerTo("RR", 0).parts[0], "RR0109");
}

struct Mistake {
    std::string text;
    std::string message;
};

TEST(ReadDescription, TellsFileLineWhatWasExpectedAndWhatStoodThere) {
    const std::string head = "11000101 | first | 5\n";
    const Mistake mistakes[] = {
        {"", "bench.txt: expected an instrument, found none"},
        {"# nothing\n", "bench.txt: expected an instrument, found none"},
        {"43000101 | other\n",
         "bench.txt:1: expected a code that begins with 11, 12, 13, 21, 22, 31, 32, 33, 34, 35, 41, 42 or "
         "51, found "
         "\"43000101\""},
        {"23000101 | requests only\n",
         "bench.txt:1: expected a code that begins with 11, 12, 13, 21, 22, 31, 32, 33, 34, 35, 41, 42 or "
         "51, found "
         "\"23000101\""},
        {"31050101 | decimals\n",
         "bench.txt:1: expected a code with the number format 00, 01, 02, 03, 06, 07 or 11 behind its "
         "protocol, "
         "found \"31050101\""},
        {"one | 0020 | 1 | RW | 0\n", "bench.txt:1: expected the code of an instrument, found \"one\""},
        {"11000101 | first | five\n", "bench.txt:1: expected an address, found \"five\""},
        {"11000101 | first | 5 | -1\n", "bench.txt:1: expected a part length, found \"-1\""},
        {head + "one | 20 | 1 | RW | 0\n",
         "bench.txt:2: expected an address of four hexadecimal digits, found \"20\""},
        {head + "\none | 00G0 | 1 | RW | 0\n",
         "bench.txt:3: expected an address of four hexadecimal digits, found \"00G0\""},
        {head + "one | 0020 | x | RW | 0\n", "bench.txt:2: expected a length of one digit, found \"x\""},
        {head + "one | 0020 | 1 | RX | 0\n",
         "bench.txt:2: expected an attribute of the letters R, D, W, S, found \"RX\""},
        {head + "one\n", "bench.txt:2: expected an address of four hexadecimal digits, found \"\""},
        {head + "one | 0020 | 1 | RW | 0 | low\n", "bench.txt:2: expected a limit, found \"low\""},
        {head + "one | 0020 | 1 | RW | 0 | | | wobble 3\n",
         "bench.txt:2: expected constant, ramp, sine, counter or walk with its numbers, found \"wobble 3\""},
        {head + "one | 0020 | 1 | RW | 0 | | | | kept\n",
         "bench.txt:2: expected volatile, or nothing, found \"kept\""},
    };
    for (const auto& [text, message] : mistakes) {
        EXPECT_EQ(MessageOf(text), message);
    }
}

// Every shipped list of the three codes can be played: each of its instruments answers a dynamic read.
TEST(ShippedDescriptions, CanBePlayed) {
    const std::string files[] = {
        "/simulator/bench.txt",
        "/catalogue/instruments/11_channel_scanner.txt",
        "/catalogue/instruments/11_digital_indicator.txt",
        "/catalogue/instruments/11_flow_totaliser.txt",
        "/catalogue/instruments/11_pid_controller.txt",
        "/catalogue/instruments/12_bar_indicator.txt",
        "/catalogue/instruments/13_two_loop_indicator.txt",
    };
    for (const std::string& name : files) {
        std::ifstream file(DATA_FOLDER + name);
        ASSERT_TRUE(file) << name;
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (Instrument& instrument : ReadDescription(text, name)) {
            EXPECT_GT(instrument.AnswerTo("RD", 0).parts.front().size(), 4U) << name;
            EXPECT_GT(instrument.AnswerTo("RR", 0).parts.front().size(), 4U) << name;
        }
    }
}

TEST(ReadDescription, CodeOfAModbusInstrumentTellsItsNumberFormat) {
    std::vector<Instrument> instruments = ReadDescription(
        "31030602 | three phases\n"
        "one | 0010 | 4 | R | 0 | | | constant 100\n"
        "31010107 | indicator\n"
        "one | 0010 | 4 | R | 0 | | | constant 100\n",
        "bench.txt");
    const std::string request = {3, 0, 16, 0, 2};
    EXPECT_EQ(HexOfBytes(instruments[0].AnswerTo(request, 0).parts[0]), "030442C80000");
    EXPECT_EQ(HexOfBytes(instruments[1].AnswerTo(request, 0).parts[0]), "030400000064");
}

TEST(ReadDescription, CodeOfASpecialInstrumentMayHaveAnyDigitsBehindItsProtocol) {
    for (const char* code : {"41050101", "42050101", "41990000", "4299"}) {
        EXPECT_EQ(MessageOf(std::string(code) + " | special\n"), "accepted") << code;
    }
}

TEST(RefuseMixedFramings, NamesTwoInstrumentsThatDoNotShareALine) {
    const auto instruments =
        ReadDescription("31010101 | first\n35030101 | second\n21010101 | third\n", "bench.txt");
    try {
        RefuseMixedFramings(instruments);
        FAIL() << "accepted";
    } catch (const DescriptionError& error) {
        EXPECT_STREQ(error.what(), "expected instruments that share a line, found \"first\" and \"third\"");
    }
    RefuseMixedFramings({instruments[0], instruments[1]});
}

TEST(RefuseMixedFramings, KeepsTheSpecialProtocolsApartFromAllOthers) {
    for (const char* other : {"11000101", "21010101", "31010101", "42000101"}) {
        const auto instruments =
            ReadDescription(std::string("41010101 | first\n41000102 | second\n") + other + " | third\n", "");
        EXPECT_THROW(RefuseMixedFramings(instruments), DescriptionError) << other;
        EXPECT_NO_THROW(RefuseMixedFramings({instruments[0], instruments[1]}));
    }
}

std::string TextOf(const std::string& name) {
    std::ifstream file(DATA_FOLDER + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

// The rows of a list, without what only a description says; remarks and blanks do not count.
std::vector<std::string> RowsOf(const std::string& text, std::size_t fields) {
    std::vector<std::string> rows;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::string row;
        std::istringstream fieldsOfLine(line);
        std::string field;
        for (std::size_t i = 0; i < fields && std::getline(fieldsOfLine, field, '|'); ++i) {
            std::erase(field, ' ');
            row += field + "|";
        }
        while (row.ends_with("||")) row.pop_back();
        rows.push_back(row);
    }
    return rows;
}

TEST(ShippedDescriptions, LivingInstrumentsAreThoseOfTheCatalogue) {
    constexpr std::size_t kFieldsOfAList = 7;
    const char* files[][2] = {
        {"/simulator/modbus_rtu.txt", "/catalogue/instruments/31_rtu_indicator.txt"},
        {"/simulator/modbus_ascii.txt", "/catalogue/instruments/21_ascii_indicator.txt"},
        {"/simulator/furnace_controller.txt", "/catalogue/instruments/41_furnace_controller.txt"},
        {"/simulator/ultrasonic_meter.txt", "/catalogue/instruments/42_ultrasonic_meter.txt"}};
    for (const auto& [description, list] : files) {
        auto described = RowsOf(TextOf(description), kFieldsOfAList);
        const auto listed = RowsOf(TextOf(list), kFieldsOfAList);
        EXPECT_EQ(described.front(), listed.front() + "1|");  // and the address
        described.front() = listed.front();
        EXPECT_EQ(described, listed) << description;
    }
}

TEST(ShippedDescriptions, ModbusListsCanBePlayed) {
    const char* requests[][2] = {
        {"21_ascii_indicator", "0300100001"},    {"22_ascii_bcd_meter", "031001"},
        {"31_flow_meter", "0400100004"},         {"31_rtu_indicator", "0300100001"},
        {"31_three_phase_meter", "0300100002"},  {"32_rtu_pressure_meter", "0300100001"},
        {"33_paperless_recorder", "0400100001"}, {"34_recorder_card", "0300100001"},
        {"35_flow_display", "0300100002"},       {"51_temperature_module", "0300100002"}};
    for (const auto& [name, request] : requests) {
        const std::string file = std::string("/catalogue/instruments/") + name + ".txt";
        for (Instrument& instrument : ReadDescription(TextOf(file), file)) {
            EXPECT_FALSE(instrument.AnswerTo(BytesOfHex(request).value(), 0).isRefused) << name;
        }
    }
}

// The fields of a reply that differ between two moments: 1 for one that does.
std::string Living(Instrument& instrument, const std::string& request,
                   const std::vector<std::size_t>& sizes) {
    const std::string first = instrument.AnswerTo(request, 0).parts.at(0);
    const std::string second = instrument.AnswerTo(request, 5).parts.at(0);
    std::string living;
    std::size_t at = 0;
    for (const std::size_t size : sizes) {
        living += first.substr(at, size) != second.substr(at, size) ? '1' : '0';
        at += size;
    }
    EXPECT_EQ(first.size(), at);
    return living;
}

// Whether the description says how, or leaves it to the simulator.
TEST(ShippedDescriptions, SpecialInstrumentsLiveInFourRows) {
    for (const char* file :
         {"/simulator/furnace_controller.txt", "/catalogue/instruments/41_furnace_controller.txt"}) {
        std::vector<Instrument> instruments = ReadDescription(TextOf(file), file);
        ASSERT_EQ(instruments.size(), 1U) << file;
        EXPECT_EQ(Living(instruments[0], {0x52, 0x10, 0, 0}, {2, 2, 1, 1, 2}), "11110") << file;
    }
    for (const char* file :
         {"/simulator/ultrasonic_meter.txt", "/catalogue/instruments/42_ultrasonic_meter.txt"}) {
        std::vector<Instrument> instruments = ReadDescription(TextOf(file), file);
        ASSERT_EQ(instruments.size(), 1U) << file;
        EXPECT_EQ(Living(instruments[0], "", {2, 2, 3, 4}), "1111") << file;
    }
}

}  // namespace
}  // namespace simulator
