#include "runtime/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// --- Text to number ---

TEST(ToNumber, ReadsDecimalNumbers) {
    struct Row {
        TextView text;
        double number;
    };
    const Row rows[] = {
        {u"0", 0},           {u"007", 7},    {u"12.5", 12.5}, {u"-12.5", -12.5}, {u"+12.5", 12.5},
        {u".5", 0.5},        {u"-.5", -0.5}, {u"5.", 5},      {u"1E3", 1000},    {u"1E+15", 1e15},
        {u"1.5e-3", 0.0015}, {u"  7 ", 7},   {u"1E-400", 0},  {u"-1E-400", 0},
    };
    for (const Row& row : rows) EXPECT_EQ(ToNumber(row.text), row.number) << ToUtf8(row.text);
}

TEST(ToNumber, FifteenDigitsAndMoreAreTheNearestDouble) {
    EXPECT_EQ(ToNumber(u"999999999999999"), 999999999999999.0);
    EXPECT_EQ(ToNumber(u"-12345678901.2345"), -12345678901.2345);
    EXPECT_EQ(ToNumber(u".000000000000001"), 1e-15);
    EXPECT_EQ(ToNumber(u"12345678901234567"), 12345678901234567.0);
    EXPECT_TRUE(std::signbit(ToNumber(u"-0")));
}

TEST(ToNumber, TextThatIsNoNumberRaisesError13) {
    const TextView texts[] = {u"",    u" ",     u".",    u"-",     u"+",  u"abc",  u"12a", u"1 2",
                              u"--5", u"+-5",   u"1E",   u"1E+",   u"E5", u"0x10", u"inf", u"-inf",
                              u"nan", u"1,000", u"12:5", u"1.2.3", u"五", u"１２", u"5\r"};
    for (TextView text : texts) EXPECT_EQ(ErrorOf([text] { ToNumber(text); }), 13) << ToUtf8(text);
}

TEST(ToNumber, NumberBeyondADoubleRaisesError6) {
    EXPECT_EQ(ErrorOf([] { ToNumber(u"1E+309"); }), 6);
    EXPECT_EQ(ErrorOf([] { ToNumber(u"-1E+400"); }), 6);
    EXPECT_EQ(ErrorOf([] { ToNumber(Text(400, u'9')); }), 6);
}

TEST(LeadingWholeNumber, ReadsWhatTheTextBeginsWith) {
    EXPECT_EQ(LeadingWholeNumber(u"11"), 11);
    EXPECT_EQ(LeadingWholeNumber(u"12ab"), 12);
    EXPECT_EQ(LeadingWholeNumber(u" 7"), 7);
    EXPECT_EQ(LeadingWholeNumber(u"ab"), 0);
    EXPECT_EQ(LeadingWholeNumber(u""), 0);
}

TEST(WholeNumbersOfTexts, RoundHalfToEven) {
    EXPECT_EQ(ToWhole16(u"2.5"), 2);
    EXPECT_EQ(ToWhole16(u"3.5"), 4);
    EXPECT_EQ(ToWhole16(u"-2.5"), -2);
    EXPECT_EQ(ToWhole32(u"0.5"), 0);
    EXPECT_EQ(ToWhole32(u"1.5"), 2);
}

TEST(WholeNumbersOfTexts, RaiseError6BeyondTheirWidth) {
    EXPECT_EQ(ToWhole16(u"32767.4"), 32767);
    EXPECT_EQ(ErrorOf([] { ToWhole16(u"32767.5"); }), 6);
    EXPECT_EQ(ToWhole16(u"-32768.5"), -32768);
    EXPECT_EQ(ErrorOf([] { ToWhole16(u"-32769"); }), 6);
    EXPECT_EQ(ToWhole32(u"2147483647.4"), 2147483647);
    EXPECT_EQ(ErrorOf([] { ToWhole32(u"2147483647.5"); }), 6);
    EXPECT_EQ(ErrorOf([] { ToWhole32(u"-2147483649"); }), 6);
}

TEST(WholeNumbersOfTexts, RaiseError13ForATextThatIsNoNumber) {
    EXPECT_EQ(ErrorOf([] { ToWhole16(u"x"); }), 13);
    EXPECT_EQ(ErrorOf([] { ToWhole32(u""); }), 13);
}

struct HexRow {
    TextView text;
    std::int32_t number;
};

TEST(HexParse, OneToFourDigitsAreSigned16Bit) {
    const HexRow rows[] = {{u"0", 0},        {u"F", 15},        {u"FF", 255}, {u"FFF", 4095},
                           {u"7FFF", 32767}, {u"8000", -32768}, {u"FFFF", -1}};
    for (const HexRow& row : rows) EXPECT_EQ(HexParse(row.text), row.number) << ToUtf8(row.text);
}

TEST(HexParse, FiveToEightDigitsAreSigned32Bit) {
    const HexRow rows[] = {{u"08000", 32768},
                           {u"0000FFFF", 65535},
                           {u"7FFFFFFF", 2147483647},
                           {u"80000000", std::numeric_limits<std::int32_t>::min()},
                           {u"FFFFFFFF", -1}};
    for (const HexRow& row : rows) EXPECT_EQ(HexParse(row.text), row.number) << ToUtf8(row.text);
}

TEST(HexParse, MoreThanEightDigitsGiveTheLow32BitsSigned) {
    const HexRow rows[] = {
        {u"123456789", 0x23456789}, {u"1FFFFFFFF", -1}, {u"100000000", 0}, {u"000000008000", 32768}};
    for (const HexRow& row : rows) EXPECT_EQ(HexParse(row.text), row.number) << ToUtf8(row.text);
}

TEST(HexParse, StopsAtTheFirstOtherCharacter) {
    const HexRow rows[] = {{u"12 34", 18}, {u"3B65.", 15205}, {u"34G", 52}, {u"FFFFG", -1}, {u" 12", 0}};
    for (const HexRow& row : rows) EXPECT_EQ(HexParse(row.text), row.number) << ToUtf8(row.text);
}

TEST(HexParse, NoDigitsReadAsZero) {
    EXPECT_EQ(HexParse(u""), 0);
    EXPECT_EQ(HexParse(u"G"), 0);
    EXPECT_EQ(HexParse(u"-1"), 0);
}

TEST(HexParse, TakesSmallLetters) { EXPECT_EQ(HexParse(u"0d"), 13); }

TEST(HexPairValue, TakesOneOrTwoDigitsAndBlanksBehind) {
    EXPECT_EQ(HexPairValue(u"0D"), 13);
    EXPECT_EQ(HexPairValue(u"0d"), 13);
    EXPECT_EQ(HexPairValue(u"7"), 7);
    EXPECT_EQ(HexPairValue(u"7 "), 7);
}

TEST(HexPairValue, RefusesEverythingElse) {
    for (TextView pair : {u"", u"  ", u" 7", u"G0", u"0G", u"-1"}) {
        EXPECT_EQ(HexPairValue(pair), std::nullopt) << '"' << ToUtf8(pair) << '"';
    }
}

// --- Number to text ---

struct TextRow {
    double number;
    std::string text;
};

TEST(NumberText, HasNoZerosThatSayNothing) {
    const TextRow rows[] = {{0, "0"},         {1, "1"},        {-1234, "-1234"},
                            {100.5, "100.5"}, {12.50, "12.5"}, {1000000, "1000000"},
                            {-0.001, "-.001"}};
    for (const TextRow& row : rows) EXPECT_EQ(ToUtf8(NumberText(row.number)), row.text);
}

TEST(NumberText, HasNoZeroBeforeThePoint) {
    EXPECT_EQ(ToUtf8(NumberText(0.75)), ".75");
    EXPECT_EQ(ToUtf8(NumberText(-0.75)), "-.75");
}

TEST(NumberText, NegativeZeroIsZero) {
    EXPECT_EQ(ToUtf8(NumberText(-0.0)), "0");
    EXPECT_EQ(ToUtf8(SingleText(-0.0F)), "0");
}

TEST(NumberText, IsRoundedTo15Digits) {
    const TextRow rows[] = {{1.0 / 3, ".333333333333333"},
                            {2.0 / 3, ".666666666666667"},
                            {0.1 + 0.2, ".3"},
                            {123456789012345, "123456789012345"},
                            {12345678901234.56, "12345678901234.6"},
                            {1234567890123456, "1.23456789012346E+15"}};
    for (const TextRow& row : rows) EXPECT_EQ(ToUtf8(NumberText(row.number)), row.text);
}

TEST(NumberText, RoundsTiesToEven) {
    EXPECT_EQ(ToUtf8(NumberText(100000000000000.5)), "100000000000000");
    EXPECT_EQ(ToUtf8(NumberText(100000000000001.5)), "100000000000002");
    EXPECT_EQ(ToUtf8(NumberText(3.999969482421875)), "3.99996948242188");
}

TEST(NumberText, TakesExponentFormFrom1E15Upward) {
    const TextRow rows[] = {{999999999999999, "999999999999999"},
                            {999999999999999.5, "1E+15"},
                            {1e15, "1E+15"},
                            {-2.5e20, "-2.5E+20"},
                            {1e100, "1E+100"}};
    for (const TextRow& row : rows) EXPECT_EQ(ToUtf8(NumberText(row.number)), row.text);
}

TEST(NumberText, TakesExponentFormBelow1EMinus4) {
    const TextRow rows[] = {{0.0001, ".0001"},     {0.00012345, ".00012345"}, {0.00009999, "9.999E-05"},
                            {0.000015, "1.5E-05"}, {-0.00001, "-1E-05"},      {1.5e-100, "1.5E-100"}};
    for (const TextRow& row : rows) EXPECT_EQ(ToUtf8(NumberText(row.number)), row.text);
}

TEST(RoundedToText, IsTheValueOfTheText) {
    EXPECT_EQ(RoundedToText(0.1 + 0.2), 0.3);
    EXPECT_EQ(RoundedToText(1.0 / 3), 0.333333333333333);
    EXPECT_EQ(RoundedToText(-2.0 / 3), -0.666666666666667);
    EXPECT_EQ(RoundedToText(1234567890123456), 1234567890123460);
    EXPECT_EQ(RoundedToText(1.25), 1.25);
    EXPECT_EQ(RoundedToText(5e-324), 5e-324);
}

TEST(RoundedToText, RaisesError6WhereTheTextLeavesTheRange) {
    EXPECT_EQ(ErrorOf([] { RoundedToText(std::numeric_limits<double>::max()); }), 6);
}

TEST(SingleText, IsRoundedTo7Digits) {
    EXPECT_EQ(ToUtf8(SingleText(3.14F)), "3.14");
    EXPECT_EQ(ToUtf8(SingleText(0.1F)), ".1");
    EXPECT_EQ(ToUtf8(SingleText(-1.0F / 3)), "-.3333333");
}

TEST(SingleText, RoundsTiesToEven) {
    EXPECT_EQ(ToUtf8(SingleText(1234567.5F)), "1234568");
    EXPECT_EQ(ToUtf8(SingleText(1234566.5F)), "1234566");
}

TEST(SingleText, TakesExponentFormFrom1E7UpwardAndBelow1EMinus4) {
    EXPECT_EQ(ToUtf8(SingleText(9999999.0F)), "9999999");
    EXPECT_EQ(ToUtf8(SingleText(1e7F)), "1E+07");
    EXPECT_EQ(ToUtf8(SingleText(16777216.0F)), "1.677722E+07");
    EXPECT_EQ(ToUtf8(SingleText(0.0001F)), ".0001");
    EXPECT_EQ(ToUtf8(SingleText(0.00001F)), "1E-05");
}

TEST(WholeText, IsPlainDecimal) {
    EXPECT_EQ(ToUtf8(WholeText(0)), "0");
    EXPECT_EQ(ToUtf8(WholeText(-32768)), "-32768");
    EXPECT_EQ(ToUtf8(WholeText(12345678901)), "12345678901");
}

TEST(HexOf, IsUpperCaseWithoutLeadingZeros) {
    EXPECT_EQ(ToUtf8(HexOf(0.0)), "0");
    EXPECT_EQ(ToUtf8(HexOf(10.0)), "A");
    EXPECT_EQ(ToUtf8(HexOf(4096.0)), "1000");
    EXPECT_EQ(ToUtf8(HexOf(2147483647.0)), "7FFFFFFF");
}

TEST(HexOf, RoundsHalfToEven) {
    EXPECT_EQ(ToUtf8(HexOf(2.5)), "2");
    EXPECT_EQ(ToUtf8(HexOf(3.5)), "4");
    EXPECT_EQ(ToUtf8(HexOf(u"2.5")), "2");
    EXPECT_EQ(ToUtf8(HexOf(u"3.5")), "4");
}

TEST(HexOf, NegativeValueGivesEightDigits) {
    EXPECT_EQ(ToUtf8(HexOf(-1.0)), "FFFFFFFF");
    EXPECT_EQ(ToUtf8(HexOf(u"-2147483648")), "80000000");
}

TEST(HexOf, RaisesError6Beyond32Bits) {
    EXPECT_EQ(ErrorOf([] { HexOf(2147483648.0); }), 6);
    EXPECT_EQ(ErrorOf([] { HexOf(u"4294967295"); }), 6);
    EXPECT_EQ(ErrorOf([] { HexOf(-2147483649.0); }), 6);
}

TEST(HexOf, RaisesError13ForATextThatIsNoNumber) {
    EXPECT_EQ(ErrorOf([] { HexOf(u"x1"); }), 13);
    EXPECT_EQ(ErrorOf([] { HexOf(u""); }), 13);
}

// --- Fixed formats ---

TEST(FixedText, HasExactlyTheDecimals) {
    EXPECT_EQ(ToUtf8(FixedText(1234, 2)), "1234.00");
    EXPECT_EQ(ToUtf8(FixedText(12.3456, 2)), "12.35");
    EXPECT_EQ(ToUtf8(FixedText(7, 0)), "7");
    EXPECT_EQ(ToUtf8(FixedText(1e-20, 2)), ".00");
}

TEST(FixedText, HasNoZeroBeforeThePoint) {
    EXPECT_EQ(ToUtf8(FixedText(0.5, 2)), ".50");
    EXPECT_EQ(ToUtf8(FixedText(-0.5, 2)), "-.50");
    EXPECT_EQ(ToUtf8(FixedText(0, 1)), ".0");
}

TEST(FixedTextWithZero, HasTheZeroBeforeThePoint) {
    EXPECT_EQ(ToUtf8(FixedTextWithZero(0.5, 2)), "0.50");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(-0.5, 2)), "-0.50");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(0, 0)), "0");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(2613689, 0)), "2613689");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(12.3, 3)), "12.300");
}

TEST(FixedFormats, RoundHalfAwayFromZero) {
    EXPECT_EQ(ToUtf8(FixedTextWithZero(2.5, 0)), "3");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(-2.5, 0)), "-3");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(0.125, 2)), "0.13");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(0.05, 1)), "0.1");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(0.04, 1)), "0.0");
}

// As a double 1.005 is a little below the half.
TEST(FixedFormats, ShortNumbersAreRoundedAsLongOnes) {
    const struct {
        double number;
        int decimals;
        const char* text;
    } rows[] = {{2.5, 0, "3"},
                {-2.5, 0, "-3"},
                {0.125, 2, ".13"},
                {1.005, 2, "1.01"},
                {-0.04, 1, "-.0"},
                {0, 2, ".00"},
                {-0.0, 1, ".0"},
                {0, 0, ""},
                {12.5, 4, "12.5000"},
                {99.95, 1, "100.0"},
                {0.9999, 3, "1.000"},
                {7, 5, "7.00000"},
                {1234567890123.4, 1, "1234567890123.4"}};
    for (const auto& row : rows) EXPECT_EQ(ToUtf8(FixedText(row.number, row.decimals)), row.text);
}

TEST(FixedFormats, RoundTheDecimalTextNotTheDouble) {
    EXPECT_EQ(ToUtf8(FixedTextWithZero(1.005, 2)), "1.01");
    EXPECT_EQ(ToUtf8(FixedTextWithZero(-1.005, 2)), "-1.01");
}

TEST(FixedFormats, CarryIntoANewDigit) {
    EXPECT_EQ(ToUtf8(FixedText(9.995, 2)), "10.00");
    EXPECT_EQ(ToUtf8(FixedText(0.996, 2)), "1.00");
    EXPECT_EQ(ToUtf8(GroupedText(999.96, 1)), "1,000.0");
}

TEST(FixedFormats, NegativeValueThatRoundsToZeroKeepsItsSign) {
    EXPECT_EQ(ToUtf8(FixedTextWithZero(-0.04, 1)), "-0.0");
    EXPECT_EQ(ToUtf8(FixedText(-0.04, 1)), "-.0");
    EXPECT_EQ(ToUtf8(GroupedText(-0.4, 0)), "-0");
}

TEST(FixedFormats, NegativeZeroHasNoSign) { EXPECT_EQ(ToUtf8(FixedTextWithZero(-0.0, 1)), "0.0"); }

TEST(GroupedText, HasACommaEveryThreeDigits) {
    EXPECT_EQ(ToUtf8(GroupedText(999, 0)), "999");
    EXPECT_EQ(ToUtf8(GroupedText(1234.5, 2)), "1,234.50");
    EXPECT_EQ(ToUtf8(GroupedText(-123456, 0)), "-123,456");
    EXPECT_EQ(ToUtf8(GroupedText(1234567.891, 2)), "1,234,567.89");
    EXPECT_EQ(ToUtf8(GroupedText(0.5, 1)), "0.5");
}

// --- Sums inside their width ---

TEST(RoundHalfEven, TakesTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(2.6), 3);
}

TEST(BoundedSums, GoUpToTheirLimit) {
    EXPECT_EQ(Add16(32766, 1), 32767);
    EXPECT_EQ(Add16(-32767, -1), -32768);
    EXPECT_EQ(Add32(2147483646, 1), 2147483647);
    EXPECT_EQ(Multiply32(46340, 46340), 2147395600);
}

TEST(BoundedSums, RaiseError6BeyondIt) {
    EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { Add16(-32768, -1); }), 6);
    EXPECT_EQ(ErrorOf([] { Whole16(32767.5); }), 6);
    EXPECT_EQ(ErrorOf([] { Add32(2147483647, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { Multiply32(46341, 46341); }), 6);
    EXPECT_EQ(ErrorOf([] { Whole32(kInfinity); }), 6);
}

TEST(Finite, RaisesError6ForWhatLeftTheRangeOfADouble) {
    EXPECT_EQ(Finite(1e308), 1e308);
    EXPECT_EQ(ErrorOf([] { Finite(kInfinity); }), 6);
    EXPECT_EQ(ErrorOf([] { Finite(-kInfinity); }), 6);
    EXPECT_EQ(ErrorOf([] { Finite(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

}  // namespace
}  // namespace commtest
