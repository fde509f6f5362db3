#include "protocol_modbus/rtu_reply_rows.h"

#include <gtest/gtest.h>

#include "protocol_modbus/rtu_talk_bench.h"
#include "protocol_modbus/rtu_value.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::RtuTalkBench;

using Cells = std::vector<std::string>;

const HexText kTwelveBytes = u" 11 22 33 44 55 66 77 88 99 AA BB CC";

HexText BytesOf(int count) { return kTwelveBytes.substr(0, static_cast<std::size_t>(count) * 3); }

// Format 10 leaves a code as it is, so that the value columns show what was cut out.
struct RowsBench : RtuTalkBench {
    explicit RowsBench(const Text& format = u"10") : RtuTalkBench(31) {
        SetFormat(format);
        Talk().CommandCode = 50;
    }
    // The walk over data whose check bytes have been found good: any two here.
    void Walk(const HexText& data, const Text& front = u" 01 03 00") {
        DecodeRtuRows(Talk(), front + data + u" 5A A5");
    }
    Cells Column(int col, int count) {
        Cells cells;
        for (int row = kFirstRow; row < kFirstRow + count; ++row) cells.push_back(Cell(row, col));
        return cells;
    }
    // Raw text of single reads, of group reads, value, value with decimals.
    Cells Reading(int row) {
        return {Cell(row, column::kSingleRead), Cell(row, column::kGroupRead), Cell(row, column::kValue),
                Cell(row, column::kScaledValue)};
    }
};

const Cells kUntouched(4);

// --- What a row takes ---

struct Cut {
    const char16_t* instrument;
    const char16_t* format;
    std::vector<Text> lengths;    // from row 6, in turn; all other rows have the last one
    std::vector<Text> addresses;  // from row 6; all other rows have 0020
    int bytes;
    Cells raw;  // from row 6, the row behind stays empty
    int currentRow;
};

void ExpectCuts(const std::vector<Cut>& cuts) {
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        SCOPED_TRACE(i);
        const Cut& cut = cuts[i];
        RowsBench bench(cut.format);
        bench.SetName(cut.instrument);
        bench.SetColumn(column::kLength, std::vector<Text>(9, cut.lengths.back()));
        bench.SetColumn(column::kLength, cut.lengths);
        bench.SetColumn(column::kAddress, std::vector<Text>(9, u"0020"));
        bench.SetColumn(column::kAddress, cut.addresses);
        bench.Walk(BytesOf(cut.bytes));
        const auto filled = static_cast<int>(cut.raw.size());
        EXPECT_EQ(bench.Column(column::kSingleRead, filled), cut.raw);
        EXPECT_EQ(bench.Talk().CurrentRow, cut.currentRow);
        if (filled < 9) {
            EXPECT_EQ(bench.Cell(RtuTalkBench::kFirstRow + filled, column::kSingleRead), "");
        }
    }
}

TEST(RtuRows, OneByteTheWalkEndsWithFewerThanThreeLeft) {
    ExpectCuts({{u"仪表", u"10", {u"1"}, {}, 1, {"11"}, 7},
                {u"仪表", u"10", {u"1"}, {}, 2, {"11"}, 7},
                {u"仪表", u"10", {u"1"}, {}, 3, {"11"}, 7},
                {u"仪表", u"10", {u"1"}, {}, 4, {"11", "22"}, 8},
                {u"流量计", u"10", {u"1"}, {}, 4, {"11", "22"}, 8},
                {u"仪表", u"11", {u"1"}, {}, 3, {"11"}, 7}});
}

// The last register of a read of several rows is never shown: n registers fill n - 1 rows.
TEST(RtuRows, TwoBytesTheLastRegisterOfSeveralIsLeftOut) {
    ExpectCuts({{u"仪表", u"10", {u"2"}, {}, 2, {"1122"}, 7},
                {u"仪表", u"10", {u"2"}, {}, 4, {"1122"}, 7},
                {u"仪表", u"10", {u"2"}, {}, 6, {"1122", "3344"}, 8},
                {u"仪表", u"10", {u"2"}, {}, 8, {"1122", "3344", "5566"}, 9},
                {u"仪表", u"10", {u"2"}, {}, 1, {"11"}, 7},
                {u"流量计", u"12", {u"2"}, {}, 6, {"1122", "3344"}, 8}});
}

TEST(RtuRows, FourBytesOfALoneRegisterAreTwo) {
    ExpectCuts({{u"仪表", u"10", {u"4"}, {}, 2, {"1122"}, 7},
                {u"仪表", u"11", {u"4"}, {}, 2, {"1122"}, 7},
                {u"仪表", u"11", {u"4"}, {}, 3, {"331122"}, 7}});
}

TEST(RtuRows, FourBytes) {
    ExpectCuts({{u"仪表", u"10", {u"4"}, {}, 4, {"11223344"}, 7},
                {u"仪表", u"10", {u"4"}, {}, 6, {"11223344"}, 7},
                {u"仪表", u"10", {u"4"}, {}, 7, {"11223344", "556677"}, 8},
                {u"仪表", u"10", {u"4"}, {}, 8, {"11223344", "55667788"}, 8},
                {u"仪表", u"11", {u"4"}, {}, 8, {"33441122", "77885566"}, 8},
                {u"仪表", u"11", {u"4"}, {u"0000"}, 4, {"33441122"}, 7}});
}

// A row of eight takes eight bytes out of the data and only four away from them.
TEST(RtuRows, Format12ReadsEightBytesExceptAtAddress0) {
    ExpectCuts({{u"仪表", u"12", {u"4"}, {}, 8, {"1122334455667788", "55667788"}, 8},
                {u"仪表", u"12", {u"4"}, {}, 12, {"1122334455667788", "5566778899AABBCC", "99AABBCC"}, 9},
                {u"仪表", u"12", {u"4"}, {u"0000"}, 4, {"11223344"}, 7},
                {u"仪表", u"12", {u"4"}, {u"0000"}, 8, {"11223344", "55667788"}, 8},
                {u"仪表", u"12", {u"4"}, {u"000"}, 4, {"11223344"}, 7},
                {u"仪表", u"12", {u"4"}, {u"000"}, 5, {"1122334455"}, 7}});
}

TEST(RtuRows, FiveTakesTenBytesAndEndsTheWalk) {
    ExpectCuts({{u"仪表", u"10", {u"5"}, {}, 10, {"112233445566778899AA"}, 7},
                {u"仪表", u"10", {u"5"}, {}, 12, {"112233445566778899AA"}, 7},
                {u"仪表", u"12", {u"5"}, {}, 12, {"112233445566778899AA"}, 7},
                {u"仪表", u"10", {u"5"}, {}, 4, {"11223344"}, 7},
                {u"仪表", u"11", {u"5"}, {}, 10, {"33441122"}, 7}});
}

TEST(RtuRows, RowsOfAFlowMeterAreAllFilledFromTheOneReply) {
    const Cells nineOfFour(9, "11223344");
    const Cells nineOfTen(9, "112233445566778899AA");
    Cells behindTheFirst(9, "55667788");
    behindTheFirst[0] = "11223344";
    ExpectCuts({{u"涡街流量计", u"10", {u"4"}, {}, 4, nineOfFour, 6},
                {u"流量计", u"11", {u"4"}, {}, 4, Cells(9, "33441122"), 6},
                {u"流量计", u"12", {u"4"}, {}, 8, Cells(9, "1122334455667788"), 6},
                {u"流量计", u"10", {u"5"}, {}, 10, nineOfTen, 6},
                {u"流量计", u"11", {u"5"}, {}, 10, Cells(9, "33441122"), 6},
                {u"流量计", u"10", {u"4"}, {u"0000"}, 8, behindTheFirst, 6},
                {u"流量计", u"10", {u"4"}, {u"0000"}, 4, {"11223344"}, 7},
                {u"流量计", u"10", {u"4"}, {}, 2, {"1122"}, 7},
                {u"流量计", u"10", {u"5"}, {u"0000"}, 2, {"1122"}, 7},
                {u"流量计", u"10", {u"4", u"2"}, {}, 6, {"11223344", "1122", "3344"}, 9},
                {u"流量", u"10", {u"4"}, {}, 4, {"11223344"}, 7}});
}

TEST(RtuRows, OtherLengthsTakeNothing) {
    for (const char16_t* length : {u"0", u"3", u"", u"8", u"44", u" 2"}) {
        RowsBench bench;
        bench.SetCell(6, column::kLength, length);
        bench.SetCell(6, column::kSingleRead, u"00C8");
        bench.Walk(BytesOf(2));
        EXPECT_EQ(bench.Reading(6), (Cells{"00C8", "", "00C8", "00C8"})) << ToUtf8(length) << "what it held";
        EXPECT_EQ(bench.Talk().CurrentRow, 7) << "too little is left all the same";
        bench.Talk().CurrentRow = 6;
        bench.Walk(BytesOf(4));
        EXPECT_EQ(bench.Reading(6), (Cells{"00C8", "", "00C8", "00C8"}));
        EXPECT_EQ(bench.Reading(7), (Cells{"1122", "", "1122", "1122"}));
        EXPECT_EQ(bench.Talk().CurrentRow, 8);
    }
}

// --- Where the walk begins and ends ---

TEST(RtuRows, WalkBeginsAtCurrentRowButNotAboveRow6) {
    struct Row {
        std::int16_t before;
        int row;
    };
    for (const Row& row : {Row{-1, 6}, Row{0, 6}, Row{5, 6}, Row{6, 6}, Row{9, 9}, Row{14, 14}}) {
        RowsBench bench;
        bench.Talk().CurrentRow = row.before;
        bench.Walk(BytesOf(2));
        EXPECT_EQ(bench.Reading(row.row), (Cells{"1122", "", "1122", "1122"})) << row.before;
        EXPECT_EQ(bench.Talk().CurrentRow, row.row + 1) << row.before;
    }
}

TEST(RtuRows, GridThatEndsFirstLeavesCurrentRow) {
    RowsBench bench;
    bench.Talk().CurrentRow = 13;
    bench.Walk(BytesOf(12));
    EXPECT_EQ(bench.Cell(13, column::kSingleRead), "1122");
    EXPECT_EQ(bench.Cell(14, column::kSingleRead), "3344");
    EXPECT_EQ(bench.Talk().CurrentRow, 13);
}

TEST(RtuRows, WalkFromBehindTheGridFillsNothing) {
    RowsBench bench;
    bench.Talk().CurrentRow = 15;
    bench.Walk(BytesOf(2));
    EXPECT_EQ(bench.Column(column::kSingleRead, 9), Cells(9));
    EXPECT_EQ(bench.Talk().CurrentRow, 15);
}

TEST(RtuRows, ReplyWithoutDataTouchesNothing) {
    for (const char16_t* reply : {u"", u" 01", u" 01 83 02", u" 01 83 02 C0", u" 01 83 02 C0 F1"}) {
        RowsBench bench;
        bench.Talk().CurrentRow = 2;
        DecodeRtuRows(bench.Talk(), reply);
        EXPECT_EQ(bench.Reading(6), kUntouched) << ToUtf8(reply);
        EXPECT_EQ(bench.Talk().CurrentRow, 2) << ToUtf8(reply);
    }
}

TEST(RtuRows, EverythingBehindTheThirdByteIsData) {
    RowsBench bench;
    bench.Walk(u" 10 03 E8", u" 01 06 00");
    EXPECT_EQ(bench.Reading(6), (Cells{"1003", "", "1003", "1003"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 7);
}

TEST(RtuRows, GroupReadGoesIntoItsOwnColumnAndScrollsNothing) {
    struct Row {
        std::int32_t commandCode;
        Cells reading;
        int topRow;
    };
    for (const Row& row :
         {Row{60, {"old", "1122", "1122", "1122"}, 1}, Row{50, {"1122", "old", "1122", "1122"}, 26},
          Row{160, {"1122", "old", "1122", "1122"}, 26}, Row{1060, {"1122", "old", "1122", "1122"}, 26}}) {
        RowsBench bench;
        bench.Rows().SetRows(40);
        bench.Talk().CurrentRow = 30;
        bench.SetCell(30, column::kLength, u"2");
        bench.SetCell(30, column::kDecimals, u"0");
        bench.SetCell(30, column::kSingleRead, u"old");
        bench.SetCell(30, column::kGroupRead, u"old");
        bench.Talk().CommandCode = row.commandCode;
        bench.Walk(BytesOf(2));
        EXPECT_EQ(bench.Reading(30), row.reading) << row.commandCode;
        EXPECT_EQ(bench.Rows().TopRow, row.topRow) << row.commandCode;
        EXPECT_EQ(bench.Talk().CurrentRow, 31);
    }
}

TEST(RtuRows, LengthThatTakesNothingInAGroupReadDecodesWhatItsColumnHeld) {
    RowsBench bench;
    bench.Talk().CommandCode = 60;
    bench.SetCell(6, column::kLength, u"0");
    bench.SetCell(6, column::kGroupRead, u"00C8");
    bench.Walk(BytesOf(2));
    EXPECT_EQ(bench.Reading(6), (Cells{"", "00C8", "00C8", "00C8"}));
}

// --- Values ---

TEST(RtuRows, FormatOfTheInstrumentDecodesEveryLength) {
    struct Row {
        const char16_t* format;
        const char16_t* length;
        const char16_t* data;
        Cells reading;
    };
    const Row rows[] = {{u"01", u"2", u" 00 64", {"0064", "", "100", "100"}},
                        {u"01", u"2", u" FF 9C", {"FF9C", "", "-100", "-100"}},
                        {u"07", u"1", u" 64", {"64", "", "100", "100"}},
                        {u"03", u"4", u" 42 C8 00 00", {"42C80000", "", "100", "100"}},
                        {u"11", u"4", u" 00 00 42 C8", {"42C80000", "", "100", "100"}},
                        {u"03", u"4", u" 42 C8", {"42C8", "", "100", "100"}}};  // missing pairs read as 00
    for (const Row& row : rows) {
        RowsBench bench(row.format);
        bench.SetCell(6, column::kLength, row.length);
        bench.Walk(row.data);
        EXPECT_EQ(bench.Reading(6), row.reading) << ToUtf8(row.format) << ToUtf8(row.data);
    }
}

TEST(RtuRows, EveryFourByteValueOfAPhaseInstrumentReadsTheConstant) {
    struct Row {
        const char16_t* instrument;
        const char16_t* format;
        const char16_t* data;
        Cells reading;
    };
    const Row rows[] = {{u"三相电量表", u"03", u" 42 C8 00 00", {"42C80000", "", "49.5", "49.5"}},
                        {u"相", u"01", u" 00 00 00 64", {"00000064", "", "49.5", "49.5"}},
                        {u"三相电量表", u"01", u" 00 64", {"0064", "", "100", "100"}},
                        {u"三相电量表", u"03", u" 42 C8 00", {"42C800", "", "100", "100"}},
                        {u"电量表", u"03", u" 42 C8 00 00", {"42C80000", "", "100", "100"}}};
    for (const Row& row : rows) {
        RowsBench bench(row.format);
        bench.SetName(row.instrument);
        bench.SetCell(6, column::kLength, u"4");
        bench.Walk(row.data);
        EXPECT_EQ(bench.Reading(6), row.reading) << ToUtf8(row.instrument) << ToUtf8(row.data);
    }
}

TEST(RtuRows, FaceThatDoesNotHeedTheNameDecodesAPhaseInstrumentLikeAnyOther) {
    RowsBench bench(u"03");
    bench.Talk().switches.instrumentTypeHandling = false;
    bench.SetName(u"三相电量表");
    bench.SetCell(6, column::kLength, u"4");
    bench.Walk(u" 42 C8 00 00");
    EXPECT_EQ(bench.Reading(6), (Cells{"42C80000", "", "100", "100"}));
}

TEST(RtuRows, FaceThatDoesNotHeedTheNameSharesAReplyOutOverTheRowsOfAFlowMeter) {
    for (const Text length : {u"4", u"5"}) {
        RowsBench bench;
        bench.Talk().switches.instrumentTypeHandling = false;
        bench.SetName(u"涡街流量计");
        bench.SetColumn(column::kLength, std::vector<Text>(9, length));
        bench.Walk(BytesOf(8));
        const bool isFour = length == u"4";
        EXPECT_EQ(bench.Column(column::kSingleRead, 3),
                  (isFour ? Cells{"11223344", "55667788", ""} : Cells{"1122334455667788", "", ""}));
        EXPECT_EQ(bench.Talk().CurrentRow, isFour ? 8 : 7);
    }
}

TEST(RtuRows, DecimalsScaleOnlyTheLastColumn) {
    RowsBench bench(u"01");
    bench.SetCell(14, column::kValue, u"2");
    bench.SetCell(6, column::kDecimals, u"0018");
    bench.Walk(u" 04 D2");
    EXPECT_EQ(bench.Reading(6), (Cells{"04D2", "", "1234", "12.34"}));
}

// The commands' address is 0000, which "00" means and "0" does not.
TEST(RtuRows, DecimalsOfZeroLeaveTheValue) {
    RowsBench bench(u"01");
    bench.SetCell(1, column::kValue, u"2");
    bench.Walk(u" 04 D2");
    EXPECT_EQ(bench.Cell(6, column::kScaledValue), "1234");
    bench.SetCell(7, column::kDecimals, u"00");
    bench.Walk(u" 04 D2");
    EXPECT_EQ(bench.Cell(7, column::kScaledValue), "12.34");
}

TEST(RtuRows, ValueThatCannotBeDecodedEndsTheWalkAtItsRow) {
    RowsBench bench;
    bench.Talk().MeterCodeText = u"31";
    bench.Talk().CurrentRow = 2;
    EXPECT_EQ(ErrorOf([&] { bench.Walk(BytesOf(6)); }), 13);
    EXPECT_EQ(bench.Reading(6), (Cells{"1122", "", "", ""}));
    EXPECT_EQ(bench.Reading(7), kUntouched);
    EXPECT_EQ(bench.Talk().CurrentRow, 6);
}

TEST(RtuValue, EncodesInTheFormatOfTheInstrument) {
    struct Row {
        const char16_t* format;
        const char* code;
    };
    for (const Row& row : {Row{u"01", "0064"}, Row{u"03", "42C80000"}, Row{u"07", "64"}, Row{u"10", "100"}}) {
        RowsBench bench(row.format);
        bench.SetName(u"三相电量表");
        Text value = u"100";
        EncodeRtuValue(bench.Talk(), value);
        EXPECT_EQ(ToUtf8(value), row.code);
    }
}

}  // namespace
}  // namespace commtest
