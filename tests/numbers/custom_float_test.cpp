#include "numbers/custom_float.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

struct Row {
    TextView value;
    std::string code;
};

std::string CodeOf(TextView value) {
    Text text(value);
    ValueToCustomFloat(text);
    return ToUtf8(text);
}

TEST(ValueToCustomFloat, ExactZeroGivesEightZeros) {
    for (TextView zero : {u"0", u"0.00", u"-0", u"1E-400"}) EXPECT_EQ(CodeOf(zero), "00000000");
}

TEST(ValueToCustomFloat, MagnitudeOfOneAndMoreIsHalvedBelowOne) {
    const Row rows[] = {{u"1", "01800000"},      {u"-1", "81800000"},    {u"2", "02800000"},
                        {u"3.5", "02E00000"},    {u"65536", "11800000"}, {u"-32767", "8FFFFE00"},
                        {u"4652466", "178DFB63"}};
    for (const Row& row : rows) EXPECT_EQ(CodeOf(row.value), row.code) << ToUtf8(row.value);
}

TEST(ValueToCustomFloat, HalfToBelowOneTakesNoExponent) {
    const Row rows[] = {
        {u"0.5", "00800000"}, {u"0.75", "00C00000"}, {u"-0.75", "80C00000"}, {u"0.9", "00E66666"}};
    for (const Row& row : rows) EXPECT_EQ(CodeOf(row.value), row.code) << ToUtf8(row.value);
}

TEST(ValueToCustomFloat, MagnitudeBelowHalfIsDoubled) {
    const Row rows[] = {
        {u"0.3", "41999999"}, {u"-0.3", "C1999999"}, {u"0.2", "42CCCCCC"}, {u"0.0001", "4DD1B717"}};
    for (const Row& row : rows) EXPECT_EQ(CodeOf(row.value), row.code) << ToUtf8(row.value);
}

// The comparison with 1 is strict, so a power of two goes one round further and its first byte becomes 256.
TEST(ValueToCustomFloat, PowerOfTwoBelowHalfGivesNineCharacters) {
    const Row rows[] = {
        {u"0.25", "421000000"}, {u"0.125", "431000000"}, {u"0.0625", "441000000"}, {u"-0.25", "C21000000"}};
    for (const Row& row : rows) EXPECT_EQ(CodeOf(row.value), row.code) << ToUtf8(row.value);
}

// 65535.5 / 65536 has more than 15 digits: it is 0.99999237060547 behind the halving, not ...546875.
TEST(ValueToCustomFloat, WorkingValueKeeps15DigitsBetweenTheSteps) {
    EXPECT_EQ(CodeOf(u"65535.5"), "10FFFF80");
    EXPECT_EQ(CodeOf(u"0.9999999999999996"), "01800000");
}

// 1E+20 is 5.42101086242752 behind 64 halvings.
TEST(ValueToCustomFloat, MagnitudeOf2To64AndMoreGrowsBeyondEightCharacters) {
    EXPECT_EQ(CodeOf(u"1E+20"), "4056BC75E");
}

TEST(ValueToCustomFloat, VeryLargeMagnitudeRaisesError6) {
    EXPECT_EQ(ErrorOf([] { CodeOf(u"1E+30"); }), 6);
}

// 1E-20 is 0.184467440737096 behind 64 doublings: 64 for the sign of the exponent and 64 rounds make 128.
TEST(ValueToCustomFloat, MagnitudeBelow2ToMinus64OverrunsIntoTheSign) {
    EXPECT_EQ(CodeOf(u"1E-20"), "802F3942");
}

TEST(CustomFloatValue, SplitsTheFirstByteIntoSignsAndExponent) {
    EXPECT_EQ(CustomFloatValue(u"04A00000"), 10);
    EXPECT_EQ(CustomFloatValue(u"84A00000"), -10);
    EXPECT_EQ(CustomFloatValue(u"41800000"), 0.25);
    EXPECT_EQ(CustomFloatValue(u"C1800000"), -0.25);
    EXPECT_EQ(CustomFloatValue(u"3F800000"), 4611686018427387904.0);
    EXPECT_EQ(CustomFloatValue(u"40800000"), 0.5);
}

TEST(CustomFloatValue, WeighsTheThreeMantissaBytes) {
    EXPECT_EQ(CustomFloatValue(u"18000001"), 1);
    EXPECT_EQ(CustomFloatValue(u"18000100"), 256);
    EXPECT_EQ(CustomFloatValue(u"18010000"), 65536);
}

TEST(CustomFloatValue, MantissaBelowHalfIsRead) { EXPECT_EQ(CustomFloatValue(u"11420000"), 33792); }

TEST(CustomFloatValue, MissingPairsReadAsZero) {
    EXPECT_EQ(CustomFloatValue(u"07C900"), 100.5);
    EXPECT_EQ(CustomFloatValue(u"07C9"), 100.5);
    EXPECT_EQ(CustomFloatValue(u""), 0);
}

TEST(CustomFloatMantissa, DoesNotHeedTheFirstByte) {
    EXPECT_EQ(CustomFloatMantissa(u"04A00000"), 0.625);
    EXPECT_EQ(CustomFloatMantissa(u"C1800000"), 0.5);
    EXPECT_EQ(CustomFloatMantissa(u"FF000100"), 1 / 65536.0);
}

struct Split {
    double magnitude;
    bool isNegative;
    int firstByte;
    double mantissa;
};

TEST(SplitIntoCustomFloat, GivesSignsAndExponentInOneByte) {
    const Split cases[] = {
        {100.5, false, 0x07, 0.78515625}, {100.5, true, 0x87, 0.78515625}, {0.75, false, 0x00, 0.75},
        {0.75, true, 0x80, 0.75},         {0.3, false, 0x41, 0.6},         {0.25, true, 0xC2, 1},
    };
    for (const Split& split : cases) {
        const CustomFloatParts parts = SplitIntoCustomFloat(split.magnitude, split.isNegative);
        EXPECT_EQ(parts.firstByte, split.firstByte) << split.magnitude;
        EXPECT_EQ(parts.mantissa, split.mantissa) << split.magnitude;
    }
}

TEST(SplitIntoCustomFloat, ZeroRunsThroughAllExponents) {
    EXPECT_EQ(SplitIntoCustomFloat(0, true).firstByte, 256);
    EXPECT_EQ(SplitIntoCustomFloat(0, true).mantissa, 0);
}

TEST(MantissaBytes, HaveTwoDigitsOrMore) {
    const auto bytesOf = [](double mantissa) {
        const auto [second, third, fourth] = MantissaBytes(mantissa);
        return ToUtf8(second + u" " + third + u" " + fourth);
    };
    EXPECT_EQ(bytesOf(0.78515625), "C9 00 00");
    EXPECT_EQ(bytesOf(0.6), "99 99 99");
    EXPECT_EQ(bytesOf(1), "100 00 00");
    EXPECT_EQ(bytesOf(0), "00 00 00");
    EXPECT_EQ(ErrorOf([&] { bytesOf(8388608); }), 6);
}

}  // namespace
}  // namespace commtest
