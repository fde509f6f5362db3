#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"
#include "simulator/modbus_ascii_frames.h"
#include "simulator/modbus_rtu_frames.h"

namespace simulator {
namespace {

// --- RTU ---

TEST(RtuCheck, LowByteLeavesFirst) {
    const std::pair<const char*, const char*> frames[] = {
        {"01 03 00 10 00 01", "85 CF"}, {"01 03 00 10 00 02", "C5 CE"}, {"01 04 00 10 00 04", "F0 0C"},
        {"01 09 00 00 00 00", "DD CB"}, {"01 06 00 10 03 E8", "88 B1"}, {"01 83 02", "C0 F1"}};
    for (const auto& [covered, check] : frames)
        EXPECT_EQ(Pairs(RtuCheck(FromPairs(covered))), check) << covered;
}

TEST(ContentOfRtuRequest, IsFunctionAndData) {
    const std::pair<const char*, const char*> frames[] = {
        {"01 03 00 10 00 01 85 CF", "03 00 10 00 01"},
        {"01 09 00 00 00 00 DD CB", "09 00 00 00 00"},
        {"01 08 00 10 1F 2E 69 E2", "08 00 10 1F 2E"},
        {"01 06 00 10 64 15 63", "06 00 10 64"},
        {"01 06 00 10 03 E8 88 B1", "06 00 10 03 E8"},
        {"01 06 00 10 42 C8 00 00 B3 82", "06 00 10 42 C8 00 00"},
        {"01 10 00 10 00 02 04 42 C8 00 00 67 25", "10 00 10 00 02 04 42 C8 00 00"}};
    for (const auto& [frame, content] : frames) {
        const auto found = ContentOfRtuRequest(1, FromPairs(frame));
        ASSERT_TRUE(found) << frame;
        EXPECT_EQ(Pairs(*found), content);
    }
}

TEST(ContentOfRtuRequest, IsNothingForAnotherAddressOrAWrongFrame) {
    for (const char* frame : {"02 03 00 10 00 01 85 FC",        // another address
                              "01 03 00 10 00 01 85 CE",        // wrong check bytes
                              "01 03 00 10 00 01 CF 85",        // in the wrong order
                              "01 03 00 10 00 01",              // cut off
                              "01 03 00 10 00 01 85 CF 00 00",  // grown, the check bytes still right
                              "01 83 02 C0 F1", "", "01"}) {
        EXPECT_FALSE(ContentOfRtuRequest(1, FromPairs(frame))) << frame;
    }
}

TEST(MakeRtuReply, PutsAddressAndCheckBytesAroundTheContent) {
    EXPECT_EQ(Pairs(MakeRtuReply(1, FromPairs("03 02 00 64"))), "01 03 02 00 64 B9 AF");
    EXPECT_EQ(Pairs(MakeRtuReply(1, FromPairs("83 02"))), "01 83 02 C0 F1");
}

// --- ASCII ---

TEST(AsciiCheckWord, IsTheComplementOfTheSumOfBytesOrOfCharacters) {
    EXPECT_EQ(AsciiCheckWord(21, "010300100001"), "EB");
    EXPECT_EQ(AsciiCheckWord(21, "0103020064"), "96");
    EXPECT_EQ(AsciiCheckWord(21, "EC0300100001"), "00");
    EXPECT_EQ(AsciiCheckWord(22, "01031001"), "7A");
    EXPECT_EQ(AsciiCheckWord(22, "0103050200075973"), "D6");
}

TEST(ContentOfAsciiRequest, IsFunctionAndData) {
    const auto pairsOf = [](int code, const char* frame) {
        return Pairs(ContentOfAsciiRequest(code, 1, frame).value_or("?"));
    };
    EXPECT_EQ(pairsOf(21, ":010300100001EB\r"), "03 00 10 00 01");
    EXPECT_EQ(pairsOf(21, ":0106001003E8FE\r"), "06 00 10 03 E8");
    EXPECT_EQ(pairsOf(22, ":010310017A\r"), "03 10 01");
}

TEST(ContentOfAsciiRequest, IsNothingForAnotherAddressOrAWrongFrame) {
    for (const char* frame : {":020300100001EA\r",   // another address
                              ":010300100001EA\r",   // wrong check word
                              ":010300100001eb\r",   // in small letters
                              ":01030010000EB\r",    // half a byte
                              ":01060210034E0\r",    // an address of three digits
                              ":EC0300100001100\r",  // a check word of three
                              ":010300100001EB", "010300100001EB\r", ":01FF\r", ":\r", "\r", ":"}) {
        EXPECT_FALSE(ContentOfAsciiRequest(21, 1, frame)) << frame;
    }
    EXPECT_FALSE(ContentOfAsciiRequest(22, 1, ":010300100001EB\r"));
}

TEST(MakeAsciiReply, PutsColonCheckWordAndLineEndAroundTheContent) {
    EXPECT_EQ(MakeAsciiReply(21, 1, FromPairs("03 02 00 64")), ":010302006496\r\n");
    EXPECT_EQ(MakeAsciiReply(22, 1, FromPairs("03 05 02 00 07 59 73")), ":0103050200075973D6\r\n");
    EXPECT_EQ(MakeAsciiReply(21, 10, FromPairs("82 02")), ":0A820272\r\n");
}

}  // namespace
}  // namespace simulator
