#include "protocol_modbus/rtu_write_requests.h"

#include <gtest/gtest.h>

#include "protocol_modbus/rtu_talk_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::RtuTalkBench;

constexpr int kRow = 6;
constexpr const char16_t* kOldFrame = u" 01 03 00 10 00 01 85 CF";
constexpr const char* kMessage =
    "由于 参数 参数占用了4个字节的地址,所以修改完成后,请再操作一次,修改方可全部完成！";

namespace write_type {
constexpr int kTwoBytes = 0;
constexpr int kFourBytes = 1;
constexpr int kSeveral = 2;
}  // namespace write_type

// The user has opened the editor on column 10 of a row; the polling is at another row.
struct WriteBench : RtuTalkBench {
    WriteBench(int code, const Text& format, const Text& length) : RtuTalkBench(code) {
        SetFormat(format);
        SetColumn(column::kLength, std::vector<Text>(9, length));
        Talk().SendText = kOldFrame;
        Talk().InputText.SetVisible(true);
        Talk().CurrentRow = 9;
    }
    std::string Write(const Text& entry, int row = kRow) {
        BuildWrite(row, entry);
        return ToUtf8(Talk().SendText);
    }
};

// --- Codes 31, 32, 34 ---

TEST(RtuWrite, Function06GoesOutWhateverTheLength) {
    struct Row {
        const char16_t* format;
        const char16_t* length;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {{u"01", u"2", u"1000", " 01 06 00 10 03 E8 88 B1"},
                        {u"07", u"1", u"100", " 01 06 00 10 64 15 63"},
                        {u"03", u"4", u"100", " 01 06 00 10 42 C8 00 00 B3 82"}};
    for (const int code : {31, 32, 34}) {
        for (const Row& row : rows) {
            WriteBench bench(code, row.format, row.length);
            EXPECT_EQ(bench.Write(row.entry), row.frame) << code;
        }
    }
}

// The check bytes are those of what stands at the places of the digits.
TEST(RtuWrite, CodeThatDoesNotFitItsLengthMakesAnIrregularFrame) {
    struct Row {
        const char16_t* format;
        const char16_t* length;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {{u"01", u"1", u"1000", " 01 06 00 10 03E8 89 39"},     // read as 03 08
                        {u"07", u"2", u"100", " 01 06 00 10 64  A2 CF"},       // 64 00
                        {u"01", u"4", u"1000", " 01 06 00 10 03 E8   B1 66"},  // 03 E8 00
                        {u"01", u"3", u"1000", " 01 06 00 1003E8 98 6F"},      // 10 3E 00
                        {u"01", u"0", u"1000", " 01 06 00 1003E8 98 6F"},
                        {u"01", u"", u"1000", " 01 06 00 1003E8 98 6F"},
                        {u"01", u"5", u"1000", " 01 06 00 1003E8 98 6F"}};
    for (const Row& row : rows) {
        WriteBench bench(31, row.format, row.length);
        EXPECT_EQ(bench.Write(row.entry), row.frame) << ToUtf8(row.length);
    }
}

TEST(RtuWrite, AddressKeepsItsFirstDigit) {
    WriteBench bench(31, u"01", u"2");
    bench.SetCell(kRow, column::kAddress, u"4010");
    EXPECT_EQ(bench.Write(u"1000"), " 01 06 40 10 03 E8 9D 71");
}

TEST(RtuWrite, TakesTheUsersRowAndLeavesThatOfThePolling) {
    WriteBench bench(31, u"01", u"2");
    EXPECT_EQ(bench.Write(u"1000", 8).substr(0, 18), " 01 06 00 12 03 E8");
    EXPECT_EQ(bench.Talk().CurrentRow, 9);
    EXPECT_EQ(bench.Cell(8, column::kNewValue), "1000");
    EXPECT_EQ(bench.Cell(6, column::kNewValue), "");
}

TEST(RtuWrite, EditorIsHiddenAndTheCellKeepsTheEntryAsTyped) {
    WriteBench bench(31, u"01", u"2");
    bench.SetCell(14, column::kValue, u"1");
    bench.SetCell(kRow, column::kDecimals, u"0018");
    bench.Write(u"12.30");
    EXPECT_FALSE(bench.Talk().InputText.Visible());
    EXPECT_EQ(bench.Cell(kRow, column::kNewValue), "12.30");
}

TEST(RtuWrite, DecimalsOfTheReferencedRowScaleTheEntry) {
    WriteBench bench(31, u"01", u"2");
    bench.SetCell(14, column::kValue, u"2");
    bench.SetCell(kRow, column::kDecimals, u"0018");
    EXPECT_EQ(bench.Write(u"10"), " 01 06 00 10 03 E8 88 B1");
}

// The commands' address is 0000, which "00" means and "0" does not.
TEST(RtuWrite, DecimalsOfZeroLeaveTheEntryUnscaled) {
    WriteBench bench(31, u"01", u"2");
    bench.SetCell(1, column::kValue, u"2");
    EXPECT_EQ(bench.Write(u"1000"), " 01 06 00 10 03 E8 88 B1");
    bench.SetCell(kRow, column::kDecimals, u"00");
    EXPECT_EQ(bench.Write(u"10"), " 01 06 00 10 03 E8 88 B1");
}

TEST(RtuWrite, EntryThatIsNoNumberEndsTheBuilder) {
    for (const int code : {31, 35}) {
        for (const char16_t* decimals : {u"0", u"0018"}) {
            WriteBench bench(code, u"01", u"4");
            bench.SetCell(14, column::kValue, u"2");
            bench.SetCell(kRow, column::kDecimals, decimals);
            bench.Talk().WriteType.Choose(write_type::kTwoBytes);
            EXPECT_EQ(ErrorOf([&] { bench.Write(u"快"); }), 13) << code;
            EXPECT_EQ(bench.Talk().SendText, kOldFrame);
            EXPECT_TRUE(bench.Talk().InputText.Visible());
            EXPECT_TRUE(bench.dialogs.HaveShownNothing());
            EXPECT_FALSE(bench.Talk().SecondHalfPending);
            EXPECT_EQ(bench.Cell(kRow, column::kNewValue), "快");
        }
    }
}

TEST(RtuWrite, InstrumentWithoutAFormatEndsTheBuilder) {
    WriteBench bench(31, u"01", u"2");
    bench.Talk().MeterCodeText = u"31";
    EXPECT_EQ(ErrorOf([&] { bench.Write(u"1000"); }), 13);
}

// --- Code 35 ---

TEST(RtuFlowWrite, WriteTypeChoosesTheFrameByteByByte) {
    struct Row {
        int writeType;
        const char* frame;
    };
    for (const Row& row : {Row{write_type::kTwoBytes, " 01 06 00 10 42 C8 B9 39"},
                           Row{write_type::kFourBytes, " 01 06 00 10 42 C8 00 00 B3 82"},
                           Row{write_type::kSeveral, " 01 10 00 10 00 02 04 42 C8 00 00 67 25"}}) {
        WriteBench bench(35, u"03", u"4");
        bench.Talk().WriteType.Choose(row.writeType);
        EXPECT_EQ(bench.Write(u"100"), row.frame);
        EXPECT_FALSE(bench.Talk().InputText.Visible());
    }
}

TEST(RtuFlowWrite, OneFrameOfFourBytesIsChosenAtFirst) {
    WriteBench bench(35, u"03", u"4");
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 10 42 C8 00 00 B3 82");
    EXPECT_TRUE(bench.dialogs.HaveShownNothing());
}

TEST(RtuFlowWrite, WithoutTheMultiRegisterWriteAnyWriteTypeIsTwoFramesAndOneMessage) {
    for (const int writeType : {write_type::kTwoBytes, write_type::kFourBytes, write_type::kSeveral}) {
        WriteBench bench(35, u"03", u"4");
        bench.Talk().switches.multiRegisterWrite = false;
        bench.Talk().WriteType.Choose(writeType);
        EXPECT_EQ(bench.Write(u"100"), " 01 06 00 10 42 C8 B9 39");
        EXPECT_EQ(bench.Write(u"100"), " 01 06 00 11 00 00 D9 CF");
        EXPECT_EQ(bench.dialogs.Messages,
                  std::vector<std::string>{" 参数占用了4个字节的地址,所以请再操作一次,修改方可完成！"});
    }
}

TEST(RtuWrite, WithoutTheMultiRegisterWriteFourBytesAreStillOneFrameAndNoMessage) {
    for (const int code : {31, 32, 34}) {
        WriteBench bench(code, u"03", u"4");
        bench.Talk().switches.multiRegisterWrite = false;
        EXPECT_EQ(bench.Write(u"100"), " 01 06 00 10 42 C8 00 00 B3 82") << code;
        EXPECT_TRUE(bench.dialogs.HaveShownNothing());
    }
}

TEST(RtuFlowWrite, FirstHalfAsksForASecondEntry) {
    WriteBench bench(35, u"03", u"4");
    bench.Talk().WriteType.Choose(write_type::kTwoBytes);
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 10 42 C8 B9 39");
    EXPECT_EQ(bench.dialogs.Messages, std::vector<std::string>{kMessage});
    EXPECT_EQ(bench.dialogs.OtherBoxes, 0);
    EXPECT_TRUE(bench.Talk().SecondHalfPending);
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 11 00 00 D9 CF");
    EXPECT_EQ(bench.dialogs.Messages.size(), 1U) << "the second entry asks for nothing";
    EXPECT_FALSE(bench.Talk().SecondHalfPending);
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 10 42 C8 B9 39");
    EXPECT_EQ(bench.dialogs.Messages.size(), 2U);
}

// 1.1 is 3F8CCCCD, 100 is 42C80000.
TEST(RtuFlowWrite, SecondWordIsThatOfTheSecondEntryInItsRow) {
    WriteBench bench(35, u"03", u"4");
    bench.Talk().WriteType.Choose(write_type::kTwoBytes);
    bench.Write(u"100", 6);
    EXPECT_EQ(bench.Write(u"1.1", 8).substr(0, 18), " 01 06 00 13 CC CD");
    EXPECT_EQ(bench.Write(u"1.1", 6).substr(0, 18), " 01 06 00 10 3F 8C") << "out of step until now";
}

TEST(RtuFlowWrite, NothingButTheSecondHalfTakesTheMemoryBack) {
    WriteBench bench(35, u"03", u"4");
    bench.Talk().WriteType.Choose(write_type::kTwoBytes);
    bench.Write(u"100");
    bench.Talk().WriteType.Choose(write_type::kFourBytes);
    bench.Write(u"100");
    bench.Talk().WriteType.Choose(write_type::kSeveral);
    bench.Write(u"100");
    EXPECT_TRUE(bench.Talk().SecondHalfPending);
    bench.Talk().WriteType.Choose(write_type::kTwoBytes);
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 11 00 00 D9 CF");
}

TEST(RtuFlowWrite, SecondHalfGoesToTheNextAddress) {
    struct Row {
        const char16_t* address;
        const char* next;
    };
    for (const Row& row :
         {Row{u"0010", "00 11"}, Row{u"00FF", "01 00"}, Row{u"0FFF", "10 00"}, Row{u"4010", "40 11"},
          Row{u"7FFF", "80 00"}, Row{u"8000", "80 01"}, Row{u"FFFF", "00 00"}}) {
        WriteBench bench(35, u"03", u"4");
        bench.SetCell(kRow, column::kAddress, row.address);
        bench.Talk().WriteType.Choose(write_type::kTwoBytes);
        bench.Talk().SecondHalfPending = true;
        EXPECT_EQ(bench.Write(u"100").substr(0, 18), std::string(" 01 06 ") + row.next + " 00 00");
    }
}

TEST(RtuFlowWrite, AddressKeepsItsFirstDigit) {
    for (const int writeType : {write_type::kTwoBytes, write_type::kFourBytes, write_type::kSeveral}) {
        WriteBench bench(35, u"03", u"4");
        bench.SetCell(kRow, column::kAddress, u"4010");
        bench.Talk().WriteType.Choose(writeType);
        EXPECT_EQ(bench.Write(u"100").substr(6, 6), " 40 10") << writeType;
    }
}

TEST(RtuFlowWrite, RowOfAnotherLengthLetsTheOldFrameGrow) {
    for (const char16_t* length : {u"1", u"2", u"5", u"0", u"3", u"", u"44"}) {
        for (const int writeType : {write_type::kTwoBytes, write_type::kFourBytes, write_type::kSeveral}) {
            WriteBench bench(35, u"03", length);
            bench.Talk().WriteType.Choose(writeType);
            EXPECT_EQ(bench.Write(u"100"), " 01 03 00 10 00 01 85 CF 00 00") << ToUtf8(length);
            EXPECT_FALSE(bench.Talk().InputText.Visible());
            EXPECT_FALSE(bench.Talk().SecondHalfPending);
            EXPECT_TRUE(bench.dialogs.HaveShownNothing());
            EXPECT_EQ(bench.Cell(kRow, column::kNewValue), "100");
        }
    }
}

TEST(RtuFlowWrite, DecimalsOfTheReferencedRowScaleTheEntry) {
    WriteBench bench(35, u"03", u"4");
    bench.SetCell(14, column::kValue, u"1");
    bench.SetCell(kRow, column::kDecimals, u"0018");
    EXPECT_EQ(bench.Write(u"10"), " 01 06 00 10 42 C8 00 00 B3 82");
}

}  // namespace
}  // namespace commtest
