#include "numbers/reading_length.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

std::string Shortened(TextView value, const ReadingLength& room = {100000000, 9}) {
    Text text(value);
    ShortenReading(text, room);
    return ToUtf8(text);
}

TEST(ShortenReading, OnlyATextOfMoreThanFiveCharactersIsCut) {
    EXPECT_EQ(Shortened(u"100.5"), "100.5");
    EXPECT_EQ(Shortened(u"0"), "0");
    EXPECT_EQ(Shortened(u"1E-20"), "1E-20");
    EXPECT_EQ(Shortened(u"-1E-20"), "-1E-08");
}

TEST(ShortenReading, CutsTowardsMinusInfinity) {
    EXPECT_EQ(Shortened(u".299999982118607"), "0.29999998");
    EXPECT_EQ(Shortened(u"-.123456781", {100000000, 99}), "-0.12345679");
    EXPECT_EQ(Shortened(u".123456789", {100000000, 99}), "0.12345678");
}

TEST(ShortenReading, KeepsTheFirstCharactersWithSignAndPoint) {
    EXPECT_EQ(Shortened(u"1234.56774902344"), "1234.5677");
    EXPECT_EQ(Shortened(u"-1234.56774902344"), "-1234.567");
    EXPECT_EQ(Shortened(u"1234.56774902344", {100000, 6}), "1234.5");
}

// So a value below 1 shows one more digit than a negative one.
TEST(ShortenReading, ZeroBeforeThePointIsNotCounted) {
    EXPECT_EQ(Shortened(u".123456789"), "0.12345678");
    EXPECT_EQ(Shortened(u"-.12345678"), "-0.1234567");
}

TEST(ShortenReading, ZeroIsAddedToAShortTextToo) {
    EXPECT_EQ(Shortened(u".75"), "0.75");
    EXPECT_EQ(Shortened(u"-.5"), "-0.5");
}

TEST(ShortenReading, ExponentFormLosesItsExponent) {
    EXPECT_EQ(Shortened(u"4.61168601842739E+18"), "4.6116860");
    EXPECT_EQ(Shortened(u"-4.61168601842739E+18"), "-4.611686");
}

TEST(ShortenReading, TooSmallAValueBecomesZeroOrTheLastDecimal) {
    EXPECT_EQ(Shortened(u"5.42101086242752E-20"), "0");
    EXPECT_EQ(Shortened(u"-5.42101086242752E-20"), "-1E-08");
}

// 0.29 times a hundred million is a little below 29000000 as a double.
TEST(ShortenReading, WorksOnTheNumberOfTheText) { EXPECT_EQ(Shortened(u"0.2900000"), "0.28999999"); }

TEST(PutZeroBeforePoint, OnlyALeadingPointGetsIt) {
    const auto completed = [](Text text) {
        PutZeroBeforePoint(text);
        return ToUtf8(text);
    };
    EXPECT_EQ(completed(u".5"), "0.5");
    EXPECT_EQ(completed(u"-.5"), "-0.5");
    EXPECT_EQ(completed(u"1.5"), "1.5");
    EXPECT_EQ(completed(u"-1.5"), "-1.5");
    EXPECT_EQ(completed(u""), "");
}

}  // namespace
}  // namespace commtest
