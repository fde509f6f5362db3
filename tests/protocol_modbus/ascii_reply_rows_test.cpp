#include "protocol_modbus/ascii_reply_rows.h"

#include <gtest/gtest.h>

#include "protocol_modbus/ascii_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::AsciiTalkBench;
using testing::ErrorOf;
using testing::FrameOf;
using testing::TestParameter;

constexpr int kRow = 6;

struct RowsBench : AsciiTalkBench {
    RowsBench(int code, const std::vector<TestParameter>& parameters) : AsciiTalkBench(code, parameters) {
        Talk().CurrentRow = kRow;
        Talk().CommandCode = 50;
    }
    // Decodes a reply of these data digits; what stands around them does not count here.
    void Decode(const std::string& digits) { Row().decode(Talk(), FrameOf(":010300" + digits + "00\r\n")); }
    // Columns 6 to 9 of a row.
    std::vector<std::string> Cells(int row = kRow) {
        std::vector<std::string> cells;
        for (int col = column::kSingleRead; col <= column::kScaledValue; ++col)
            cells.push_back(Cell(row, col));
        return cells;
    }
};

using Cells = std::vector<std::string>;

std::vector<TestParameter> RowsOf(int count, const Text& length) {
    std::vector<TestParameter> rows;
    for (int i = 0; i < count; ++i) rows.push_back({u"参数", u"0010", length, u"R", u"0"});
    return rows;
}

// --- Code 21 ---

TEST(DecodeAsciiRows, PlainRowShowsAllItsDigits) {
    RowsBench bench(21, {{u"测量值", u"0010", u"2", u"R", u"0"}});
    bench.Decode("0064");
    EXPECT_EQ(bench.Cells(), (Cells{"0064", "0064", "100", "100"}));
    EXPECT_EQ(bench.Talk().CurrentRow, kRow + 1);
}

TEST(DecodeAsciiRows, OfAWritableRowTheLastByteCounts) {
    RowsBench bench(21, {{u"测量值", u"0010", u"2", u"RW", u"0"}});
    bench.Decode("1264");
    EXPECT_EQ(bench.Cells(), (Cells{"1264", "取最后两个字符  64", "100", "100"}));
}

TEST(DecodeAsciiRows, OfARatioTheLowByteOfEachWordCounts) {
    RowsBench bench(21, {{u"电压变比", u"0010", u"4", u"RW", u"0"}});
    bench.Decode("00120034");
    EXPECT_EQ(bench.Cells(), (Cells{"00120034", "取3 4 7 8这4个字符  1234", "4660", "4,660"}));
}

TEST(DecodeAsciiRows, OnlyTheAttributeRWSelectsDigits) {
    for (const char16_t* attribute : {u"R", u"W", u"D", u"S", u"", u"RWS", u"rw"}) {
        RowsBench bench(21, {{u"电压变比", u"0010", u"4", attribute, u"0"}});
        bench.Decode("00120034");
        EXPECT_EQ(bench.Cells(), (Cells{"00120034", "00120034", "1179700", "1,179,700"}));
    }
}

TEST(DecodeAsciiRows, FourDigitsAreSigned) {
    struct Row {
        const char16_t* length;
        const char* digits;
        const char* value;
    };
    const Row rows[] = {{u"2", "FFFF", "-1"},        {u"2", "7FFF", "32767"},   {u"2", "8000", "-32768"},
                        {u"1", "FF", "255"},         {u"3", "00FFFF", "65535"}, {u"4", "FFFFFFFE", "-2"},
                        {u"4", "0000FFFF", "65535"}, {u"2", "00G4", "0"}};
    for (const Row& row : rows) {
        RowsBench bench(21, {{u"测量值", u"0010", row.length, u"R", u"0"}});
        bench.Decode(row.digits);
        EXPECT_EQ(bench.Cell(kRow, column::kValue), row.value) << row.digits;
    }
}

TEST(DecodeAsciiRows, ColumnFiveIsTheNumberOfDecimalsOfWhichThreeAreShown) {
    struct Row {
        const char16_t* decimals;
        const char* digits;
        const char* scaled;
    };
    const Row rows[] = {{u"0", "0064", "100"},     {u"1", "0064", "10.0"},  {u"2", "0032", "0.50"},
                        {u"3", "04D2", "1.234"},   {u"4", "04D2", "0.123"}, {u"9", "7FFF", "0.000"},
                        {u"1.9", "0064", "10.0"},  {u"2", "FFCE", "-0.50"}, {u"1", "7FFF", "3,276.7"},
                        {u"0.5", "7FFF", "32,767"}};
    for (const Row& row : rows) {
        RowsBench bench(21, {{u"测量值", u"0010", u"2", u"R", row.decimals}});
        bench.Decode(row.digits);
        EXPECT_EQ(bench.Cell(kRow, column::kScaledValue), row.scaled) << row.digits;
    }
}

TEST(DecodeAsciiRows, EmptyDataEmptyTheRowAndStepOn) {
    RowsBench bench(21, {{u"测量值", u"0010", u"2", u"R", u"2"}, {u"上限", u"0011", u"2", u"RW", u"0"}});
    bench.SetCell(kRow, column::kSingleRead, u"0064");
    DecodeAsciiRows(bench.Talk(), FrameOf(":0182027B\r\n"));
    EXPECT_EQ(bench.Cells(), (Cells{"", "", "0", "0.00"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 7);
    DecodeAsciiRows(bench.Talk(), FrameOf(":0182027B\r\n"));
    EXPECT_EQ(bench.Cells(7), (Cells{"", "取最后两个字符  ", "0", "0"}));
}

TEST(DecodeAsciiRows, WalkEndsAtTheFirstRowThatLeavesNineDigitsOrFewer) {
    struct Row {
        const char* digits;
        int rows;
    };
    const Row rows[] = {{"0001", 1},
                        {"00010002", 1},
                        {"000100020003", 1},
                        {"0001000200034", 1},     // 9 left
                        {"00010002000345", 2},    // 10, then 6
                        {"0001000200030004", 2},  // 12, then 8
                        {"00010002000300040005", 3}};
    for (const Row& row : rows) {
        RowsBench bench(21, RowsOf(6, u"2"));
        bench.Decode(row.digits);
        EXPECT_EQ(bench.Talk().CurrentRow, kRow + row.rows) << row.digits;
        EXPECT_EQ(bench.Cell(kRow + row.rows - 1, column::kValue), std::to_string(row.rows));
        EXPECT_EQ(bench.Cell(kRow + row.rows, column::kValue), "");
    }
}

TEST(DecodeAsciiRows, DataBeyondTheLastRowLeaveTheCurrentRow) {
    RowsBench bench(21, RowsOf(10, u"2"));
    bench.Talk().CurrentRow = static_cast<std::int16_t>(bench.Rows().Rows() - 1);
    const std::int16_t last = bench.Talk().CurrentRow;
    bench.Decode("0001000200030004");
    EXPECT_EQ(bench.Cell(last, column::kValue), "1");
    EXPECT_EQ(bench.Talk().CurrentRow, last);
}

TEST(DecodeAsciiRows, WalkBeginsAtTheCurrentRowWhereverItStands) {
    RowsBench bench(21, RowsOf(3, u"2"));
    bench.Talk().CurrentRow = 3;
    bench.SetCell(3, column::kLength, u"2");
    bench.Decode("0064");
    EXPECT_EQ(bench.Cell(3, column::kValue), "100");
    EXPECT_EQ(bench.Talk().CurrentRow, 4);
}

TEST(DecodeAsciiRows, RowWithoutALengthEndsTheWalkWithError13) {
    RowsBench bench(21, RowsOf(3, u"2"));
    bench.SetCell(7, column::kLength, u"");
    EXPECT_EQ(ErrorOf([&] { bench.Decode("0001000200030004"); }), 13);
    EXPECT_EQ(bench.Cell(6, column::kValue), "1");
    EXPECT_EQ(bench.Talk().CurrentRow, kRow);
}

TEST(DecodeAsciiRows, DecimalsThatAreNoNumberEndTheWalkBehindTheValue) {
    RowsBench bench(21, {{u"测量值", u"0010", u"2", u"R", u""}});
    EXPECT_EQ(ErrorOf([&] { bench.Decode("0064"); }), 13);
    EXPECT_EQ(bench.Cells(), (Cells{"0064", "0064", "100", ""}));
    EXPECT_EQ(bench.Talk().CurrentRow, kRow);
}

TEST(DecodeAsciiRows, NegativeDecimalsRaiseError5) {
    RowsBench bench(21, {{u"测量值", u"0010", u"2", u"R", u"-1"}});
    EXPECT_EQ(ErrorOf([&] { bench.Decode("0064"); }), 5);
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100");
    EXPECT_EQ(bench.Cell(kRow, column::kScaledValue), "");
}

TEST(DecodeAsciiRows, ReplyWithoutRoomForDataRaisesError5) {
    for (const int code : {21, 22}) {
        RowsBench bench(code, RowsOf(3, u"2"));
        bench.SetCell(kRow, column::kSingleRead, u"0064");
        const auto decode = code == 21 ? DecodeAsciiRows : DecodeAsciiRowsTwo;
        EXPECT_EQ(ErrorOf([&] { decode(bench.Talk(), FrameOf(":01039\r\n")); }), 5);
        EXPECT_EQ(bench.Cell(kRow, column::kSingleRead), "0064");
    }
}

// --- Code 22 ---

TEST(DecodeAsciiRowsTwo, SecondDigitHoldsSignAndDecimals) {
    struct Row {
        const char* digits;
        const char* value;
        const char* scaled;
    };
    const Row rows[] = {
        {"02001234", "1234", "12.34"},     {"0A001234", "1234", "-12.34"},   {"00001234", "1234", "1234"},
        {"08001234", "1234", "-1234"},     {"01000005", "5", "0.5"},         {"07000005", "5", "0.0000005"},
        {"0F000005", "5", "-0.0000005"},   {"09000000", "0", "-0.0"},        {"F2001234", "1234", "12.34"},
        {"02123456", "123456", "1234.56"}, {"00999999", "999999", "999999"}, {"0G001234", "1234", "1234"}};
    for (const Row& row : rows) {
        RowsBench bench(22, {{u"电压", u"0010", u"4", u"R", u"3"}});
        bench.Decode(row.digits);
        EXPECT_EQ(bench.Cells(), (Cells{row.digits, row.digits, row.value, row.scaled}));
        EXPECT_EQ(bench.Talk().CurrentRow, kRow + 1);
    }
}

TEST(DecodeAsciiRowsTwo, LengthOfFiveHoldsEightDecimalDigits) {
    RowsBench bench(22, {{u"电压", u"0010", u"5", u"R", u"0"}});
    bench.Decode("0200075973");
    EXPECT_EQ(bench.Cells(), (Cells{"0200075973", "0200075973", "75973", "759.73"}));
}

// Column 5 is not looked at.
TEST(DecodeAsciiRowsTwo, ColumnFiveMayBeAnything) {
    RowsBench bench(22, {{u"电压", u"0010", u"4", u"R", u"x"}});
    bench.Decode("02001234");
    EXPECT_EQ(bench.Cell(kRow, column::kScaledValue), "12.34");
}

TEST(DecodeAsciiRowsTwo, HexadecimalDigitsOfExponentFormAreANumber) {
    RowsBench bench(22, {{u"电压", u"0010", u"4", u"R", u"0"}});
    bench.Decode("00001E05");
    EXPECT_EQ(bench.Cell(kRow, column::kValue), "100000");
}

TEST(DecodeAsciiRowsTwo, DigitsThatAreNoDecimalNumberRaiseError13) {
    for (const char* digits : {"02001A34", "02", "0"}) {
        RowsBench bench(22, {{u"电压", u"0010", u"4", u"R", u"0"}});
        EXPECT_EQ(ErrorOf([&] { bench.Decode(digits); }), 13) << digits;
        EXPECT_EQ(bench.Cells(), (Cells{digits, digits, "", ""}));
        EXPECT_EQ(bench.Talk().CurrentRow, kRow);
    }
}

TEST(DecodeAsciiRowsTwo, WritableRowHasNoDigitsLeftToRead) {
    RowsBench bench(22, {{u"上限", u"0010", u"4", u"RW", u"0"}});
    EXPECT_EQ(ErrorOf([&] { bench.Decode("02001234"); }), 13);
    EXPECT_EQ(bench.Cells(), (Cells{"02001234", "取最后两个字符  34", "", ""}));
}

TEST(DecodeAsciiRowsTwo, RatioIsReadFromItsFourCharacters) {
    RowsBench bench(22, {{u"电流变比", u"0010", u"4", u"RW", u"0"}});
    bench.Decode("00010034");  // "0134": one decimal, 34
    EXPECT_EQ(bench.Cells(), (Cells{"00010034", "取3 4 7 8这4个字符  0134", "34", "3.4"}));
}

TEST(DecodeAsciiRowsTwo, ExceptionEndsInError13) {
    RowsBench bench(22, {{u"电压", u"0010", u"4", u"R", u"0"}});
    bench.SetCell(kRow, column::kValue, u"7");
    EXPECT_EQ(ErrorOf([&] { DecodeAsciiRowsTwo(bench.Talk(), FrameOf(":018202CD\r\n")); }), 13);
    EXPECT_EQ(bench.Cells(), (Cells{"", "", "7", ""}));
    EXPECT_EQ(bench.Talk().CurrentRow, kRow);
}

TEST(DecodeAsciiRowsTwo, WalkEndsAtTheFirstRowThatLeavesFourDigitsOrFewer) {
    struct Row {
        const char* digits;
        int rows;
    };
    const Row rows[] = {{"02000001", 1},
                        {"020000010200", 1},   // 4 left
                        {"0200000100002", 2},  // 5, which are the second row
                        {"0200000100000002", 2},
                        {"020000010000000200000003", 3}};
    for (const Row& row : rows) {
        RowsBench bench(22, RowsOf(5, u"4"));
        bench.Decode(row.digits);
        EXPECT_EQ(bench.Talk().CurrentRow, kRow + row.rows) << row.digits;
        EXPECT_EQ(bench.Cell(kRow + row.rows - 1, column::kValue), std::to_string(row.rows));
        EXPECT_EQ(bench.Cell(kRow + row.rows, column::kValue), "");
    }
}

// --- The window on the rows ---

TEST(DecodeAsciiRows, RowsComeIntoViewUnlessSeveralAreRead) {
    for (const int code : {21, 22}) {
        for (const std::int32_t commandCode : {50, 60}) {
            RowsBench bench(code, RowsOf(40, u"4"));
            bench.Talk().CommandCode = commandCode;
            bench.Talk().CurrentRow = 40;
            bench.Rows().TopRow = 1;
            bench.Decode("00000001");
            EXPECT_EQ(bench.Rows().TopRow == 1, commandCode == 60) << code;
        }
    }
}

}  // namespace
}  // namespace commtest
