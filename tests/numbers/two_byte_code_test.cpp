#include "numbers/two_byte_code.h"

#include <gtest/gtest.h>

#include "numbers/code_text.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string SignMagnitudeOf(Text value) {
    ValueToSignMagnitude(value);
    return ToUtf8(value);
}

std::string TwosComplementOf(Text value, int width) {
    ValueToTwosComplement(value, width);
    return ToUtf8(value);
}

TEST(SignMagnitude, SetsBit15OfANegativeValue) {
    EXPECT_EQ(SignMagnitudeOf(u"1"), "0001");
    EXPECT_EQ(SignMagnitudeOf(u"-1"), "8001");
    EXPECT_EQ(SignMagnitudeOf(u"-32767"), "FFFF");
}

// The two signs differ on purpose.
TEST(SignMagnitude, PositiveFractionIsRoundedHalfToEven) {
    EXPECT_EQ(SignMagnitudeOf(u"2.5"), "0002");
    EXPECT_EQ(SignMagnitudeOf(u"3.5"), "0004");
    EXPECT_EQ(SignMagnitudeOf(u"0.7"), "0001");
}

TEST(SignMagnitude, NegativeFractionIsCut) {
    EXPECT_EQ(SignMagnitudeOf(u"-2.5"), "8002");
    EXPECT_EQ(SignMagnitudeOf(u"-3.5"), "8003");
    EXPECT_EQ(SignMagnitudeOf(u"-5.9"), "8005");
    EXPECT_EQ(SignMagnitudeOf(u"-0.0830899"), "8000");
}

TEST(SignMagnitude, ValueOutOfRangeLosesItsHighDigits) {
    EXPECT_EQ(SignMagnitudeOf(u"65536"), "0000");
    EXPECT_EQ(SignMagnitudeOf(u"-32768"), "0000");
    EXPECT_EQ(SignMagnitudeOf(u"-65535"), "7FFF");
    EXPECT_EQ(SignMagnitudeOf(u"872235"), "4F2B");
    EXPECT_EQ(SignMagnitudeOf(u"2147483647.4"), "FFFF");
}

TEST(SignMagnitude, RaisesError6Beyond32Bits) {
    EXPECT_EQ(ErrorOf([] { SignMagnitudeOf(u"2147483647.5"); }), 6);
    EXPECT_EQ(ErrorOf([] { SignMagnitudeOf(u"-2147450880"); }), 6);
    EXPECT_EQ(SignMagnitudeOf(u"-2147450879"), "FFFF");
}

TEST(TwosComplement, TakesTheFloor) {
    EXPECT_EQ(TwosComplementOf(u"1.9", 4), "0001");
    EXPECT_EQ(TwosComplementOf(u"-1.5", 4), "FFFE");
    EXPECT_EQ(TwosComplementOf(u"-0.1", 4), "FFFF");
    EXPECT_EQ(TwosComplementOf(u"-0.75", 2), "FF");
    EXPECT_EQ(TwosComplementOf(u"2147483647.9", 4), "FFFF");
}

TEST(TwosComplement, ValueOutOfRangeLosesItsHighDigits) {
    EXPECT_EQ(TwosComplementOf(u"300", 2), "2C");
    EXPECT_EQ(TwosComplementOf(u"-1", 4), "FFFF");
    EXPECT_EQ(TwosComplementOf(u"1000000", 4), "4240");
    EXPECT_EQ(TwosComplementOf(u"-50807", 4), "3989");
}

TEST(TwosComplement, RaisesError6Beyond32Bits) {
    EXPECT_EQ(ErrorOf([] { TwosComplementOf(u"2147483648", 4); }), 6);
    EXPECT_EQ(ErrorOf([] { TwosComplementOf(u"-2147483648.5", 2); }), 6);
}

TEST(SignMagnitudeValue, BitFifteenIsTheSign) {
    EXPECT_EQ(ToUtf8(SignMagnitudeValue(0x7F, 0xFF)), "32767");
    EXPECT_EQ(ToUtf8(SignMagnitudeValue(0x80, 0x00)), "-0");
    EXPECT_EQ(ToUtf8(SignMagnitudeValue(0x80, 0x01)), "-1");
    EXPECT_EQ(ToUtf8(SignMagnitudeValue(0xFF, 0xFF)), "-32767");
}

TEST(CodeText, ByteBeyondTheEndReadsAsZero) {
    EXPECT_EQ(CodeByteAt(u"C8", 1), 200);
    EXPECT_EQ(CodeByteAt(u"C8", 3), 0);
    EXPECT_EQ(CodeByteAt(u"C81", 3), 1);
    EXPECT_EQ(CodeByteAt(u"G1", 1), 0);
}

TEST(CodeText, SwappingKeepsTheFirstTwoBytesOnly) {
    const auto swapped = [](Text code) {
        SwapTwoBytes(code);
        return ToUtf8(code);
    };
    EXPECT_EQ(swapped(u"04D2"), "D204");
    EXPECT_EQ(swapped(u"186A0"), "6A18");
}

TEST(CodeText, ByteHasAtLeastTwoDigits) {
    EXPECT_EQ(ToUtf8(CodeByteOf(0)), "00");
    EXPECT_EQ(ToUtf8(CodeByteOf(200)), "C8");
    EXPECT_EQ(ToUtf8(CodeByteOf(256)), "100");
}

}  // namespace
}  // namespace commtest
