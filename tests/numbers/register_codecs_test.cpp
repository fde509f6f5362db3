#include "numbers/register_codecs.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string CodeOf(Text value, int format) {
    ValueToCommCode(value, format);
    return ToUtf8(value);
}

std::string ValueOf(Text code, int format) {
    CommCodeToValue(code, format);
    return ToUtf8(code);
}

std::string AutoValueOf(Text code, int size = 0) {
    ConvertCommCodeAuto(code, -1, size);
    return ToUtf8(code);
}

std::string AutoCodeOf(Text value, int size) {
    ConvertCommCodeAuto(value, 0, size);
    return ToUtf8(value);
}

// An outward or inward conversion that has to fail, and what stands in the text behind it.
struct Failure {
    int number;
    std::string text;
    bool operator==(const Failure&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Failure& failure) {
    return out << "error " << failure.number << ", text " << failure.text;
}

Failure FailureOf(void (*convert)(Text&, int), Text text, int format) {
    const int number = ErrorOf([&] { convert(text, format); });
    return {number, ToUtf8(text)};
}

TEST(RegisterCodecs, WorkedValuesGoThereAndBack) {
    struct Row {
        TextView value;
        int format;
        std::string code;
        std::string readsBackAs;
    };
    const Row rows[] = {
        {u"1234", 0, "D204", "1234"},
        {u"-1234", 0, "D284", "-1234"},
        {u"1234", 6, "04D2", "1234"},
        {u"-1234", 6, "84D2", "-1234"},
        {u"-1234", 1, "FB2E", "-1234"},
        {u"65535", 1, "FFFF", "-1"},
        {u"200", 7, "C8", "200"},
        {u"-1", 7, "FF", "255"},
        {u"10", 2, "04A00000", "10"},
        {u"100.5", 2, "07C90000", "100.5"},
        {u"1", 2, "01800000", "1"},
        {u"0.5", 2, "00800000", "0.5"},
        {u"0.75", 2, "00C00000", "0.75"},
        {u"0.3", 2, "41999999", "0.29999998"},
        {u"-0.3", 2, "C1999999", "-0.2999999"},
        {u"0.1", 2, "43CCCCCC", "0.09999999"},
        {u"-1234.5678", 2, "8B9A522B", "-1234.567"},
        {u"1000000", 2, "14F42400", "1000000"},
        {u"10", 3, "41200000", "10"},
        {u"3.14", 3, "4048F5C3", "3.14"},
        {u"-0.5", 3, "BF000000", "-0.5"},
        {u"12.34", 5, "0200001234", "12.34"},
        {u"-5", 5, "0800000005", "-5"},
        {u"-12.3", 5, "0900000123", "-12.3"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CodeOf(Text(row.value), row.format), row.code) << ToUtf8(row.value);
        EXPECT_EQ(ValueOf(FromUtf8(row.code), row.format), row.readsBackAs) << row.code;
    }
}

TEST(RegisterCodecs, FormatsThatAreNoneLeaveTheTextInBothDirections) {
    for (int format : {4, 10, 13, 99, -1}) {
        for (TextView text : {u"", u"12.5", u"F13F", u"xyz"}) {
            EXPECT_EQ(CodeOf(Text(text), format), ToUtf8(text)) << format;
            EXPECT_EQ(ValueOf(Text(text), format), ToUtf8(text)) << format;
        }
    }
}

TEST(RegisterCodecs, FormatsThatOnlyReadLeaveTheValueOnWriting) {
    for (int format : {8, 9, 11}) EXPECT_EQ(CodeOf(u"-12.5", format), "-12.5") << format;
}

TEST(RegisterCodecs, ConversionErrorLeavesTheTextAsItStoodAtThatStep) {
    EXPECT_EQ(FailureOf(ValueToCommCode, u"12:5", 0), (Failure{13, "12:5"}));
    // The magnitude with its sign bit stands in the text when it turns out to be too large.
    EXPECT_EQ(FailureOf(ValueToCommCode, u"-1E+25", 0), (Failure{6, "1E+25"}));
    EXPECT_EQ(FailureOf(ValueToCommCode, u"1E+10", 1), (Failure{6, "1E+10"}));
    EXPECT_EQ(FailureOf(ValueToCommCode, u"1E+30", 2), (Failure{6, "1E+30"}));
    EXPECT_EQ(FailureOf(ValueToCommCode, u"1E+39", 3), (Failure{6, "1E+39"}));
    // The minus sign is gone already.
    EXPECT_EQ(FailureOf(ValueToCommCode, u"-5.5E+307", 5), (Failure{6, "5.5E+307"}));
    EXPECT_EQ(FailureOf(CommCodeToValue, u"0A00001234", 5), (Failure{13, "0A00001234"}));
    EXPECT_EQ(FailureOf(CommCodeToValue, u"7F800000", 3), (Failure{6, "7F800000"}));
}

TEST(RegisterCodecs, TextThatIsNoNumberRaisesError13OnWriting) {
    for (int format : {0, 1, 2, 3, 5, 6, 7, 12}) {
        for (TextView text : {u"", u"abc", u"1.2.3", u"五"}) {
            EXPECT_EQ(FailureOf(ValueToCommCode, Text(text), format), (Failure{13, ToUtf8(text)})) << format;
        }
    }
}

// --- Format 0 ---

TEST(SignMagnitudeSwappedReading, GoesByTheLengthOfTheCode) {
    EXPECT_EQ(ValueOf(u"C8", 0), "200");
    EXPECT_EQ(ValueOf(u"D204", 0), "1234");
    EXPECT_EQ(ValueOf(u"07C90000", 0), "100.5");
}

TEST(SignMagnitudeSwappedReading, OtherLengthsStayAsTheyAre) {
    for (TextView code : {u"", u"8", u"123", u"12345", u"04A000", u"04A0000", u"04A000000"}) {
        EXPECT_EQ(ValueOf(Text(code), 0), ToUtf8(code));
    }
}

TEST(SignMagnitudeSwappedReading, SignBitAloneReadsAsMinusZero) { EXPECT_EQ(ValueOf(u"0080", 0), "-0"); }

TEST(SignMagnitudeSwappedReading, PairsAreReadOneByOne) {
    EXPECT_EQ(ValueOf(u"FF7F", 0), "32767");
    EXPECT_EQ(ValueOf(u"FFFF", 0), "-32767");
    EXPECT_EQ(ValueOf(u"G101", 0), "256");
}

// --- Formats 6, 9, 12 and the hexadecimal readings ---

TEST(SignMagnitudeReading, TakesThePairsAtOneAndThreeWhateverTheLength) {
    EXPECT_EQ(ValueOf(u"8000", 6), "-0");
    EXPECT_EQ(ValueOf(u"", 6), "0");
    EXPECT_EQ(ValueOf(u"C", 6), "3072");
    EXPECT_EQ(ValueOf(u"FF", 6), "-32512");
    EXPECT_EQ(ValueOf(u"058A0C8C", 6), "1418");
}

TEST(HexadecimalReading, IsTheSameForFormats1And7And9And12) {
    for (int format : {1, 7, 9, 12}) {
        EXPECT_EQ(ValueOf(u"", format), "0");
        EXPECT_EQ(ValueOf(u"FF", format), "255");
        EXPECT_EQ(ValueOf(u"8000", format), "-32768");
        EXPECT_EQ(ValueOf(u"08000", format), "32768");
        EXPECT_EQ(ValueOf(u"12G4", format), "18");
    }
}

// Writes sign and magnitude and reads two's complement.
TEST(UnevenFormat, NegativeValueDoesNotComeBackAsWritten) {
    EXPECT_EQ(CodeOf(u"-1234", 12), "84D2");
    EXPECT_EQ(ValueOf(u"84D2", 12), "-31534");
    EXPECT_EQ(CodeOf(u"1234", 12), "04D2");
    EXPECT_EQ(ValueOf(u"04D2", 12), "1234");
}

// --- Format 8 ---

TEST(AccumulatedReading, IsAHundredTimesTheFirstFloatPlusTheSecond) {
    EXPECT_EQ(ValueOf(u"04A0000007C90000", 8), "1100.5");
    EXPECT_EQ(ValueOf(u"84A0000007C90000", 8), "-899.5");
    EXPECT_EQ(ValueOf(u"0000000000000000", 8), "0");
}

// The float 41999999 is 0.299999982118607; its two readings of 0.29999998 give 30.29999798.
TEST(AccumulatedReading, AddsReadingsThatAreShortenedAlready) {
    EXPECT_EQ(ValueOf(u"4199999941999999", 8), "30.29999798");
}

TEST(AccumulatedReading, MissingCharactersReadAsZero) {
    EXPECT_EQ(ValueOf(u"04A00000", 8), "1000");
    EXPECT_EQ(ValueOf(u"", 8), "0");
}

// 339502F9 is 1.31072E+15; nine characters of it, "1.31072E+", are no number.
TEST(AccumulatedReading, FloatThatLostItsExponentRaisesError13) {
    EXPECT_EQ(ValueOf(u"339502F9", 2), "1.31072E+");
    EXPECT_EQ(FailureOf(CommCodeToValue, u"339502F900000000", 8), (Failure{13, "339502F900000000"}));
}

// --- Format 11 ---

TEST(ReadOnlySingle, ReadsAsFormat3) {
    EXPECT_EQ(ValueOf(u"4048F5C3", 11), "3.14");
    EXPECT_EQ(FailureOf(CommCodeToValue, u"7FC00000", 11), (Failure{6, "7FC00000"}));
}

// --- Without a format number ---

TEST(ConvertCommCodeAuto, ReadsByTheLengthOfTheCode) {
    EXPECT_EQ(AutoValueOf(u"C"), "12");
    EXPECT_EQ(AutoValueOf(u"C8"), "200");
    EXPECT_EQ(AutoValueOf(u"D30"), "211");
    EXPECT_EQ(AutoValueOf(u"D284"), "-1234");
    EXPECT_EQ(AutoValueOf(u"0080"), "-0");
    EXPECT_EQ(AutoValueOf(u"04A00"), "10");
    EXPECT_EQ(AutoValueOf(u"07C900"), "100.5");
    EXPECT_EQ(AutoValueOf(u"04A00000"), "10");
}

TEST(ConvertCommCodeAuto, LeavesAnEmptyCodeAndOneOfMoreThanEightCharacters) {
    EXPECT_EQ(AutoValueOf(u""), "");
    EXPECT_EQ(AutoValueOf(u"04A000000"), "04A000000");
}

TEST(ConvertCommCodeAuto, ShortensToFiveDecimalsAndSixCharacters) {
    EXPECT_EQ(AutoValueOf(u"41999999"), "0.29999");
    EXPECT_EQ(AutoValueOf(u"C1999999"), "-0.3");
    EXPECT_EQ(AutoValueOf(u"0B9A522B"), "1234.5");
    EXPECT_EQ(AutoValueOf(u"50CE0000"), "1E-05");  // 1.22785568237305E-05
}

TEST(ConvertCommCodeAuto, SizeIsNotReadInDirectionMinusOne) {
    for (int size : {0, 1, 2, 4, 8}) EXPECT_EQ(AutoValueOf(u"E1B6", size), "-14049");
}

TEST(ConvertCommCodeAuto, FillsOneByteButDoesNotCutIt) {
    EXPECT_EQ(AutoCodeOf(u"5", 1), "05");
    EXPECT_EQ(AutoCodeOf(u"73.8", 1), "4A");
    EXPECT_EQ(AutoCodeOf(u"100000", 1), "186A0");
    EXPECT_EQ(AutoCodeOf(u"-2", 1), "FFFFFFFE");
}

TEST(ConvertCommCodeAuto, WritesTwoBytesSwapped) {
    EXPECT_EQ(AutoCodeOf(u"1234", 2), "D204");
    EXPECT_EQ(AutoCodeOf(u"-256", 2), "0081");
    EXPECT_EQ(AutoCodeOf(u"100000", 2), "6A18");
}

TEST(ConvertCommCodeAuto, DoesNotCutTheFractionOfANegativeValue) {
    EXPECT_EQ(AutoCodeOf(u"-3.5", 2), "0480");
    EXPECT_EQ(CodeOf(u"-3.5", 0), "0380");
}

TEST(ConvertCommCodeAuto, WritesFourBytesAsTheCustomFloat) {
    EXPECT_EQ(AutoCodeOf(u"-256", 4), "89800000");
    EXPECT_EQ(AutoCodeOf(u"0", 4), "00000000");
    EXPECT_EQ(AutoCodeOf(u"0.25", 4), "421000000");
}

TEST(ConvertCommCodeAuto, OtherSizesAndDirectionsChangeNothing) {
    for (int size : {0, 3, 8}) EXPECT_EQ(AutoCodeOf(u"abc", size), "abc") << size;
    for (int direction : {-2, 1, 2}) {
        Text text = u"12";
        ConvertCommCodeAuto(text, direction, 2);
        EXPECT_EQ(ToUtf8(text), "12") << direction;
    }
}

TEST(ConvertCommCodeAuto, ConversionErrorLeavesTheTextAsItStoodAtThatStep) {
    const auto failureOf = [](Text text, int size) {
        const int number = ErrorOf([&] { ConvertCommCodeAuto(text, 0, size); });
        return Failure{number, ToUtf8(text)};
    };
    EXPECT_EQ(failureOf(u"abc", 1), (Failure{13, "abc"}));
    EXPECT_EQ(failureOf(u"4294967295", 1), (Failure{6, "4294967295"}));
    EXPECT_EQ(failureOf(u"-4294934527", 2), (Failure{6, "4294967295"}));
    EXPECT_EQ(failureOf(u"abc", 4), (Failure{13, "abc"}));
}

}  // namespace
}  // namespace commtest
