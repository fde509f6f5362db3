#include "protocol_native/reply_rows.h"

#include <gtest/gtest.h>

#include "protocol_native/native_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::FrameOf;
using testing::NativeTalkBench;

// Rows 6 and 7 are dynamic, rows 8 to 14 static; row 14 is the last of the grid.
struct RowsBench : NativeTalkBench {
    explicit RowsBench(int code = 11)
        : NativeTalkBench(code, {{u"测量值", u"0010", u"2", u"D", u"0"},
                                 {u"流量", u"0012", u"4", u"D", u"0"},
                                 {u"上限", u"0020", u"2", u"RW", u"0"},
                                 {u"下限", u"0022", u"2", u"RW", u"0"},
                                 {u"方式", u"0024", u"1", u"RW", u"0"},
                                 {u"系数", u"0025", u"4", u"RW", u"0"},
                                 {u"累积", u"0029", u"8", u"RW", u"0"},
                                 {u"日期", u"0031", u"3", u"RW", u"0"},
                                 {u"版本", u"0034", u"1", u"RW", u"0"}}) {
        Talk().SendText = FrameOf("@01RR01\r");
    }

    // The walk over a reply whose check word has been found good: any two characters here.
    void Walk(const std::string& upToData) { DecodeTqReplyRows(Talk(), FrameOf(upToData + "..\r")); }
    std::vector<std::string> Columns(int row, int first, int last) {
        std::vector<std::string> cells;
        for (int col = first; col <= last; ++col) cells.push_back(Cell(row, col));
        return cells;
    }
    // Raw text of RE, raw text of RR and RD, value, value with decimals.
    std::vector<std::string> Reading(int row) {
        return Columns(row, column::kSingleRead, column::kScaledValue);
    }
};

using Cells = std::vector<std::string>;
const Cells kUntouched(4);

// --- Where the walk begins ---

TEST(NativeRows, ReplyWordChoosesColumnAndFirstRow) {
    struct Row {
        const char* reply;
        int row;
        int column;
        int nextRow;
    };
    const Row rows[] = {{"@01RRC800", 8, column::kGroupRead, 9},
                        {"@01RDC800", 6, column::kGroupRead, 7},
                        {"@01REC800", 9, column::kSingleRead, 10},
                        {"@01##C800", 9, column::kNumber, 10},
                        {"@01rrC800", 9, column::kNumber, 10}};
    for (const Row& row : rows) {
        RowsBench bench;
        bench.Talk().CurrentRow = 9;
        bench.Walk(row.reply);
        EXPECT_EQ(bench.Cell(row.row, row.column), "C800") << row.reply;
        EXPECT_EQ(bench.Cell(row.row, column::kValue), "200") << row.reply;
        EXPECT_EQ(bench.Talk().CurrentRow, row.nextRow) << row.reply;
    }
}

TEST(NativeRows, DynamicDataStartAtRow6ForEveryPart) {
    RowsBench bench;
    bench.Talk().SendText = u" 0A";
    bench.Talk().CurrentRow = 7;
    bench.Walk("@01RDC800");
    EXPECT_EQ(bench.Reading(6), (Cells{"", "C800", "200", "200"}));
    EXPECT_EQ(bench.Reading(7), kUntouched);
}

TEST(NativeRows, StaticDataBehindAContinueByteGoOnAtCurrentRow) {
    RowsBench bench;
    bench.Talk().SendText = u" 0A";
    bench.Talk().CurrentRow = 9;
    bench.Walk("@01RRC800");
    EXPECT_EQ(bench.Reading(8), kUntouched);
    EXPECT_EQ(bench.Reading(9), (Cells{"", "C800", "200", "200"}));
}

TEST(NativeRows, FirstRepliesAreKeptAsSamples) {
    RowsBench bench;
    bench.Walk("@01RRC800");
    bench.Walk("@01RDC800");
    bench.Walk("@01REC800");
    bench.Walk("@01RR2C01");
    bench.Walk("@01RD2C01");
    EXPECT_EQ(testing::CharactersOf(bench.Talk().StaticSample), "@01RRC800..\r");
    EXPECT_EQ(testing::CharactersOf(bench.Talk().DynamicSample), "@01RDC800..\r");
}

// --- What a row takes ---

TEST(NativeRows, LengthColumnChoosesShareAndFormat) {
    struct Row {
        int row;
        const char* data;
        const char* value;
    };
    const Row rows[] = {{8, "D284", "-1234"},
                        {8, "0080", "-0"},
                        {10, "C8", "200"},
                        {11, "07C90000", "100.5"},
                        {12, "04A0000007C90000", "1100.5"},
                        {13, "C80012", "C80012"}};
    for (const Row& row : rows) {
        RowsBench bench;
        bench.Talk().CurrentRow = static_cast<std::int16_t>(row.row);
        bench.Walk(std::string("@01RE") + row.data);
        EXPECT_EQ(bench.Reading(row.row), (Cells{row.data, "", row.value, row.value}));
        EXPECT_EQ(bench.Talk().CurrentRow, row.row + 1);
    }
}

TEST(NativeRows, StaticReplyFillsRowAfterRow) {
    RowsBench bench;
    bench.Walk("@01RRD2042E010A04A0000004A0000007C90000C80012FF");
    EXPECT_EQ(bench.Reading(8), (Cells{"", "D204", "1234", "1234"}));
    EXPECT_EQ(bench.Reading(9), (Cells{"", "2E01", "302", "302"}));
    EXPECT_EQ(bench.Reading(10), (Cells{"", "0A", "10", "10"}));
    EXPECT_EQ(bench.Reading(11), (Cells{"", "04A00000", "10", "10"}));
    EXPECT_EQ(bench.Reading(12), (Cells{"", "04A0000007C90000", "1100.5", "1100.5"}));
    EXPECT_EQ(bench.Reading(13), (Cells{"", "C80012", "C80012", "C80012"}));
    EXPECT_EQ(bench.Reading(14), (Cells{"", "FF", "255", "255"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 15);
}

TEST(NativeRows, DecimalsScaleOnlyTheShownValue) {
    RowsBench bench;
    bench.SetCell(8, column::kDecimals, u"2");
    bench.Walk("@01RRD204");
    EXPECT_EQ(bench.Reading(8), (Cells{"", "D204", "1234", "12.34"}));
}

TEST(NativeRows, DecimalsOfZeroLeaveTheValueAsDecoded) {
    RowsBench bench;
    bench.Walk("@01RR0080");
    EXPECT_EQ(bench.Reading(8), (Cells{"", "0080", "-0", "-0"}));
    bench.SetCell(8, column::kDecimals, u"");  // not "0": the direct path with no decimals
    bench.Walk("@01RR0080");
    EXPECT_EQ(bench.Reading(8), (Cells{"", "0080", "-0", "0"}));
}

TEST(NativeRows, DecimalsReadInTheSameReplyCountForTheRowsBehind) {
    RowsBench bench;
    bench.SetCell(10, column::kName, u"小数点");
    bench.SetCell(9, column::kDecimals, u"0024");
    bench.SetCell(11, column::kDecimals, u"0024");
    bench.Walk("@01RRC800D2040104A00000");
    EXPECT_EQ(bench.Cell(9, column::kScaledValue), "1234") << "36 decimals: the reference is still empty";
    EXPECT_EQ(bench.Cell(11, column::kScaledValue), "1.0");
}

TEST(NativeRows, DataShorterThanTheRowGiveWhatIsLeft) {
    RowsBench bench;
    bench.Walk("@01RRD2");
    EXPECT_EQ(bench.Reading(8), (Cells{"", "D2", "210", "210"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 9);
    bench.Walk("@01RRD2042E0");
    EXPECT_EQ(bench.Reading(9), (Cells{"", "2E0", "2E0", "2E0"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 10);
}

TEST(NativeRows, DataBeyondTheLastRowAreDropped) {
    RowsBench bench;
    bench.Talk().CurrentRow = 13;
    bench.Walk("@01REC8001205FFFFFFFF");
    EXPECT_EQ(bench.Reading(14), (Cells{"05", "", "5", "5"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 15) << "one past the last";
    bench.Poll(50);
    EXPECT_EQ(bench.Talk().CurrentRow, 8) << "the next single read wraps";
}

TEST(NativeRows, CurrentRowBeyondTheGridTakesNothing) {
    RowsBench bench;
    bench.Talk().CurrentRow = 15;
    bench.Walk("@01REC800");
    EXPECT_EQ(bench.Talk().CurrentRow, 15);
    EXPECT_TRUE(bench.Rows().Redraw);
}

TEST(NativeRows, LengthCountsCharactersDecimally) {
    RowsBench bench;
    bench.SetCell(8, column::kLength, u"10");
    bench.Walk("@01RR0123456789ABCDEF0123C800");
    EXPECT_EQ(bench.Cell(8, column::kGroupRead), "0123456789ABCDEF0123");
    EXPECT_EQ(bench.Cell(9, column::kGroupRead), "C800");
}

TEST(NativeRows, LengthOfZeroTakesNothing) {
    RowsBench bench;
    bench.SetCell(8, column::kLength, u"0");
    bench.Walk("@01RRC800");
    EXPECT_EQ(bench.Cell(8, column::kGroupRead), "");
    EXPECT_EQ(bench.Cell(9, column::kGroupRead), "C800");
}

TEST(NativeRows, LengthOfAnySizeTakesWhatThereIs) {
    for (const char16_t* length : {u"1000000000", u"1073741823.5"}) {
        RowsBench bench;
        bench.SetCell(8, column::kLength, length);
        bench.Walk("@01RRC800");
        EXPECT_EQ(bench.Cell(8, column::kGroupRead), "C800");
        EXPECT_EQ(bench.Talk().CurrentRow, 9);
    }
}

TEST(NativeRows, LengthThatIsNoNumberRaisesError13) {
    for (const char16_t* length : {u"", u"A", u"2字节"}) {
        RowsBench bench;
        bench.SetCell(9, column::kLength, length);
        EXPECT_EQ(ErrorOf([&] { bench.Walk("@01RRC8002C01"); }), 13);
        EXPECT_EQ(bench.Reading(8), (Cells{"", "C800", "200", "200"}));
        EXPECT_EQ(bench.Reading(9), kUntouched);
        EXPECT_EQ(bench.Talk().CurrentRow, 9);
    }
}

// --- Where a run ends ---

TEST(NativeRows, RunEndsAtTheFirstRowOfAnotherLetter) {
    RowsBench bench;
    bench.Walk("@01RDC80004A000002C01");
    EXPECT_EQ(bench.Cell(7, column::kValue), "10");
    EXPECT_EQ(bench.Reading(8), kUntouched);
    EXPECT_EQ(bench.Talk().CurrentRow, 8);
}

TEST(NativeRows, OnlyTheFirstLetterOfTheAttributesIsCompared) {
    RowsBench bench;
    bench.SetCell(9, column::kAttribute, u"RS");
    bench.SetCell(10, column::kAttribute, u"WR");
    bench.Walk("@01RRC8002C01C8");
    EXPECT_EQ(bench.Cell(9, column::kValue), "300");
    EXPECT_EQ(bench.Reading(10), kUntouched);
    EXPECT_EQ(bench.Talk().CurrentRow, 10);
}

TEST(NativeRows, RowsOfExactlySTravelAlongWithAnyRun) {
    RowsBench bench;
    bench.SetCell(9, column::kAttribute, u"S");
    bench.SetCell(10, column::kAttribute, u"SW");
    bench.Walk("@01RRC8002C01C8");
    EXPECT_EQ(bench.Cell(9, column::kValue), "300");
    EXPECT_EQ(bench.Reading(10), kUntouched);
    EXPECT_EQ(bench.Talk().CurrentRow, 10);
}

TEST(NativeRows, LeadLetterIsThatOfTheFirstRowEvenIfItIsS) {
    RowsBench bench;
    bench.SetCell(8, column::kAttribute, u"S");
    bench.SetCell(9, column::kAttribute, u"SW");
    bench.Walk("@01RRC8002C01C8");
    EXPECT_EQ(bench.Cell(9, column::kValue), "300");
    EXPECT_EQ(bench.Reading(10), kUntouched);
}

// --- Command codes 40 and 50 ---

TEST(NativeRows, FixedReadStaysOnItsRow) {
    RowsBench bench;
    bench.Talk().CommandCode = 40;
    bench.Talk().CurrentRow = 9;
    bench.Walk("@01REC800");
    bench.Walk("@01RE2C01");
    EXPECT_EQ(bench.Reading(9), (Cells{"2C01", "", "300", "300"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 9);
}

TEST(NativeRows, FixedReadWithMoreDataGoesOverTheNextRowsAndStays) {
    RowsBench bench;
    bench.Talk().CommandCode = 40;
    bench.Talk().CurrentRow = 8;
    bench.Walk("@01REC8002C01");
    EXPECT_EQ(bench.Cell(9, column::kSingleRead), "2C01");
    EXPECT_EQ(bench.Talk().CurrentRow, 8);
}

TEST(NativeRows, FixedReadThatMeetsAnotherKindGoesThere) {
    RowsBench bench;
    bench.Talk().CommandCode = 40;
    bench.Talk().CurrentRow = 7;
    bench.Walk("@01RE04A00000C800");
    EXPECT_EQ(bench.Cell(7, column::kSingleRead), "04A00000");
    EXPECT_EQ(bench.Reading(8), kUntouched);
    EXPECT_EQ(bench.Talk().CurrentRow, 8);
}

TEST(NativeRows, RowByRowReadGoesOnToTheNextRow) {
    for (const std::int32_t commandCode : {50, 60, 31}) {
        RowsBench bench;
        bench.Talk().CommandCode = commandCode;
        bench.Talk().CurrentRow = 9;
        bench.Walk("@01REC800");
        EXPECT_EQ(bench.Talk().CurrentRow, 10) << commandCode;
    }
}

TEST(NativeRows, RowByRowReadMarksWhereTheTwoReadsDiffer) {
    struct Row {
        std::int32_t commandCode;
        const char16_t* groupRead;
        Colour colour;
    };
    const Row rows[] = {{50, u"C801", 0xC0C0FF}, {50, u"c800", 0xC0C0FF},   {50, u"C800", 0x80000005},
                        {50, u"", 0x80000005},   {40, u"C801", 0x80000005}, {60, u"C801", 0x80000005}};
    for (const Row& row : rows) {
        RowsBench bench;
        bench.SetCell(9, column::kGroupRead, row.groupRead);
        bench.Talk().CommandCode = row.commandCode;
        bench.Talk().CurrentRow = 9;
        bench.Walk("@01REC800");
        EXPECT_EQ(bench.Rows().CellColour(9, column::kSingleRead), row.colour) << ToUtf8(row.groupRead);
    }
}

TEST(NativeRows, EmptySingleReadIsNotMarked) {
    RowsBench bench;
    bench.SetCell(9, column::kGroupRead, u"C801");
    bench.Talk().CommandCode = 50;
    bench.Talk().CurrentRow = 9;
    bench.Walk("@01RE");
    EXPECT_TRUE(bench.Rows().Colours().empty());
}

// --- Answers to writes ---

// Such an answer has no data, but the walk takes its one row all the same.
TEST(NativeRows, AnswerToAWriteBlanksTheRowNumberAndShowsTheValueOfNothing) {
    struct Row {
        int row;
        const char* value;
    };
    for (const char* reply : {"@01##", "@01**"}) {
        for (const Row& row : {Row{10, "0"}, Row{8, ""}, Row{11, "0"}, Row{12, "0"}, Row{13, ""}}) {
            RowsBench bench;
            bench.SetCell(row.row, column::kSingleRead, u"C800");
            bench.SetCell(row.row, column::kValue, u"old");
            bench.Talk().CurrentRow = static_cast<std::int16_t>(row.row);
            bench.Walk(reply);
            EXPECT_EQ(bench.Cell(row.row, column::kNumber), "") << row.row;
            EXPECT_EQ(bench.Reading(row.row), (Cells{"C800", "", row.value, row.value})) << row.row;
            EXPECT_EQ(bench.Talk().CurrentRow, row.row + 1);
        }
    }
}

// --- The fill of code 13 ---

TEST(NativeRows, Code12HasNoFill) {
    RowsBench bench(12);
    bench.Walk("@01RDC800");
    EXPECT_EQ(bench.Reading(6), (Cells{"", "C800", "200", "200"}));
}

TEST(NativeRows, Code13DropsTwoMoreCharactersBeforeTheCheckWord) {
    RowsBench bench(13);
    bench.Walk("@01RDC80000");
    EXPECT_EQ(bench.Reading(6), (Cells{"", "C800", "200", "200"}));
    EXPECT_EQ(bench.Talk().CurrentRow, 7);
}

TEST(NativeRows, SmallestReplyUnderCode13RaisesError5) {
    RowsBench bench(13);
    bench.Talk().CurrentRow = 9;
    EXPECT_EQ(ErrorOf([&] { bench.Walk("@01RE"); }), 5);
    EXPECT_EQ(bench.Cell(9, column::kNumber), "009 ");
    EXPECT_EQ(bench.Reading(9), kUntouched);
    EXPECT_TRUE(bench.Rows().Redraw);
    bench.Walk("@01RE00");
    EXPECT_EQ(bench.Talk().CurrentRow, 10) << "no data, one row";
}

TEST(NativeRows, OnlyTheFirstOfTwoLineEndsCountsAsThreeCharacters) {
    RowsBench bench;
    bench.Talk().CurrentRow = 8;
    DecodeTqReplyRows(bench.Talk(), FrameOf("@01RE\r800..\r"));
    EXPECT_EQ(bench.Cell(8, column::kSingleRead), "\\0D8");
    EXPECT_EQ(bench.Reading(9), kUntouched) << "the second one leaves two characters too few";
}

// --- The grid's redraw ---

TEST(NativeRows, GridIsRedrawnBehindTheWalk) {
    for (const char* reply : {"@01RRC8002C01", "@01RDC800", "@01##"}) {
        RowsBench bench;
        bench.Talk().CurrentRow = 9;
        bench.Rows().Redraw = false;
        bench.Walk(reply);
        EXPECT_TRUE(bench.Rows().Redraw) << reply;
    }
}

TEST(NativeRows, RedrawIsOffDuringTheWalk) {
    RowsBench bench;
    bench.SetCell(9, column::kLength, u"A");
    ErrorOf([&] { bench.Walk("@01RRC8002C01"); });
    EXPECT_FALSE(bench.Rows().Redraw);
}

TEST(NativeRows, DecimalPointOfARowSwitchesTheRedrawOnInTheMiddleOfTheWalk) {
    RowsBench bench;
    bench.SetCell(8, column::kDecimals, u"1");
    bench.SetCell(9, column::kLength, u"A");
    ErrorOf([&] { bench.Walk("@01RRC8002C01"); });
    EXPECT_TRUE(bench.Rows().Redraw);
}

// --- Marking ---

TEST(MarkReadMismatch, SelectsTheCellAndStaysThere) {
    RowsBench bench;
    bench.Rows().Select(2, 3);
    bench.Talk().CurrentRow = 9;
    bench.Rows().Redraw = false;
    MarkReadMismatch(bench.Talk());
    EXPECT_EQ(bench.Rows().Row, 9);
    EXPECT_EQ(bench.Rows().Col, 6);
    EXPECT_TRUE(bench.Rows().Redraw);
}

TEST(MarkReadMismatch, ColoursByWhetherTheTextsDiffer) {
    RowsBench bench;
    bench.Talk().CurrentRow = 9;
    bench.SetCell(9, column::kSingleRead, u"C800");
    bench.SetCell(9, column::kGroupRead, u"C8");
    MarkReadMismatch(bench.Talk());
    EXPECT_EQ(bench.Rows().CellColour(9, column::kSingleRead), 0xC0C0FFu);
    EXPECT_EQ(bench.Rows().CellColour(9, column::kGroupRead), 0x80000005u);
    bench.SetCell(9, column::kGroupRead, u"C800");
    MarkReadMismatch(bench.Talk());
    EXPECT_EQ(bench.Rows().CellColour(9, column::kSingleRead), 0x80000005u);
}

}  // namespace
}  // namespace commtest
