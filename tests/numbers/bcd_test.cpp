#include "numbers/bcd.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string CodeOf(TextView value) {
    Text text(value);
    ValueToBcd(text);
    return ToUtf8(text);
}

std::string ValueOf(TextView code) {
    Text text(code);
    BcdToValue(text);
    return ToUtf8(text);
}

TEST(ValueToBcd, EverythingFromZeroToBelowOneIsZero) {
    for (TextView value : {u"0", u"0.01", u"0.5", u"0.999", u"-0"}) EXPECT_EQ(CodeOf(value), "0000000000");
}

TEST(ValueToBcd, MinusOneHalfTakesTheNegativePath) { EXPECT_EQ(CodeOf(u"-0.5"), "0900000005"); }

TEST(ValueToBcd, DecimalsAreThoseOfTheTextAsTyped) {
    EXPECT_EQ(CodeOf(u"12.5"), "0100000125");
    EXPECT_EQ(CodeOf(u"12.50"), "0200001250");
    EXPECT_EQ(CodeOf(u"12."), "0000000012");
    EXPECT_EQ(CodeOf(u"12"), "0000000012");
}

TEST(ValueToBcd, SignIsBit3AboveTheDecimals) {
    EXPECT_EQ(CodeOf(u"-129"), "0800000129");
    EXPECT_EQ(CodeOf(u"-12.34"), "0A00001234");
    EXPECT_EQ(CodeOf(u"-7839.85883"), "0D83985883");
}

TEST(ValueToBcd, MoreThanEightDigitsLoseTheFirstOnes) {
    EXPECT_EQ(CodeOf(u"123456789"), "0023456789");
    EXPECT_EQ(CodeOf(u"1234567.89"), "0223456789");
}

TEST(ValueToBcd, SignAndDecimalsOf16AndMoreMakeElevenCharacters) {
    EXPECT_EQ(CodeOf(u"-5.424208739"), "01124208739");
}

// Whatever stands first in a negative text is dropped as if it were the minus sign.
TEST(ValueToBcd, DropsTheFirstCharacterOfANegativeText) { EXPECT_EQ(CodeOf(u" -5"), "08000000-5"); }

TEST(ValueToBcd, ExponentFormIsTakenAsDigits) { EXPECT_EQ(CodeOf(u"1E+15"), "000001E+15"); }

TEST(ValueToBcd, ScalingBeyondADoubleRaisesError6) {
    EXPECT_EQ(ErrorOf([] { CodeOf(u"5.5E+307"); }), 6);
    EXPECT_EQ(ErrorOf([] { CodeOf(u"1." + Text(400, u'0')); }), 6);
}

TEST(BcdToValue, HasExactlyTheDecimalsOfTheCode) {
    EXPECT_EQ(ValueOf(u"0000000000"), "0");
    EXPECT_EQ(ValueOf(u"0200001250"), "12.50");
    EXPECT_EQ(ValueOf(u"0300000700"), "0.700");
    EXPECT_EQ(ValueOf(u"0700000041"), "0.0000041");
    EXPECT_EQ(ValueOf(u"0002613689"), "2613689");
}

TEST(BcdToValue, DigitsFrom8UpwardAreNegative) {
    EXPECT_EQ(ValueOf(u"0800000005"), "-5");
    EXPECT_EQ(ValueOf(u"0900000382"), "-38.2");
    EXPECT_EQ(ValueOf(u"0800000000"), "-0");
    EXPECT_EQ(ValueOf(u"0900000000"), "-0.0");
}

TEST(BcdToValue, FirstCharacterIsNotRead) { EXPECT_EQ(ValueOf(u"A100000041"), "4.1"); }

// A negative value with more than one decimal can be written but not read back.
TEST(BcdToValue, LetterInPositionTwoRaisesError13) {
    for (TextView code : {u"0A00001234", u"0B00000126", u"0F00000001", u"0 00000001", u"0.00000001"}) {
        EXPECT_EQ(ErrorOf([code] { ValueOf(code); }), 13) << ToUtf8(code);
    }
}

TEST(BcdToValue, LetterAmongTheDigitsRaisesError13) {
    EXPECT_EQ(ErrorOf([] { ValueOf(u"0500099C29"); }), 13);
}

TEST(BcdToValue, CodeThatIsTooShortRaisesError13) {
    for (TextView code : {u"", u"0", u"02"})
        EXPECT_EQ(ErrorOf([code] { ValueOf(code); }), 13) << ToUtf8(code);
    EXPECT_EQ(ValueOf(u"00097"), "97");
}

}  // namespace
}  // namespace commtest
