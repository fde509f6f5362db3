#include <gtest/gtest.h>

#include <set>

#include "simulator/sample_lines.h"

namespace simulator {
namespace {

Instrument Holding(int code, int address, double value) {
    return {Model{code, 1}, address, "holding", {Fixed("0010", "2", "RW", value, 0, 1000)}};
}

TEST(ModbusBus, RtuInstrumentsAnswerAtTheirAddresses) {
    QuietLine line({Holding(31, 1, 100), Holding(32, 2, 7)});
    EXPECT_EQ(line.AskPairs("01 03 00 10 00 01 85 CF"), "01 03 02 00 64 B9 AF");
    EXPECT_EQ(line.AskPairs("02 03 00 10 00 01 85 FC"), "02 03 02 00 07 BD 86");
    EXPECT_EQ(line.AskPairs("03 03 00 10 00 01 84 2D"), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.bus.CountsOf(0).requests, 1);
    EXPECT_EQ(line.bus.CountsOf(1).requests, 1);
}

TEST(ModbusBus, AsciiInstrumentsAnswerAtTheirAddresses) {
    QuietLine line({Holding(21, 1, 100), Holding(21, 2, 7)});
    EXPECT_EQ(line.Ask(":010300100001EB\r\n"), ":010302006496\r\n");
    EXPECT_EQ(line.Ask(":020300100001EA\r\n"), ":0203020007F2\r\n");
    EXPECT_EQ(line.Ask(":030300100001E9\r\n"), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

TEST(ModbusBus, WriteComesWithoutALineFeedAndIsAnsweredWithOne) {
    QuietLine line({Holding(21, 1, 100)});
    EXPECT_EQ(line.Ask(":01060010000ADF\r"), ":01060010000ADF\r\n");
    EXPECT_EQ(line.Ask(":0106001003E9FD\r"), ":01870375\r\n");
    EXPECT_EQ(line.bus.Total().writesAccepted, 1);
    EXPECT_EQ(line.bus.Total().refusals, 1);
}

// Its check word ends in 00, and so the first seven bytes are a write of one byte, too.
TEST(ModbusBus, RtuWriteIsNotTakenForTheShorterOneThatItBeginsWith) {
    QuietLine line({{Model{31, 1}, 1, "filter", {Fixed("0025", "2", "RW", 7, 0, 20)}}});
    EXPECT_EQ(line.AskPairs("01 06 00 25 00 03 D8 00"), "01 06 00 25 00 03 D8 00");
    EXPECT_EQ(line.AskPairs("01 03 00 25 00 01 95 C1", 100), "01 03 02 00 03 F8 45");
    EXPECT_EQ(line.bus.IgnoredFrames(), 0);
}

TEST(ModbusBus, RubbishOnAnRtuLineIsOneIgnoredFrame) {
    QuietLine line({Holding(31, 1, 100)});
    EXPECT_EQ(line.AskPairs("01 03 00 10 00 01 85 CE", 0), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 0);
    EXPECT_EQ(line.AskPairs("01 03 00 10 00 01 85 CF", 300), "01 03 02 00 64 B9 AF");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

// --- Faults ---

constexpr int kReplies = 3000;

TEST(ModbusFaults, CorruptRtuReplyKeepsAddressFunctionAndByteCount) {
    const std::string reply = FromPairs("01 03 02 00 64 B9 AF");
    const auto corrupt = CorruptReplies(Holding(31, 1, 100), FromPairs("01 03 00 10 00 01 85 CF"), reply);
    EXPECT_EQ(CorruptPlaces(corrupt, reply), (std::set<std::size_t>{3, 4, 5, 6}));
}

TEST(ModbusFaults, CorruptAsciiReplyKeepsColonAndLineEndAndItsDigitsAreDigits) {
    const std::string reply = ":010302006496\r\n";
    const auto corrupt = CorruptReplies(Holding(21, 1, 100), ":010300100001EB\r\n", reply);
    EXPECT_EQ(CorruptPlaces(corrupt, reply), (std::set<std::size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    for (const std::string& bytes : corrupt) {
        EXPECT_EQ(bytes.find_first_not_of("0123456789ABCDEF", 1), 13U) << Pairs(bytes);  // the line end
    }
}

TEST(ModbusFaults, TruncatedReplyLosesAtLeastItsLastByte) {
    const std::pair<int, std::string> requests[] = {{31, FromPairs("01 03 00 10 00 01 85 CF")},
                                                    {21, ":010300100001EB\r\n"}};
    for (const auto& [code, request] : requests) {
        Bus bus({Holding(code, 1, 100)}, {.truncate = 1}, 7);
        const std::size_t whole = code == 31 ? 7 : 15;
        std::set<std::size_t> lengths;
        for (int i = 0; i < kReplies; ++i) lengths.insert(BytesOf(bus.Receive(request, 0)).size());
        EXPECT_EQ(*lengths.begin(), 1U);
        EXPECT_EQ(*lengths.rbegin(), whole - 1);
        EXPECT_EQ(lengths.size(), whole - 1);
        EXPECT_EQ(bus.Total().faults.truncations, kReplies);
    }
}

}  // namespace
}  // namespace simulator
