#include "protocol_special/novax_requests.h"

#include <gtest/gtest.h>

#include "protocol_special/novax_talk_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NovaxTalkBench;

// --- Reads ---

TEST(NovaxReadRequest, AsksForTheParameterOfTheCurrentRow) {
    NovaxTalkBench bench;
    EXPECT_EQ(bench.Request(50), " 81 81 52 12 00 00 53 12");
    bench.Talk().CurrentRow = 13;
    EXPECT_EQ(bench.Request(50), " 81 81 52 15 00 00 53 15");
    EXPECT_EQ(bench.Talk().CurrentRow, 13);
}

TEST(NovaxReadRequest, AddressIsTheOneOfTheControl) {
    NovaxTalkBench bench;
    bench.SetAddress(u"127", u" FF FF");
    EXPECT_EQ(bench.Request(50), " FF FF 52 12 00 00 D1 12");
}

TEST(NovaxReadRequest, NumberIsColumnTwoFromItsThirdCharacterOn) {
    NovaxTalkBench bench;
    bench.SetCell(10, column::kAddress, u"AB2F");
    EXPECT_EQ(bench.Request(50), " 81 81 52 2F 00 00 53 2F");
}

TEST(NovaxReadRequest, RowOutsideTheParametersBecomesTheFirst) {
    for (const auto row : std::initializer_list<std::int16_t>{15, 9, 0, -1}) {
        NovaxTalkBench bench;
        bench.Talk().CurrentRow = row;
        EXPECT_EQ(bench.Request(50), " 81 81 52 12 00 00 53 12") << row;
        EXPECT_EQ(bench.Talk().CurrentRow, 10) << row;
    }
}

TEST(NovaxReadRequest, LastRowIsRead) {
    NovaxTalkBench bench;
    bench.Talk().CurrentRow = 14;
    EXPECT_EQ(bench.Request(50), " 81 81 52 16 00 00 53 16");
}

TEST(NovaxReadRequest, EmptiesColumnSevenOfItsRowAlone) {
    NovaxTalkBench bench;
    for (const int row : {9, 10, 11}) bench.SetCell(row, column::kGroupRead, u"1234");
    for (const int col : {6, 8, 9}) bench.SetCell(10, col, u"5");
    bench.BuildRead(50);
    EXPECT_EQ(bench.Cell(9, 7), "1234");
    EXPECT_EQ(bench.Cell(10, 7), "");
    EXPECT_EQ(bench.Cell(11, 7), "1234");
    for (const int col : {6, 8, 9}) EXPECT_EQ(bench.Cell(10, col), "5") << col;
}

TEST(NovaxReadRequest, CommandCodesTellNoReadsApart) {
    for (const std::int32_t code : {1, 10, 31, 40, 60, 80, 91, 100, 1001, 1031, 9999}) {
        NovaxTalkBench bench;
        EXPECT_EQ(bench.Request(code), " 81 81 52 12 00 00 53 12") << code;
        EXPECT_EQ(bench.Talk().CommandCode, code) << code;
    }
}

TEST(NovaxReadRequest, FrameOfAWriteGoesOutInPlaceOfARead) {
    struct Case {
        std::int32_t before;
        std::int32_t after;
    };
    for (const Case& one : {Case{101, 1}, Case{150, 50}, Case{250, 50}, Case{1000, 0}}) {
        NovaxTalkBench bench;
        bench.Talk().SendText = u" 81 81 43 15 01 00 45 15";
        bench.Talk().CurrentRow = 9;
        bench.SetCell(10, column::kGroupRead, u"1234");
        EXPECT_EQ(bench.Request(one.before), " 81 81 43 15 01 00 45 15") << one.before;
        EXPECT_EQ(bench.Talk().CommandCode, one.after) << one.before;
        EXPECT_EQ(bench.Talk().CurrentRow, 9) << one.before;
        EXPECT_EQ(bench.Cell(10, 7), "1234") << one.before;
    }
}

TEST(NovaxReadRequest, CodeBelowOneBuildsNothing) {
    for (const std::int32_t code : {0, -1}) {
        NovaxTalkBench bench;
        bench.Talk().SendText = u" 2A";
        EXPECT_EQ(bench.Request(code), " 2A") << code;
        EXPECT_EQ(bench.Talk().CommandCode, code) << code;
    }
}

TEST(NovaxReadRequest, GridWithoutRowTenIsASubscriptError) {
    NovaxTalkBench bench;
    bench.Rows().SetSize(10, column::kCount);
    bench.Talk().CommandCode = 50;
    EXPECT_EQ(ErrorOf([&] { bench.BuildRead(50); }), 9);
    EXPECT_EQ(bench.Talk().CurrentRow, 10);
}

TEST(NovaxReadRequest, RedrawIsOnAfterwardsButNotBehindAnError) {
    NovaxTalkBench bench;
    bench.Rows().Redraw = false;
    bench.BuildRead(50);
    EXPECT_TRUE(bench.Rows().Redraw);
    bench.SetCell(10, column::kAddress, u"00FF");
    EXPECT_EQ(ErrorOf([&] { bench.BuildRead(50); }), 6);
    EXPECT_FALSE(bench.Rows().Redraw);
}

// FF00 leaves 16 bits: the frame stands without its check word, the cell keeps its digits.
TEST(NovaxReadRequest, OverflowOfTheCheckWordLeavesTheFrameWithoutIt) {
    NovaxTalkBench bench;
    bench.SetCell(10, column::kAddress, u"00FF");
    bench.SetCell(10, column::kGroupRead, u"1234");
    EXPECT_EQ(ErrorOf([&] { bench.BuildRead(50); }), 6);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 81 81 52 FF 00 00");
    EXPECT_EQ(bench.Cell(10, 7), "1234");
}

// Byte 3 stands at "0 ", byte 4 at "2 ", bytes 5 and 6 at "2 " and "0 ": 0200 + 0 + 0 + 1.
TEST(NovaxReadRequest, ThreeDigitAddressGoesByPositions) {
    NovaxTalkBench bench;
    bench.SetAddress(u"1", u" 100 100");
    EXPECT_EQ(bench.Request(50), " 100 100 52 12 00 00 01 02");
}

// --- Writes ---

TEST(NovaxWriteRequest, CarriesTheCodeLowByteFirst) {
    NovaxTalkBench bench;
    EXPECT_EQ(bench.Write(13, u"1"), " 81 81 43 15 01 00 45 15");
    // 1200 + 03E8 + 43 + 1
    EXPECT_EQ(bench.Write(10, u"1000"), " 81 81 43 12 E8 03 2C 16");
}

// 1300 + FFFB (-5) + 43 + 1 = 133F.
TEST(NovaxWriteRequest, NegativeValueTakesFromTheCheckWord) {
    NovaxTalkBench bench;
    EXPECT_EQ(bench.Write(11, u"-0.5"), " 81 81 43 13 FB FF 3F 13");
}

TEST(NovaxWriteRequest, EntryLosesItsDecimalPoint) {
    NovaxTalkBench bench;
    EXPECT_EQ(bench.Write(14, u"1.25"), " 81 81 43 16 7D 00 C1 16");
}

TEST(NovaxWriteRequest, DecimalsMayStandInAnotherRow) {
    NovaxTalkBench bench;
    bench.SetCell(13, column::kName, u"小数点");
    bench.SetCell(13, column::kValue, u"1");
    bench.SetCell(10, column::kDecimals, u"0015");
    EXPECT_EQ(bench.Write(10, u"12.5"), " 81 81 43 12 7D 00 C1 12");
}

TEST(NovaxWriteRequest, FormatIsThatOfTheInstrument) {
    NovaxTalkBench bench;
    bench.SetFormat(u"06");  // sign and magnitude: -5 is 8005
    EXPECT_EQ(bench.Write(10, u"-5"), " 81 81 43 12 05 80 49 92");
}

// One byte, 64: its digits stand where the high byte should, and no pair in front of them.
TEST(NovaxWriteRequest, CodeOfTwoCharactersLeavesItsFirstPairEmpty) {
    NovaxTalkBench bench;
    bench.SetFormat(u"07");
    bench.BuildWrite(10, u"100");
    EXPECT_EQ(ToUtf8(bench.Talk().SendText).substr(0, 16), " 81 81 43 12  64");
}

TEST(NovaxWriteRequest, OfALongerCodeTheFirstFourCharactersGoOut) {
    NovaxTalkBench bench;
    bench.SetFormat(u"03");  // 100 is 42C80000; 1200 + 42C8 + 43 + 1
    EXPECT_EQ(bench.Write(10, u"100"), " 81 81 43 12 C8 42 0C 55");
}

TEST(NovaxWriteRequest, EntryStandsInTheCurrentCellAsTyped) {
    NovaxTalkBench bench;
    bench.BuildWrite(14, u"1.250");
    EXPECT_EQ(bench.Cell(14, 10), "1.250");
}

TEST(NovaxWriteRequest, EditorIsHiddenAndNothingIsAsked) {
    NovaxTalkBench bench;
    bench.Talk().InputText.SetVisible(true);
    bench.BuildWrite(10, u"1");
    EXPECT_FALSE(bench.Talk().InputText.Visible());
    EXPECT_TRUE(bench.dialogs.HaveShownNothing());
}

TEST(NovaxWriteRequest, EntryThatIsScaledTurnsTheRedrawOn) {
    NovaxTalkBench bench;
    bench.Rows().Redraw = false;
    bench.BuildWrite(10, u"1");
    EXPECT_FALSE(bench.Rows().Redraw);
    bench.BuildWrite(14, u"1");
    EXPECT_TRUE(bench.Rows().Redraw);
}

TEST(NovaxWriteRequest, LimitsAndAttributeAreNotLookedAt) {
    NovaxTalkBench bench;
    bench.Talk().Limits.assign(15, {u"0", u"10"});
    EXPECT_EQ(bench.Write(12, u"0.2"), " 81 81 43 14 14 00 58 14");
    EXPECT_EQ(bench.Write(10, u"500"), " 81 81 43 12 F4 01 38 14");
}

TEST(NovaxWriteRequest, EntryThatIsNoNumberIsATypeMismatchAndLeavesTheFrame) {
    NovaxTalkBench bench;
    bench.Talk().SendText = u" 2A";
    EXPECT_EQ(ErrorOf([&] { bench.BuildWrite(10, u"x"); }), 13);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 2A");
    EXPECT_EQ(bench.Cell(10, 10), "x");
}

}  // namespace
}  // namespace commtest
