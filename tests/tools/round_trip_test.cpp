#include "tools/round_trip.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

// --- A value on its way through its code ---

TEST(LossOfValue, ValueThatArrivesHasNone) {
    const struct {
        int format;
        Text value;
    } rows[] = {{0, u"-1234"}, {0, u"32767"}, {0, u"-32767"}, {1, u"-32768"}, {1, u"32767"},   {2, u"100.50"},
                {2, u"0.75"},  {3, u"-0.5"},  {5, u"12.50"},  {5, u"-12.3"},  {5, u"99999.9"}, {6, u"32767"},
                {7, u"0"},     {7, u"255"},   {12, u"32767"}, {0, u" 5 "},    {2, u"1000000"}, {3, u"1E1"}};
    for (const auto& row : rows) {
        EXPECT_FALSE(LossOfValue(row.value, row.format)) << row.format << " " << ToUtf8(row.value);
    }
}

struct LostValue {
    int format;
    Text value;
    const char* code;
    const char* arrives;
    LossReason reason;
};

const LostValue kLostValues[] = {
    {0, u"203392", "801A", "6784", LossReason::BeyondSignMagnitude},
    {0, u"32768", "0080", "-0", LossReason::BeyondSignMagnitude},
    {0, u"-32768", "0000", "0", LossReason::BeyondSignMagnitude},
    {0, u"32767.4", "FF7F", "32767", LossReason::FractionRounded},
    {0, u"32767.5", "0080", "-0", LossReason::BeyondSignMagnitude},
    {0, u"-32767.5", "FFFF", "-32767", LossReason::FractionRounded},
    {0, u"2.5", "0200", "2", LossReason::FractionRounded},
    {0, u"3.5", "0400", "4", LossReason::FractionRounded},
    {0, u"-2.5", "0280", "-2", LossReason::FractionRounded},
    {0, u"-0.5", "0080", "-0", LossReason::FractionRounded},
    {6, u"65537", "0001", "1", LossReason::BeyondSignMagnitude},
    {6, u"-32767.5", "FFFF", "-32767", LossReason::FractionRounded},
    {12, u"-5", "8005", "-32763", LossReason::Uneven},
    {12, u"2.5", "0002", "2", LossReason::FractionRounded},
    {12, u"32767.4", "7FFF", "32767", LossReason::FractionRounded},
    {12, u"32768", "8000", "-32768", LossReason::BeyondSignMagnitude},
    {1, u"65535", "FFFF", "-1", LossReason::BeyondTwosComplement},
    {1, u"32767.5", "7FFF", "32767", LossReason::FractionFloored},
    {1, u"-32768.5", "7FFF", "32767", LossReason::BeyondTwosComplement},
    {1, u"-1.5", "FFFE", "-2", LossReason::FractionFloored},
    {7, u"-1", "FF", "255", LossReason::BeyondOneByte},
    {7, u"256", "00", "0", LossReason::BeyondOneByte},
    {7, u"300", "2C", "44", LossReason::BeyondOneByte},
    {7, u"255.5", "FF", "255", LossReason::FractionFloored},
    {7, u"1.9", "01", "1", LossReason::FractionFloored},
    {2, u"0.25", "421000000", "0.015625", LossReason::LongCode},
    {2, u"0.3", "41999999", "0.29999998", LossReason::CustomFloatWidth},
    {2, u"-1234.5678", "8B9A522B", "-1234.567", LossReason::CustomFloatWidth},
    {2, u"9223372036854775808", "40800000", "0.5", LossReason::BeyondExponent},
    {2, u"1234567168", "1F932C00", "123456716", LossReason::LongReading},
    {3, u"16777217", "4B800000", "16777220", LossReason::SingleWidth},
    {5, u"0.999", "0000000000", "0", LossReason::BcdBelowOne},
    {5, u"0.827153308", "0000000000", "0", LossReason::BcdBelowOne},
    {5, u"1234567.89", "0223456789", "234567.89", LossReason::BcdManyDigits},
    {5, u"1.23456789", "0823456789", "-23456789", LossReason::BcdManyDecimals},
};

TEST(LossOfValue, OtherNumberThatArrivesIsGivenWithItsReason) {
    for (const LostValue& row : kLostValues) {
        SCOPED_TRACE(std::to_string(row.format) + " " + ToUtf8(row.value));
        const auto loss = LossOfValue(row.value, row.format);
        ASSERT_TRUE(loss);
        EXPECT_EQ(loss->kind, LossKind::OtherArrives);
        EXPECT_EQ(loss->trip.value, row.value);
        EXPECT_EQ(ToUtf8(loss->trip.code), row.code);
        EXPECT_EQ(ToUtf8(loss->trip.back.value_or(u"nothing")), row.arrives);
        EXPECT_EQ(loss->reason, row.reason);
    }
}

TEST(LossOfValue, CodeThatCannotBeReadLetsNothingArrive) {
    const struct {
        Text value;
        const char* code;
        LossReason reason;
    } rows[] = {{u"-12.34", "0A00001234", LossReason::BcdSignIsLetter},
                {u"+5", "00000000+5", LossReason::BcdOtherDigits}};
    for (const auto& row : rows) {
        const auto loss = LossOfValue(row.value, 5);
        ASSERT_TRUE(loss) << row.code;
        EXPECT_EQ(loss->kind, LossKind::NoWayBack);
        EXPECT_EQ(ToUtf8(loss->trip.code), row.code);
        EXPECT_FALSE(loss->trip.back) << row.code;
        EXPECT_EQ(loss->reason, row.reason);
    }
}

TEST(LossOfValue, NegativeZeroLosesItsSign) {
    for (const int format : {0, 1, 5, 6, 7}) {
        const auto loss = LossOfValue(u"-0", format);
        ASSERT_TRUE(loss) << format;
        EXPECT_EQ(loss->kind, LossKind::SameArrives);
        EXPECT_EQ(loss->reason, LossReason::NegativeZero);
        EXPECT_EQ(ToUtf8(loss->trip.back.value_or(u"nothing")), "0");
    }
}

TEST(LossOfValue, NumberByACodeThatIsNoBcdIsTold) {
    for (const auto& [value, code] :
         {std::pair{Text(u"1e3"), "00000001e3"}, std::pair{Text(u"1E3"), "00000001E3"}}) {
        const auto loss = LossOfValue(value, 5);
        ASSERT_TRUE(loss) << code;
        EXPECT_EQ(loss->kind, LossKind::SameArrives);
        EXPECT_EQ(ToUtf8(loss->trip.code), code);
        EXPECT_EQ(loss->reason, LossReason::BcdOtherDigits);
    }
}

TEST(LossOfValue, FormatWithoutAWayToACodeSaysSo) {
    for (const auto& [format, reason] : {std::pair{8, LossReason::ReadsOnly},
                                         {9, LossReason::ReadsOnly},
                                         {11, LossReason::ReadsOnly},
                                         {4, LossReason::NotConverted},
                                         {10, LossReason::NotConverted},
                                         {13, LossReason::NotConverted}}) {
        const auto loss = LossOfValue(u"12", format);
        ASSERT_TRUE(loss) << format;
        EXPECT_EQ(loss->kind, LossKind::NoConversion);
        EXPECT_EQ(loss->reason, reason) << format;
        EXPECT_EQ(ToUtf8(loss->trip.code), "12");
        EXPECT_FALSE(loss->trip.back);
    }
}

TEST(LossOfValue, ErrorsOfTheCodecComeThrough) {
    EXPECT_EQ(ErrorOf([] { LossOfValue(u"", 0); }), 13);
    EXPECT_EQ(ErrorOf([] { LossOfValue(u"12:5", 2); }), 13);
    EXPECT_EQ(ErrorOf([] { LossOfValue(u"2147483648", 0); }), 6);
    EXPECT_EQ(ErrorOf([] { LossOfValue(u"1E39", 3); }), 6);
}

// --- A code on its way through its value ---

TEST(LossOfCode, CodeThatIsWrittenAgainHasNone) {
    const struct {
        int format;
        Text code;
    } rows[] = {{0, u"d204"},       {1, u"FB2E"}, {2, u"00C00000"}, {2, u"04A00000"}, {3, u"BF000000"},
                {5, u"0900000123"}, {6, u"84D2"}, {7, u"C8"},       {12, u"7FFF"}};
    for (const auto& row : rows) {
        EXPECT_FALSE(LossOfCode(row.code, row.format)) << row.format << " " << ToUtf8(row.code);
    }
}

struct LostCode {
    int format;
    Text code;
    const char* value;
    const char* written;
    LossReason reason;
};

const LostCode kLostCodes[] = {
    {0, u"0080", "-0", "0000", LossReason::NegativeZero},
    {0, u"FF", "255", "FF00", LossReason::WrittenInFourCharacters},
    {0, u"04A00000", "10", "0A00", LossReason::WrittenInFourCharacters},
    {6, u"8000", "-0", "0000", LossReason::NegativeZero},
    {1, u"B22G", "2850", "0B22", LossReason::OtherCharacters},
    {7, u"3B6", "950", "B6", LossReason::WrittenInTwoCharacters},
    {12, u"FFFF", "-1", "8001", LossReason::Uneven},
    {2, u"41800000", "0.25", "421000000", LossReason::PowerOfTwoBelowHalf},
    {2, u"80000000", "0", "00000000", LossReason::ZeroHasOneCode},
    {2, u"41999999", "0.29999998", "41999998", LossReason::Normalised},
    {2, u"4199999900", "0.29999998", "41999998", LossReason::WrittenInEightCharacters},
    {2, u"6DDEE0E9", "0", "00000000", LossReason::ReadAsZero},
    {3, u"4120", "10", "41200000", LossReason::WrittenInEightCharacters},
    {3, u"2EBD4689", "0", "00000000", LossReason::ReadAsZero},
    {3, u"80000000", "0", "00000000", LossReason::ZeroHasOneCode},
    {5, u"0800000000", "-0", "0000000000", LossReason::NegativeZero},
    {5, u"0300000700", "0.700", "0000000000", LossReason::BcdBelowOne},
    {5, u"9128140632", "2814063.2", "0128140632", LossReason::BcdBeginsWithZero},
    {5, u"00097", "97", "0000000097", LossReason::WrittenInTenCharacters},
};

TEST(LossOfCode, OtherCodeThatWouldBeWrittenIsGivenWithItsReason) {
    for (const LostCode& row : kLostCodes) {
        SCOPED_TRACE(std::to_string(row.format) + " " + ToUtf8(row.code));
        const auto loss = LossOfCode(row.code, row.format);
        ASSERT_TRUE(loss);
        EXPECT_EQ(loss->kind, LossKind::OtherArrives);
        EXPECT_EQ(loss->trip.code, row.code);
        EXPECT_EQ(ToUtf8(loss->trip.value), row.value);
        EXPECT_EQ(ToUtf8(loss->trip.back.value_or(u"nothing")), row.written);
        EXPECT_EQ(loss->reason, row.reason);
    }
}

TEST(LossOfCode, ReadingThatIsNoNumberIsNotWritten) {
    const auto untouched = LossOfCode(u"BA75DD7B05", 0);
    ASSERT_TRUE(untouched);
    EXPECT_EQ(untouched->kind, LossKind::NoWayBack);
    EXPECT_EQ(ToUtf8(untouched->trip.value), "BA75DD7B05");
    EXPECT_EQ(untouched->reason, LossReason::LeftAsItIs);

    const auto cut = LossOfCode(u"640CD37C", 3);
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->kind, LossKind::NoWayBack);
    EXPECT_EQ(ToUtf8(cut->trip.value), "1.039113E");
    EXPECT_FALSE(cut->trip.back);
    EXPECT_EQ(cut->reason, LossReason::ReadingIsNoNumber);
}

TEST(LossOfCode, FormatWithoutAWayToACodeSaysSo) {
    const auto loss = LossOfCode(u"04A0000007C90000", 8);
    ASSERT_TRUE(loss);
    EXPECT_EQ(loss->kind, LossKind::NoConversion);
    EXPECT_EQ(ToUtf8(loss->trip.value), "1100.5");
    EXPECT_EQ(loss->reason, LossReason::ReadsOnly);
    EXPECT_EQ(LossOfCode(u"41200000", 11)->reason, LossReason::ReadsOnly);
    EXPECT_EQ(LossOfCode(u"C304", 4)->reason, LossReason::NotConverted);
}

TEST(LossOfCode, ErrorsOfTheCodecComeThrough) {
    EXPECT_EQ(ErrorOf([] { LossOfCode(u"0A00001234", 5); }), 13);
}

}  // namespace
}  // namespace commtest
