#include "protocol_modbus/ascii_write_requests.h"

#include <gtest/gtest.h>

#include "protocol_modbus/ascii_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::AsciiTalkBench;
using testing::ErrorOf;
using testing::TestParameter;

constexpr int kTwoBytes = 6;
constexpr int kTwoDecimals = 7;
constexpr int kFourBytes = 8;
constexpr int kRatio = 9;
constexpr int kLowRatio = 10;
constexpr int kNoLength = 11;

constexpr const char* kFirstHalfMessage =
    "参数占用了4个字节的地址,现修改头两个字节,随后请再操作一次,修改方可全部完成！";

std::vector<TestParameter> Parameters() {
    return {{u"上限", u"0010", u"2", u"RW", u"0"},     {u"下限", u"4011", u"2", u"RW", u"2"},
            {u"系数", u"0012", u"4", u"RW", u"0"},     {u"电压变比", u"0110", u"4", u"RW", u"0"},
            {u"电流变比", u"0020", u"4", u"RW", u"0"}, {u"命令", u"0030", u"0", u"RW", u"0"}};
}

struct WriteBench : AsciiTalkBench {
    WriteBench() : AsciiTalkBench(21, Parameters()) {
        Talk().SendText = u" 41";
        Talk().InputText.SetVisible(true);
    }
    std::string Write(int row, const Text& entry) {
        BuildWrite(row, entry);
        return Frame();
    }
};

TEST(AsciiWrite, FrameEndsInACarriageReturnAlone) {
    WriteBench bench;
    bench.Write(kTwoBytes, u"1000");
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 3A 30 31 30 36 30 30 31 30 30 33 45 38 46 45 0D");
}

TEST(AsciiWrite, ValueHasTwoDigitsForEachByteOfTheLength) {
    struct Row {
        int row;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {{kTwoBytes, u"1", ":010600100001E8\r"},
                        {kTwoBytes, u"-1", ":01060010FFFFEB\r"},
                        {kTwoBytes, u"65537", ":010600100001E8\r"},  // the high digits are lost
                        {kTwoBytes, u" 1E3 ", ":0106001003E8FE\r"},
                        {kTwoBytes, u"2.5", ":010600100002E7\r"},  // half to even
                        {kTwoBytes, u"3.5", ":010600100004E5\r"},
                        {kFourBytes, u"100000", ":01060012000186A0C0\r"},
                        {kFourBytes, u"-2", ":01060012FFFFFFFEEC\r"},
                        {kNoLength, u"7", ":01060030C9\r"}};  // no value at all
    for (const Row& row : rows) EXPECT_EQ(WriteBench().Write(row.row, row.entry), row.frame);
}

TEST(AsciiWrite, ColumnFiveIsTheNumberOfDecimals) {
    EXPECT_EQ(WriteBench().Write(kTwoDecimals, u"12.34"), ":0106401104D2D2\r");
    WriteBench bench;
    bench.SetCell(kTwoDecimals, column::kDecimals, u"1.9");
    EXPECT_EQ(bench.Write(kTwoDecimals, u"10"), ":01064011006444\r");
    bench.SetCell(kTwoDecimals, column::kDecimals, u"-1");
    EXPECT_EQ(bench.Write(kTwoDecimals, u"1000"), ":01064011006444\r");
}

TEST(AsciiWrite, AddressGoesAsItStands) {
    EXPECT_EQ(WriteBench().Write(kTwoDecimals, u"1"), ":01064011006444\r");
}

TEST(AsciiWrite, WholePartOfTheLengthCounts) {
    WriteBench bench;
    bench.SetCell(kTwoBytes, column::kLength, u"2.9");
    EXPECT_EQ(bench.Write(kTwoBytes, u"1000"), ":0106001003E8FE\r");
}

TEST(AsciiWrite, CheckWordOfASumOf256HasThreeDigits) {
    EXPECT_EQ(WriteBench().Write(kTwoBytes, u"233"), ":0106001000E9100\r");
}

TEST(AsciiWrite, CurrentCellKeepsTheEntryAndTheEditorIsHidden) {
    WriteBench bench;
    bench.Write(kTwoDecimals, u"12.34");
    EXPECT_EQ(bench.Cell(kTwoDecimals, column::kNewValue), "12.34");
    EXPECT_FALSE(bench.Talk().InputText.Visible());
}

TEST(AsciiWrite, CommandBecomesAReadOfSeveralRows) {
    for (const std::int32_t before : {31, 40, 50, 60, 1031}) {
        WriteBench bench;
        bench.Talk().CommandCode = before;
        bench.Write(kTwoBytes, u"1");
        EXPECT_EQ(bench.Talk().CommandCode, 60);
    }
}

TEST(AsciiWrite, NeitherAttributeNorLimitsAreLookedAt) {
    WriteBench bench;
    bench.SetCell(kTwoBytes, column::kAttribute, u"R");
    EXPECT_EQ(bench.Write(kTwoBytes, u"65535"), ":01060010FFFFEB\r");
}

// --- Ratios ---

TEST(AsciiWriteOfARatio, TakesTwoEntriesOfWhichTheFirstShowsAMessage) {
    WriteBench bench;
    EXPECT_EQ(bench.Write(kRatio, u"4660"), ":010601100012D6\r");  // 1234
    EXPECT_EQ(bench.dialogs.Messages, std::vector<std::string>{kFirstHalfMessage});
    EXPECT_TRUE(bench.Talk().AsciiSecondHalfPending);
    EXPECT_EQ(bench.Write(kRatio, u"4660"), ":010601110034B3\r");
    EXPECT_EQ(bench.dialogs.Messages.size(), 1U);
    EXPECT_FALSE(bench.Talk().AsciiSecondHalfPending);
    EXPECT_EQ(bench.Write(kRatio, u"4660"), ":010601100012D6\r");
    EXPECT_EQ(bench.dialogs.Messages.size(), 2U);
}

TEST(AsciiWriteOfARatio, SecondEntryGivesTheSecondByte) {
    WriteBench bench;
    bench.Write(kRatio, u"4660");
    EXPECT_EQ(bench.Write(kRatio, u"255"), ":0106011100FFE8\r");
}

TEST(AsciiWriteOfARatio, FirstTwoBytesOfTheValueDoNotTravel) {
    WriteBench bench;
    EXPECT_EQ(bench.Write(kRatio, u"305419896"), ":01060110005692\r");  // 12345678
    EXPECT_EQ(bench.Write(kRatio, u"305419896"), ":0106011100786F\r");
}

// Below 00FF the second address is a character short.
TEST(AsciiWriteOfARatio, SecondAddressIsNotFilled) {
    struct Row {
        const char16_t* address;
        const char* frame;
    };
    const Row rows[] = {{u"0020", ":01060210034E0\r"},
                        {u"00FE", ":01060FF0034F3\r"},
                        {u"00FF", ":010601000034C4\r"},
                        {u"0FFE", ":01060FFF0034B7\r"},
                        {u"1000", ":0106010010034E5\r"}};
    for (const Row& row : rows) {
        WriteBench bench;
        bench.SetCell(kLowRatio, column::kAddress, row.address);
        bench.Write(kLowRatio, u"4660");
        EXPECT_EQ(bench.Write(kLowRatio, u"4660"), row.frame);
    }
}

TEST(AsciiWriteOfARatio, HalfInAnotherRowGoesToThatRow) {
    WriteBench bench;
    bench.Write(kRatio, u"4660");
    EXPECT_EQ(bench.Write(kTwoBytes, u"1000"), ":0106001003E8FE\r");
    EXPECT_TRUE(bench.Talk().AsciiSecondHalfPending);  // a row that is no ratio leaves it
    bench.SetCell(kLowRatio, column::kAddress, u"0200");
    EXPECT_EQ(bench.Write(kLowRatio, u"4660"), ":010602010034C2\r");
}

TEST(AsciiWriteOfARatio, MemoryIsNotThatOfTheFlowMeters) {
    WriteBench bench;
    bench.Talk().SecondHalfPending = true;
    EXPECT_EQ(bench.Write(kRatio, u"4660"), ":010601100012D6\r");
    EXPECT_TRUE(bench.Talk().SecondHalfPending);
}

TEST(AsciiWriteOfARatio, LengthOfTwoHasNoDigitsToSend) {
    WriteBench bench;
    bench.SetCell(kRatio, column::kLength, u"2");
    EXPECT_EQ(bench.Write(kRatio, u"4660"), ":0106011000E8\r");
}

// --- Failures ---

TEST(AsciiWrite, WhatIsNoNumberRaisesError13AndLeavesTheFrame) {
    struct Row {
        int col;
        const char16_t* text;
        const char16_t* entry;
    };
    const Row rows[] = {{column::kName, u"上限", u"12,5"}, {column::kName, u"上限", u""},
                        {column::kLength, u"", u"1"},      {column::kLength, u"x", u"1"},
                        {column::kDecimals, u"", u"1"},    {column::kName, u"变比", u"x"}};
    for (const Row& row : rows) {
        WriteBench bench;
        bench.SetCell(kTwoBytes, row.col, row.text);
        EXPECT_EQ(ErrorOf([&] { bench.Write(kTwoBytes, row.entry); }), 13);
        EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 41");
        EXPECT_EQ(bench.Cell(kTwoBytes, column::kNewValue), ToUtf8(row.entry));
        EXPECT_TRUE(bench.Talk().InputText.Visible());
        EXPECT_EQ(bench.Talk().CommandCode, 31);
        EXPECT_FALSE(bench.Talk().AsciiSecondHalfPending);
        EXPECT_TRUE(bench.dialogs.HaveShownNothing());
    }
}

TEST(AsciiWrite, ValueBeyond32BitsRaisesError6) {
    EXPECT_EQ(ErrorOf([] { WriteBench().Write(kFourBytes, u"2147483648"); }), 6);
    EXPECT_EQ(ErrorOf([] { WriteBench().Write(kTwoDecimals, u"1E300"); }), 6);
    WriteBench bench;
    bench.SetCell(kTwoBytes, column::kDecimals, u"400");
    EXPECT_EQ(ErrorOf([&] { bench.Write(kTwoBytes, u"0"); }), 6);
}

}  // namespace
}  // namespace commtest
