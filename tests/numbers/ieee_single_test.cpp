#include "numbers/ieee_single.h"

#include <gtest/gtest.h>

#include "numbers/register_codecs.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string CodeOf(TextView value) {
    Text text(value);
    ValueToIeeeSingle(text);
    return ToUtf8(text);
}

std::string Reading(TextView code) {
    Text text(code);
    CommCodeToValue(text, register_format::kIeeeSingle);
    return ToUtf8(text);
}

TEST(ValueToIeeeSingle, WritesTheMostSignificantByteFirst) {
    EXPECT_EQ(CodeOf(u"10"), "41200000");
    EXPECT_EQ(CodeOf(u"-1"), "BF800000");
    EXPECT_EQ(CodeOf(u"0.001"), "3A83126F");
    EXPECT_EQ(CodeOf(u"-1E-05"), "B727C5AC");
}

TEST(ValueToIeeeSingle, ExactZeroGivesEightZeros) {
    for (TextView zero : {u"0", u"-0", u"0.0"}) EXPECT_EQ(CodeOf(zero), "00000000");
}

// 16777217 and 16777219 lie halfway between two singles.
TEST(ValueToIeeeSingle, RoundsToTheNearestSingle) {
    EXPECT_EQ(CodeOf(u"16777217"), "4B800000");
    EXPECT_EQ(CodeOf(u"16777219"), "4B800002");
}

TEST(ValueToIeeeSingle, MagnitudeBeyondTheRangeRaisesError6) {
    EXPECT_EQ(CodeOf(u"3.4028235E+38"), "7F7FFFFF");
    EXPECT_EQ(CodeOf(u"-3.4028235E+38"), "FF7FFFFF");
    EXPECT_EQ(ErrorOf([] { CodeOf(u"3.4028236E+38"); }), 6);
    EXPECT_EQ(ErrorOf([] { CodeOf(u"-1E+39"); }), 6);
}

TEST(IeeeSingleReading, Has7Digits) {
    EXPECT_EQ(Reading(u"3DCCCCCD"), "0.1");
    EXPECT_EQ(Reading(u"C0FAA60F"), "-7.832771");
    EXPECT_EQ(Reading(u"CDCE48E0"), "-43261030");
}

TEST(IeeeSingleReading, NegativeZeroIsZero) { EXPECT_EQ(Reading(u"80000000"), "0"); }

TEST(IeeeSingleReading, ExponentFormOfUpToFiveCharactersStays) { EXPECT_EQ(Reading(u"4B189680"), "1E+07"); }

TEST(IeeeSingleReading, MissingPairsReadAsZero) {
    EXPECT_EQ(Reading(u"4120"), "10");
    EXPECT_EQ(Reading(u""), "0");
}

TEST(IeeeSingleReading, InfinityAndWhatIsNoNumberRaiseError6) {
    for (TextView code : {u"7F800000", u"FF800000", u"7FC00000", u"7F800001", u"FFFFFFFF"}) {
        EXPECT_EQ(ErrorOf([code] { Reading(code); }), 6) << ToUtf8(code);
    }
}

TEST(IeeeSingleReading, LargestSingleIsReadWithoutItsExponent) {
    EXPECT_EQ(Reading(u"7F7FFFFF"), "3.402823E");
}

}  // namespace
}  // namespace commtest
