#include "protocol_native/write_requests.h"

#include <gtest/gtest.h>

#include "protocol_native/native_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NativeTalkBench;

const std::vector<testing::TestParameter> kParameters = {
    {u"上限", u"0123", u"2", u"RW", u"0"}, {u"方式", u"0028", u"1", u"RW", u"0"},
    {u"系数", u"0024", u"4", u"RW", u"0"}, {u"累积", u"0030", u"8", u"RW", u"0"},
    {u"日期", u"0038", u"3", u"R", u"0"},  {u"小数点", u"0060", u"1", u"RW", u"0"},
    {u"下限", u"0022", u"2", u"RW", u"2"}};
constexpr int kTwoBytes = 6;
constexpr int kOneByte = 7;
constexpr int kFourBytes = 8;
constexpr int kEightBytes = 9;
constexpr int kThreeBytes = 10;
constexpr int kDecimalPoint = 11;
constexpr int kTwoDecimals = 12;
constexpr int kCommand = 3;

struct WriteBench : NativeTalkBench {
    explicit WriteBench(int code) : NativeTalkBench(code, kParameters) {
        Talk().SendText = u" 40";
        Talk().InputText.SetVisible(true);
    }
    // The frame of an entry in column 10 of a row, in characters.
    std::string Write(int row, const Text& entry) {
        BuildWrite(row, entry);
        return Frame();
    }
};

TEST(NativeWrite, ParameterOfTwoBytesByteByByte) {
    WriteBench bench(11);
    bench.Write(kTwoBytes, u"51200");  // C800, low byte first
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40 30 31 57 32 30 31 32 33 30 30 43 38 31 46 0D");
}

TEST(NativeWrite, LengthColumnChoosesTheCode) {
    struct Row {
        int row;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {
        {kTwoBytes, u"1234", "@01W20123D20416\r"},       {kTwoBytes, u"-1234", "@01W20123D2841E\r"},
        {kOneByte, u"200", "@01W10028C816\r"},           {kFourBytes, u"100.5", "@01W4002407C9000019\r"},
        {kFourBytes, u"0.25", "@01W4002442100000053\r"}, {kEightBytes, u"12.5", "@01W8003012.575\r"},
        {kThreeBytes, u"abc", "@01W30038abc0E\r"}};
    for (const Row& row : rows) EXPECT_EQ(WriteBench(11).Write(row.row, row.entry), row.frame);
}

TEST(NativeWrite, EntryIsMultipliedByTheDecimalsOfItsRow) {
    EXPECT_EQ(WriteBench(11).Write(kTwoDecimals, u"12.34"), "@01W20022D20416\r");
}

TEST(NativeWrite, DecimalsMayStandInAnotherRow) {
    WriteBench bench(11);
    bench.SetCell(kDecimalPoint, column::kValue, u"1");
    bench.SetCell(kTwoDecimals, column::kDecimals, u"0060");
    EXPECT_EQ(bench.Write(kTwoDecimals, u"123.4"), "@01W20022D20416\r");
}

TEST(NativeWrite, ScaledEntryGoesOnInItsShownForm) {
    WriteBench bench(11);
    bench.SetCell(kEightBytes, column::kDecimals, u"2");
    EXPECT_EQ(bench.Write(kEightBytes, u"12.34"), "@01W800301234.0047\r");
}

TEST(NativeWrite, DecimalsOfZeroPassTheEntryOnAsTyped) {
    EXPECT_EQ(WriteBench(11).Write(kEightBytes, u"007"), "@01W800300075A\r");
}

TEST(NativeWrite, CurrentCellKeepsTheEntryAsTyped) {
    for (const int code : {11, 12}) {
        WriteBench bench(code);
        bench.Write(kTwoDecimals, u"12.34");
        EXPECT_EQ(bench.Cell(kTwoDecimals, column::kNewValue), "12.34");
    }
}

TEST(NativeWrite, CommandRowGoesByItsDigit) {
    struct Row {
        const char16_t* digit;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {
        {u"3", u"abc", "@01W365\r"}, {u"4", u"7", "@01W462\r"}, {u"5", u"1234", "@01W5D20411\r"}};
    for (const Row& row : rows) {
        WriteBench bench(11);
        bench.SetCell(kCommand, column::kLength, row.digit);
        EXPECT_EQ(bench.Write(kCommand, row.entry), row.frame);
    }
}

TEST(NativeWrite, CommandRowOfUnknownDigitConvertsTheFormerFrameOnceMore) {
    for (const char16_t* digit : {u"6", u"", u"34"}) {
        WriteBench bench(11);
        bench.SetCell(kCommand, column::kLength, digit);
        bench.Talk().SendText = u" 40 0D";
        EXPECT_EQ(bench.Write(kCommand, u"7"), "@01 40 0D71\r");
    }
}

TEST(NativeWrite, Code12PutsLengthCharactersAroundTheAddressColumn) {
    struct Row {
        int row;
        const char16_t* address;
        const char16_t* entry;
        const char* frame;
    };
    const Row rows[] = {{kTwoBytes, u"2123", u"1234", "@01W212302D204BC\r"},
                        {kOneByte, u"1028", u"200", "@01W102801C85F\r"},
                        {kFourBytes, u"4024", u"10", "@01W40240404A000007B\r"},
                        {kEightBytes, u"8030", u"12.5", "@01W80300812.5B1\r"},
                        {kTwoDecimals, u"2022", u"12.34", "@01W202202D204BA\r"},
                        {kTwoBytes, u"22", u"1234", "@01W2202D20458\r"},  // the frame follows the width
                        {kTwoBytes, u"22222", u"1234", "@01W2222202D204EE\r"}};
    for (const Row& row : rows) {
        WriteBench bench(12);
        bench.SetCell(row.row, column::kAddress, row.address);
        EXPECT_EQ(bench.Write(row.row, row.entry), row.frame);
    }
}

TEST(NativeWrite, Code12KnowsNoCommandsWithoutAddress) {
    EXPECT_EQ(WriteBench(12).Write(kCommand, u"7"), "@01W000003712\r");
}

TEST(NativeWrite, NeitherWriteAttributeNorLimitsAreLookedAt) {
    WriteBench bench(11);
    bench.SetCell(kTwoBytes, column::kAttribute, u"R");
    EXPECT_EQ(bench.Write(kTwoBytes, u"65537"), "@01W20123010065\r");
}

TEST(NativeWrite, HidesTheEditor) {
    for (const int code : {11, 12}) {
        WriteBench bench(code);
        bench.Write(kTwoBytes, u"1");
        EXPECT_FALSE(bench.Talk().InputText.Visible());
    }
}

TEST(NativeWrite, EntryThatIsNoNumberRaisesError13AndBuildsNoFrame) {
    for (const int code : {11, 12}) {
        for (const int row : {kTwoBytes, kOneByte, kFourBytes, kTwoDecimals}) {
            WriteBench bench(code);
            EXPECT_EQ(ErrorOf([&] { bench.Write(row, u"12,5"); }), 13);
            EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40");
            EXPECT_EQ(bench.Cell(row, column::kNewValue), "12,5");
            EXPECT_TRUE(bench.Talk().InputText.Visible());
        }
    }
    WriteBench bench(11);
    bench.SetCell(kCommand, column::kLength, u"5");
    EXPECT_EQ(ErrorOf([&] { bench.Write(kCommand, u"x"); }), 13);
}

TEST(NativeWrite, FillOfCode13StandsReadyInTheBuilder) {
    WriteBench bench(13);
    bench.Rows().Select(kTwoBytes, column::kNewValue);
    bench.Talk().InputText.Set(u"51200");
    BuildTqWriteRequest(bench.Talk(), bench.dialogs);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40 30 31 57 32 30 31 32 33 30 30 43 38 31 46 30 30 0d");
}

}  // namespace
}  // namespace commtest
