#include <gtest/gtest.h>

#include "tools/tool_bench.h"

namespace commtest {
namespace {

using testing::ToolBench;

constexpr int kHexadecimal = 0;
constexpr int kCharacters = 1;

std::string NormalisedAs(int showType, const std::string& input) {
    ToolBench bench;
    bench.tools.ConShowType.Choose(showType);
    bench.Type(input);
    return bench.Normalised();
}

std::string Bytes(const std::string& input) { return NormalisedAs(kHexadecimal, input); }
std::string Characters(const std::string& input) { return NormalisedAs(kCharacters, input); }

TEST(NormalisedInput, PlainCharactersStandAsTheyAre) {
    EXPECT_EQ(Characters("@01RD"), "@01RD");
    EXPECT_EQ(Bytes("@01RD"), " 40 30 31 52 44");
}

TEST(NormalisedInput, PairBehindABlankOrABackslashIsOneCharacter) {
    EXPECT_EQ(Characters("@ 30 31 52 44 31 37\\0D"), "@01RD17\r");
    EXPECT_EQ(Bytes("@ 30 31 52 44 31 37\\0D"), " 40 30 31 52 44 31 37 0D");
    EXPECT_EQ(Characters("\\41 42\\43"), "ABC");
    EXPECT_EQ(Bytes(" 41"), " 41");
}

TEST(NormalisedInput, PairMayBeWrittenInSmallLetters) { EXPECT_EQ(Bytes("\\0d 5a"), " 0D 5A"); }

TEST(NormalisedInput, CharacterBehindAPairIsAPlainOne) {
    EXPECT_EQ(Bytes("70\\1A8 65 3E"), " 37 30 1A 38 65 3E");
    EXPECT_EQ(Characters(" 5ABB 35\\3EA 1b\\54"), "ZBB5>A\x1BT");
}

TEST(NormalisedInput, FirstPairNeedsItsSeparator) {
    EXPECT_EQ(Bytes("40 30 31\\52\\44"), " 34 30 30 31 52 44");
}

TEST(NormalisedInput, SeparatorWithoutAPairEndsIt) {
    EXPECT_EQ(Characters("@ 30 31 R 44 31 37\\0D"), "@01");
    EXPECT_EQ(Characters("A\\4G 42"), "A");
    EXPECT_EQ(Characters("A\\G4 42"), "A");
    EXPECT_EQ(Characters("A 4 42"), "A");
    EXPECT_EQ(Characters("A  42"), "A");
    EXPECT_EQ(Characters("A\\\\42"), "A");
    EXPECT_EQ(Characters("A +1"), "A");
    EXPECT_EQ(Characters(" x"), "");
}

TEST(NormalisedInput, SeparatorAtTheEndEndsIt) {
    for (const char* input : {"AB ", "AB\\", "AB 4", "AB\\4"}) EXPECT_EQ(Characters(input), "AB") << input;
    EXPECT_EQ(Bytes("AB "), " 41 42");
    EXPECT_EQ(Bytes(" "), "");
}

TEST(NormalisedInput, PairMayBeASeparatorItself) {
    EXPECT_EQ(Characters("\\20 5C41"), " \\41");
    EXPECT_EQ(Bytes("\\20 5C41"), " 20 5C 34 31");
}

TEST(NormalisedInput, PairAbove7FIsOneByte) {
    EXPECT_EQ(Bytes("\\80 C2\\FF"), " 80 C2 FF");
    EXPECT_EQ(Characters(" C2"), "\u00C2");
}

TEST(NormalisedInput, CharacterOfTwoBytesHasFourDigits) {
    EXPECT_EQ(Bytes("仪\\41"), " D2C7 41");
    EXPECT_EQ(Characters("仪\\41"), "仪A");
}

TEST(NormalisedInput, FollowsTheInput) {
    ToolBench bench;
    bench.Type("A");
    EXPECT_EQ(bench.Normalised(), " 41");
    bench.Type("AB");
    EXPECT_EQ(bench.Normalised(), " 41 42");
    bench.Type("");
    EXPECT_EQ(bench.Normalised(), "");
}

TEST(NormalisedInput, IsRenewedByAClickOnItsForm) {
    ToolBench bench;
    bench.Type("@\\30");
    bench.tools.ConShowType.Choose(kCharacters);
    EXPECT_EQ(bench.Normalised(), "@0");
    bench.tools.ConShowType.Choose(kHexadecimal);
    EXPECT_EQ(bench.Normalised(), " 40 30");
}

TEST(NormalisedInput, OtherBoxesLeaveIt) {
    ToolBench bench;
    bench.Type("A");
    bench.tools.OutString[3].Set(u"typed over");
    bench.Leave("B", "C");
    for (const int index : {1, 2, 3}) OutString_Change(bench.tools, index);
    EXPECT_EQ(bench.Normalised(), "typed over");
}

TEST(NormalisedInput, TurnsHexadecimalAfterTheInputIsFilledUp) {
    ToolBench bench;
    bench.Choose(3, 31);
    bench.Type("FF");
    bench.Press();
    EXPECT_EQ(bench.Normalised(), " 30 30 46 46");
}

}  // namespace
}  // namespace commtest
