#include "tools/tool_checks.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

// --- Crc16OfByteArray ---

std::string CrcOf(const std::vector<std::uint8_t>& bytes, int lastIndex) {
    return ToUtf8(Crc16OfByteArray(bytes, lastIndex));
}

TEST(Crc16OfByteArray, HasTheByteThatLeavesFirstInFront) {
    EXPECT_EQ(CrcOf({0x01, 0x03, 0x00, 0x00, 0x00, 0x01}, 5), "840A");
    EXPECT_EQ(CrcOf({'1', '2', '3', '4', '5', '6', '7', '8', '9'}, 8), "374B");
}

TEST(Crc16OfByteArray, HasFourDigitsWhateverTheRegistersHold) {
    EXPECT_EQ(CrcOf({0x00}, 0), "BF40");
    EXPECT_EQ(CrcOf({0xFF}, 0), "FF00");
    EXPECT_EQ(CrcOf({0x03, 0x40, 0x77, 0x95, 0xB1}, 4), "6AFE");
}

TEST(Crc16OfByteArray, StopsAtTheLastIndex) {
    EXPECT_EQ(CrcOf({0x01, 0x03, 0x00, 0x00, 0x00, 0x01, 0x55, 0xAA}, 5), "840A");
    EXPECT_EQ(CrcOf({0x00, 0x01}, 0), "BF40");
}

TEST(Crc16OfByteArray, LastIndexBeyondTheBytesIsASubscriptError) {
    EXPECT_EQ(ErrorOf([] { Crc16OfByteArray({}, 0); }), 9);
    EXPECT_EQ(ErrorOf([] { Crc16OfByteArray({0x00}, 1); }), 9);
    EXPECT_EQ(ErrorOf([] { Crc16OfByteArray({0x00, 0x01}, 1); }), 0);
}

// --- Crc16OfHexText ---

std::string HexTextCheckOf(const Text& text) { return ToUtf8(Crc16OfHexText(text).value_or(u"none")); }

TEST(Crc16OfHexText, RegistersStartAtZero) {
    EXPECT_EQ(HexTextCheckOf(u" 00"), "90 90");
    EXPECT_EQ(HexTextCheckOf(u" 00 00 00"), "90 90");
}

// A byte alone leaves its two table entries: C1 C0, 81 C1, 40 01 and 01 C6.
TEST(Crc16OfHexText, LowHalfOfTheExclusiveOrComesFirstEachWithANineInFront) {
    EXPECT_EQ(HexTextCheckOf(u" 01"), "91 90");
    EXPECT_EQ(HexTextCheckOf(u" 02"), "90 94");
    EXPECT_EQ(HexTextCheckOf(u" 03"), "91 94");
    EXPECT_EQ(HexTextCheckOf(u" 08"), "97 9C");
}

TEST(Crc16OfHexText, EveryPairCounts) {
    EXPECT_EQ(HexTextCheckOf(u" 01 03"), "90 9D");
    EXPECT_EQ(HexTextCheckOf(u" 00 08"), "97 9C");
    EXPECT_EQ(HexTextCheckOf(u" AB F2 A6 35 F6"), "95 93");
}

TEST(Crc16OfHexText, LeadingBlankMayBeMissing) {
    EXPECT_EQ(HexTextCheckOf(u"01 03"), "90 9D");
    EXPECT_EQ(HexTextCheckOf(u"ab f2 a6 35 f6"), "95 93");
}

TEST(Crc16OfHexText, PairThatIsNotHexadecimalHasNoCheck) {
    for (const TextView text : {u" ZZ", u" 35 41 GH", u" 01 0G 03", u" 01 ", u" 01  03", u" "}) {
        EXPECT_EQ(Crc16OfHexText(Text(text)), std::nullopt) << ToUtf8(text);
    }
}

// A byte that has lost its second digit at the end of the text still is a hexadecimal number.
TEST(Crc16OfHexText, LoneDigitCountsAsAByte) { EXPECT_EQ(HexTextCheckOf(u"01 0"), "91 99"); }

TEST(Crc16OfHexText, TextThatBeginsWithAnotherCharacterGetsNoBlank) {
    EXPECT_EQ(HexTextCheckOf(u"ZZ ZZ"), "none");
    EXPECT_EQ(HexTextCheckOf(u"Z01 03"), "90 9D");
}

TEST(Crc16OfHexText, WhatSeparatesThePairsDoesNotCount) { EXPECT_EQ(HexTextCheckOf(u" 01\\03"), "90 9D"); }

TEST(Crc16OfHexText, SaysThatTheTextHoldsIllegalCharacters) {
    EXPECT_EQ(ToUtf8(kNoHexText), "对不起，数据串中含有非法字符,无法完成校验！");
}

// --- AppendXorCheck ---

struct Checked {
    std::string text;
    std::string check;

    bool operator==(const Checked&) const = default;
};

Checked XorChecked(Text text) {
    const Text check = AppendXorCheck(text);
    return {ToUtf8(text), ToUtf8(check)};
}

TEST(AppendXorCheck, AppendsTheExclusiveOrOfWhatStandsBehindTheFirstCharacter) {
    EXPECT_EQ(XorChecked(u"@01RD"), (Checked{"@01RD17\r", "17"}));
}

// 41 xor 42 = 03, 41 xor 41 = 00.
TEST(AppendXorCheck, OneDigitGetsAZeroInFront) {
    EXPECT_EQ(XorChecked(u"@AB"), (Checked{"@AB03\r", "03"}));
    EXPECT_EQ(XorChecked(u"@AA"), (Checked{"@AA00\r", "00"}));
}

// 7A xor 30 = 4A.
TEST(AppendXorCheck, DigitsAreUpperCase) { EXPECT_EQ(XorChecked(u"@z0"), (Checked{"@z04A\r", "4A"})); }

TEST(AppendXorCheck, FirstCharacterIsReplacedWhateverItIs) {
    EXPECT_EQ(XorChecked(u"x7#"), (Checked{"@7#14\r", "14"}));
    EXPECT_EQ(XorChecked(u"仪01RD"), (Checked{"@01RD17\r", "17"}));
}

TEST(AppendXorCheck, TextOfLessThanThreeCharactersStaysAndHasNoCheck) {
    EXPECT_EQ(XorChecked(u""), (Checked{"", ""}));
    EXPECT_EQ(XorChecked(u"@"), (Checked{"@", ""}));
    EXPECT_EQ(XorChecked(u"@0"), (Checked{"@0", ""}));
}

// D2C7 xor 41 = D286.
TEST(AppendXorCheck, CharacterOfTwoBytesCountsAsOneCode) {
    EXPECT_EQ(XorChecked(u"@仪A"), (Checked{"@仪AD286\r", "D286"}));
}

}  // namespace
}  // namespace commtest
