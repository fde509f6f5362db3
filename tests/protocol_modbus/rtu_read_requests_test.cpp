#include "protocol_modbus/rtu_read_requests.h"

#include <gtest/gtest.h>

#include "protocol_modbus/rtu_talk_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::RtuTalkBench;

constexpr std::int32_t kAnySingleRead = 40;

// --- Single reads ---

TEST(RtuRead, SingleReadByteByByte) {
    struct Row {
        int code;
        const char16_t* instrument;
        const char16_t* length;
        const char* frame;
    };
    const Row rows[] = {{31, u"仪表", u"2", " 01 03 00 10 00 01 85 CF"},
                        {34, u"仪表", u"2", " 01 03 00 10 00 01 85 CF"},
                        {31, u"三相电量表", u"4", " 01 03 00 10 00 02 C5 CE"},
                        {31, u"流量计", u"4", " 01 04 00 10 00 04 F0 0C"},
                        {31, u"仪表", u"5", " 01 04 00 10 00 05 31 CC"},
                        {32, u"仪表", u"2", " 01 03 00 10 00 01 85 CF"},
                        {33, u"仪表", u"2", " 01 04 00 10 00 01 30 0F"},
                        {35, u"仪表", u"4", " 01 03 00 10 00 02 C5 CE"},
                        {51, u"仪表", u"4", " 01 03 00 10 00 02 C5 CE"}};
    for (const Row& row : rows) {
        RtuTalkBench bench(row.code);
        bench.SetName(row.instrument);
        bench.SetCell(6, column::kLength, row.length);
        EXPECT_EQ(bench.Request(kAnySingleRead), row.frame) << row.code << " " << row.frame;
    }
}

// A row of four bytes asks for one register; phase instruments and flow meters are the exceptions.
TEST(RtuRead, FormAReadsByLengthAndInstrument) {
    constexpr const char* kOne = " 01 03 00 10 00 01";
    constexpr const char* kTwo = " 01 03 00 10 00 02";
    constexpr const char* kFour = " 01 04 00 10 00 04";
    constexpr const char* kFive = " 01 04 00 10 00 05";
    struct Row {
        const char16_t* length;
        const char16_t* instrument;
        const char* content;
    };
    const Row rows[] = {
        {u"1", u"仪表", kOne},        {u"2", u"仪表", kOne},        {u"4", u"仪表", kOne},
        {u"4", u"三相表", kTwo},      {u"4", u"相", kTwo},          {u"4", u"涡街流量计", kFour},
        {u"4", u"流量", kOne},        {u"4", u"单相流量计", kFour}, {u"5", u"仪表", kFive},
        {u"5", u"三相流量计", kFive}, {u"1", u"流量计", kOne},      {u"2", u"三相流量计", kOne},
        {u"45", u"仪表", kOne},       {u"12", u"仪表", kOne},       {u"52", u"仪表", kFive}};
    for (const Row& row : rows) {
        RtuTalkBench bench(31);
        bench.SetName(row.instrument);
        bench.SetCell(6, column::kLength, row.length);
        EXPECT_EQ(bench.Content(kAnySingleRead), row.content)
            << ToUtf8(row.length) << " " << ToUtf8(row.instrument);
    }
}

TEST(RtuRead, UnknownLengthInFormALetsTheLastFrameGrowByTwoBytesEachTime) {
    for (const char16_t* length : {u"3", u"0", u"6", u"8", u"9"}) {
        RtuTalkBench bench(31);
        bench.SetCell(6, column::kLength, length);
        bench.Talk().SendText = u" 01 03 00 10 00 01 85 CF";
        EXPECT_EQ(bench.Request(kAnySingleRead), " 01 03 00 10 00 01 85 CF 00 00");
        EXPECT_EQ(bench.Request(kAnySingleRead), " 01 03 00 10 00 01 85 CF 00 00 00 00");
        EXPECT_EQ(bench.Talk().CurrentRow, 6);
    }
}

TEST(RtuRead, LengthThatBeginsWithNoDigitEndsFormAWithError13) {
    for (const char16_t* length : {u"字", u"A2", u"", u" 2"}) {
        RtuTalkBench bench(31);
        bench.SetCell(6, column::kLength, length);
        bench.Talk().SendText = u" 11 22";
        EXPECT_EQ(ErrorOf([&] { bench.Request(kAnySingleRead); }), 13) << ToUtf8(length);
        EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 11 22");
    }
}

TEST(RtuRead, OtherFormsLookNeitherAtLengthNorInstrument) {
    struct Row {
        int code;
        const char* content;
    };
    const Row rows[] = {{32, " 01 03 00 10 00 01"}, {33, " 01 04 00 10 00 01"}, {35, " 01 03 00 10 00 02"}};
    for (const Row& row : rows) {
        for (const char16_t* length : {u"1", u"2", u"4", u"5", u"3", u"字", u""}) {
            RtuTalkBench bench(row.code);
            bench.SetName(u"三相流量计");
            bench.SetCell(6, column::kLength, length);
            EXPECT_EQ(bench.Content(kAnySingleRead), row.content) << row.code << ToUtf8(length);
        }
    }
}

TEST(RtuRead, FirstDigitOfTheAddressIsReplacedExceptInTheSingleReadOfFormD) {
    struct Row {
        int code;
        std::int32_t commandCode;
        const char* content;
    };
    const Row rows[] = {{31, 40, " 01 03 00 10 00 01"}, {32, 40, " 01 03 00 10 00 01"},
                        {33, 40, " 01 04 00 10 00 01"}, {35, 40, " 01 03 40 10 00 02"},
                        {51, 40, " 01 03 40 10 00 02"}, {31, 60, " 01 03 00 10 00 01"},
                        {33, 60, " 01 04 00 10 00 01"}, {35, 60, " 01 03 00 10 00 08"},
                        {31, 90, " 01 08 00 10 7F FF"}, {35, 90, " 01 08 00 10 7F FF"}};
    for (const Row& row : rows) {
        RtuTalkBench bench(row.code);
        bench.SetColumn(column::kAddress, {u"4010", u"0020"});
        bench.Talk().ConDataNub.Set(u"8");
        EXPECT_EQ(bench.Content(row.commandCode), row.content) << row.code << " " << row.commandCode;
    }
}

TEST(RtuRead, AddressesOfAnotherWidthAreSplitBehindTheSecondCharacter) {
    RtuTalkBench bench(32);
    bench.SetCell(6, column::kAddress, u"12345");
    EXPECT_EQ(bench.Content(kAnySingleRead), " 01 03 02 345 00 01");
    bench.SetCell(6, column::kAddress, u"");
    EXPECT_EQ(bench.Content(kAnySingleRead), " 01 03 0  00 01");
}

TEST(RtuRead, FrameBeginsWithTheAddressText) {
    RtuTalkBench bench(31);
    bench.Talk().AddressText = u"0A";
    EXPECT_EQ(bench.Request(kAnySingleRead), " 0A 03 00 10 00 01 84 B4");
}

// --- What CommandCode asks for ---

TEST(RtuRead, PlainCodesAndThoseOfASearchReadTheRow) {
    for (const int code : {31, 32, 33, 35}) {
        for (const std::int32_t commandCode :
             {0, 10, 20, 30, 31, 32, 40, 50, 1001, 1010, 1060, 1131, 9999, 10000}) {
            RtuTalkBench bench(code);
            const std::string row6 = bench.Request(40);
            bench.Talk().SendText.clear();
            EXPECT_EQ(bench.Request(commandCode), row6) << code << " " << commandCode;
            EXPECT_EQ(bench.Talk().CommandCode, commandCode);
            EXPECT_EQ(bench.Talk().CurrentRow, 6);
        }
    }
}

TEST(RtuRead, WaitingWriteGoesOutAndItsHundredsAreTakenOff) {
    struct Row {
        std::int32_t before;
        std::int32_t after;
    };
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        for (const Row& row : {Row{101, 1}, Row{110, 10}, Row{131, 31}, Row{150, 50}, Row{160, 60},
                               Row{180, 80}, Row{200, 0}, Row{231, 31}, Row{999, 99}, Row{1000, 0}}) {
            RtuTalkBench bench(code);
            bench.SetCell(6, column::kSingleRead, u"0064");
            bench.Talk().SendText = u" 01 06 00 10 03 E8 88 B1";
            EXPECT_EQ(bench.Request(row.before), " 01 06 00 10 03 E8 88 B1") << code << " " << row.before;
            EXPECT_EQ(bench.Talk().CommandCode, row.after) << code << " " << row.before;
            EXPECT_EQ(bench.Cell(6, column::kSingleRead), "0064");
        }
    }
}

TEST(RtuRead, AnyOtherCodeSendsTheLastFrameAgain) {
    for (const int code : {31, 32, 33, 35}) {
        for (const std::int32_t commandCode : {-1, 51, 59, 61, 70, 79, 81, 89, 92, 99, 100}) {
            RtuTalkBench bench(code);
            bench.SetCell(6, column::kSingleRead, u"0064");
            bench.Talk().CurrentRow = 3;
            bench.Talk().SendText = u" 11 22";
            EXPECT_EQ(bench.Request(commandCode), " 11 22") << code << " " << commandCode;
            EXPECT_EQ(bench.Talk().CommandCode, commandCode);
            EXPECT_EQ(bench.Talk().CurrentRow, 3);
            EXPECT_EQ(bench.Cell(6, column::kSingleRead), "0064");
        }
    }
}

TEST(RtuRead, BoardTypeAndTestsAreUnknownToFormsBAndC) {
    for (const int code : {32, 33}) {
        for (const std::int32_t commandCode : {80, 90, 91}) {
            RtuTalkBench bench(code);
            bench.Talk().SendText = u" 11 22";
            bench.Talk().CurrentRow = 8;
            EXPECT_EQ(bench.Request(commandCode), " 11 22") << code << " " << commandCode;
            EXPECT_EQ(bench.Talk().CurrentRow, 8);
        }
    }
}

TEST(RtuRead, GridIsRedrawnBehindEachOperation) {
    for (const std::int32_t commandCode : {40, 60, 80, 90, 91, 131, 70}) {
        RtuTalkBench bench(31);
        bench.Rows().Redraw = false;
        bench.Request(commandCode);
        EXPECT_TRUE(bench.Rows().Redraw) << commandCode;
    }
}

TEST(RtuRead, BuilderThatEndsWithAnErrorLeavesTheRedrawOff) {
    RtuTalkBench bench(31);
    bench.Talk().ConDataNub.Set(u"多");
    EXPECT_EQ(ErrorOf([&] { bench.Request(60); }), 13);
    EXPECT_FALSE(bench.Rows().Redraw);
}

// --- The row guard ---

TEST(RtuRead, CurrentRowOutsideTheParametersBecomesRow6) {
    struct Row {
        std::int16_t before;
        std::int16_t after;
    };
    for (const std::int32_t commandCode : {40, 60}) {
        for (const Row& row :
             {Row{6, 6}, Row{9, 9}, Row{14, 14}, Row{15, 6}, Row{400, 6}, Row{5, 6}, Row{0, 6}, Row{-1, 6}}) {
            RtuTalkBench bench(31);
            bench.Talk().CurrentRow = row.before;
            bench.Request(commandCode);
            EXPECT_EQ(bench.Talk().CurrentRow, row.after) << row.before;
        }
    }
}

TEST(RtuRead, RawTextOfTheRowIsEmptied) {
    for (const std::int32_t commandCode : {40, 60}) {
        RtuTalkBench bench(31);
        bench.SetColumn(column::kSingleRead, {u"A", u"B", u"C"});
        bench.SetColumn(column::kGroupRead, {u"D", u"E", u"F"});
        bench.Talk().CurrentRow = 7;
        bench.Request(commandCode);
        EXPECT_EQ(bench.Cell(6, column::kSingleRead), "A");
        EXPECT_EQ(bench.Cell(7, column::kSingleRead), "");
        EXPECT_EQ(bench.Cell(8, column::kSingleRead), "C");
        EXPECT_EQ(bench.Cell(7, column::kGroupRead), "E");
    }
}

TEST(RtuRead, GridWithoutARow6EndsWithError9) {
    RtuTalkBench bench(31);
    bench.Rows().SetRows(6);
    EXPECT_EQ(ErrorOf([&] { bench.Request(kAnySingleRead); }), 9);
}

// --- Reads of several rows ---

TEST(RtuGroupRead, ByteByByte) {
    for (const int code : {31, 32, 34}) {
        RtuTalkBench bench(code);
        bench.Talk().ConDataNub.Set(u"5");
        EXPECT_EQ(bench.Request(60), " 01 03 00 10 00 05 84 0C") << code;
    }
    for (const int code : {35, 51}) {
        RtuTalkBench bench(code);
        bench.SetColumn(column::kAddress, {u"0010", u"0012", u"0014", u"0016", u"0030"});
        bench.Talk().ConDataNub.Set(u"5");
        EXPECT_EQ(bench.Request(60), " 01 03 00 10 00 03 04 0E") << code;
    }
    RtuTalkBench bench(33);
    bench.Talk().ConDataNub.Set(u"1");
    EXPECT_EQ(bench.Content(60), " 01 04 00 10 00 02");
}

struct GroupCase {
    int code;
    const char16_t* limit;
    std::vector<Text> addresses;  // from row 6; the rows behind stand apart
    const char* count;
};

void ExpectCounts(const std::vector<GroupCase>& cases) {
    for (const GroupCase& row : cases) {
        RtuTalkBench bench(row.code);
        bench.SetColumn(column::kAddress, std::vector<Text>(9, u"0900"));
        bench.SetColumn(column::kAddress, row.addresses);
        bench.Talk().ConDataNub.Set(row.limit);
        EXPECT_EQ(bench.Content(60).substr(12), std::string(" 00 ") + row.count)
            << row.code << " " << ToUtf8(row.limit) << " " << ToUtf8(row.addresses[0]);
    }
}

TEST(RtuGroupRead, CountIsThatOfTheRowsThatRunOn) {
    for (const int code : {31, 32, 33, 34}) {
        ExpectCounts({{code, u"9", {u"0010"}, "01"},
                      {code, u"9", {u"0010", u"0011"}, "02"},
                      {code, u"9", {u"0010", u"0011", u"0013"}, "02"},
                      {code, u"9", {u"0010", u"0011", u"0012", u"0013"}, "04"},
                      {code, u"9", {u"0010", u"0012"}, "01"},
                      {code, u"9", {u"0010", u"0010"}, "01"},
                      {code, u"9", {u"0009", u"000A"}, "02"}});
    }
}

// A row has two registers, so the first one counts nothing; the count is one of rows all the same.
TEST(RtuGroupRead, FormDCountsOneLessInStepsOfTwo) {
    for (const int code : {35, 51}) {
        ExpectCounts({{code, u"9", {u"0010", u"0012"}, "01"},
                      {code, u"9", {u"0010", u"0012", u"0014"}, "02"},
                      {code, u"9", {u"0010", u"0012", u"0014", u"0015"}, "02"},
                      {code, u"2", {u"0010", u"0012", u"0014", u"0016"}, "02"},
                      {code, u"1", {u"0010", u"0012", u"0014", u"0016"}, "01"},
                      {code, u"0", {u"0010", u"0012", u"0014", u"0016"}, "01"}});
    }
}

TEST(RtuGroupRead, FormDWithoutARowThatRunsOnAsksForTheWholeNumber) {
    ExpectCounts({{35, u"7", {u"0010"}, "07"},
                  {35, u"7", {u"0010", u"0011"}, "07"},
                  {35, u"26", {u"0010"}, "1A"},
                  {35, u"0", {u"0010"}, "00"}});
}

TEST(RtuGroupRead, LimitIsLookedAtBehindTheFirstRise) {
    const std::vector<Text> run = {u"0010", u"0011", u"0012", u"0013", u"0014"};
    ExpectCounts({{31, u"5", run, "05"},
                  {31, u"4", run, "04"},
                  {31, u"3", run, "03"},
                  {31, u"2", run, "02"},
                  {31, u"1", run, "02"},
                  {31, u"0", run, "02"},
                  {31, u"-3", run, "02"},
                  {31, u"1", {u"0010"}, "01"},
                  {31, u"32767", run, "05"}});
}

// The first digit of the row before is dropped and that of the row itself is kept.
TEST(RtuGroupRead, RowsRunOnByALopsidedComparison) {
    ExpectCounts({{31, u"9", {u"1010", u"1011"}, "01"},
                  {31, u"9", {u"4010", u"4011", u"4012"}, "01"},
                  {31, u"9", {u"1010", u"0011", u"0012"}, "03"},
                  {31, u"9", {u"0FFF", u"1000", u"1001"}, "02"},
                  {35, u"9", {u"4010", u"4012"}, "09"},
                  {35, u"9", {u"4010", u"0012"}, "01"}});
}

TEST(RtuGroupRead, BeginsAtCurrentRowAndEndsWithTheGrid) {
    struct Row {
        int code;
        std::int16_t currentRow;
        const char* content;
    };
    const Row rows[] = {{31, 6, " 01 03 00 10 00 09"},  {31, 12, " 01 03 00 16 00 03"},
                        {31, 13, " 01 03 00 17 00 02"}, {31, 14, " 01 03 00 18 00 01"},
                        {33, 14, " 01 04 00 18 00 01"}, {35, 14, " 01 03 00 18 00 14"}};
    for (const Row& row : rows) {
        RtuTalkBench bench(row.code);
        bench.Talk().ConDataNub.Set(u"20");
        bench.Talk().CurrentRow = row.currentRow;
        EXPECT_EQ(bench.Content(60), row.content) << row.code;
        EXPECT_EQ(bench.Talk().CurrentRow, row.currentRow) << "the parser moves it";
    }
}

TEST(RtuGroupRead, CountAbove255SpoilsTheFrame) {
    ExpectCounts(
        {{35, u"255", {u"0010"}, "FF"}, {35, u"256", {u"0010"}, "100"}, {35, u"4096", {u"0010"}, "1000"}});
}

TEST(RtuGroupRead, LimitIsTakenAnewEachTime) {
    RtuTalkBench bench(31);
    bench.Talk().ConDataNub.Set(u"3");
    EXPECT_EQ(bench.Content(60), " 01 03 00 10 00 03");
    bench.Talk().ConDataNub.Set(u"4");
    EXPECT_EQ(bench.Content(60), " 01 03 00 10 00 04");
}

TEST(RtuGroupRead, TickedLengthVariesByChanceButNeverBelowTwo) {
    struct Row {
        double random;
        const char* count;
    };
    for (const Row& row : {Row{0, "02"}, Row{0.2, "02"}, Row{0.374, "02"}, Row{0.375, "03"}, Row{0.5, "04"},
                           Row{0.874, "06"}, Row{0.999, "07"}}) {
        RtuTalkBench bench(31);
        bench.clock.RandomNumbers = {row.random};
        bench.Talk().ConDataNub.Set(u"8");
        bench.Talk().Check2.Set(true);
        EXPECT_EQ(bench.Content(60), std::string(" 01 03 00 10 00 ") + row.count) << row.random;
    }
}

TEST(RtuGroupRead, TickedLengthDoesNotStretchWhatRunsOn) {
    RtuTalkBench bench(31);
    bench.SetCell(8, column::kAddress, u"0050");
    bench.clock.RandomNumbers = {0.999};
    bench.Talk().ConDataNub.Set(u"8");
    bench.Talk().Check2.Set(true);
    EXPECT_EQ(bench.Content(60), " 01 03 00 10 00 02");
}

TEST(RtuGroupRead, TickedFormDWithoutARowThatRunsOnAsksForTheWholeNumber) {
    RtuTalkBench bench(35);
    bench.Talk().ConDataNub.Set(u"8");
    bench.Talk().Check2.Set(true);
    EXPECT_EQ(bench.Content(60), " 01 03 00 10 00 08");
}

TEST(RtuGroupRead, LimitThatIsNoNumberEndsTheBuilder) {
    struct Row {
        const char16_t* limit;
        int error;
    };
    for (const int code : {31, 32, 33, 35}) {
        for (const Row& row : {Row{u"多", 13}, Row{u"", 13}, Row{u"40000", 6}}) {
            RtuTalkBench bench(code);
            bench.Talk().SendText = u" 11 22";
            bench.Talk().ConDataNub.Set(row.limit);
            EXPECT_EQ(ErrorOf([&] { bench.Request(60); }), row.error) << code << ToUtf8(row.limit);
            EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 11 22");
        }
    }
}

// --- Board type and tests ---

TEST(RtuTest, BoardTypeIsAskedForWithoutARow) {
    for (const int code : {31, 34, 35, 51}) {
        RtuTalkBench bench(code);
        bench.SetCell(6, column::kSingleRead, u"0064");
        bench.Talk().CurrentRow = 99;
        EXPECT_EQ(bench.Request(80), " 01 09 00 00 00 00 DD CB") << code;
        EXPECT_EQ(bench.Talk().CurrentRow, 99);
        EXPECT_EQ(bench.Talk().CommandCode, 80);
        EXPECT_EQ(bench.Cell(6, column::kSingleRead), "0064");
    }
}

// 7982 of 65534 is the word 1F2E.
TEST(RtuTest, FixedTestByteByByte) {
    for (const int code : {31, 34, 35, 51}) {
        RtuTalkBench bench(code);
        bench.clock.RandomNumbers = {7982.5 / 65534};
        EXPECT_EQ(bench.Request(90), " 01 08 00 10 1F 2E 69 E2") << code;
        EXPECT_EQ(bench.Talk().CommandCode, 90);
    }
}

TEST(RtuTest, WordIsRandomFrom0ToBelow65534) {
    struct Row {
        double random;
        const char* word;
    };
    for (const Row& row : {Row{0, " 00 00"}, Row{0.5, " 7F FF"}, Row{10.5 / 65534, " 00 0A"},
                           Row{0.9999999, " FF FD"}, Row{1.0 - 1.5 / 65534, " FF FC"}}) {
        RtuTalkBench bench(31);
        bench.clock.RandomNumbers = {row.random};
        EXPECT_EQ(bench.Content(90), std::string(" 01 08 00 10") + row.word) << row.random;
    }
}

TEST(RtuTest, EachTestDrawsAWord) {
    RtuTalkBench bench(31);
    bench.clock.RandomNumbers = {0, 0.5};
    EXPECT_EQ(bench.Content(90), " 01 08 00 10 00 00");
    EXPECT_EQ(bench.Content(90), " 01 08 00 10 7F FF");
}

TEST(RtuTest, FixedTestStaysOnRow6) {
    for (const std::int16_t before : std::initializer_list<std::int16_t>{0, 6, 9, 14, 20}) {
        RtuTalkBench bench(31);
        bench.Talk().CurrentRow = before;
        EXPECT_EQ(bench.Content(90), " 01 08 00 10 7F FF") << before;
        EXPECT_EQ(bench.Talk().CurrentRow, 6);
    }
}

TEST(RtuTest, RisingTestWalksTheRowsAndWraps) {
    for (const int code : {31, 35}) {
        RtuTalkBench bench(code);
        bench.Talk().CurrentRow = 12;
        EXPECT_EQ(bench.Content(91), " 01 08 00 17 7F FF");
        EXPECT_EQ(bench.Talk().CurrentRow, 13);
        EXPECT_EQ(bench.Content(91), " 01 08 00 18 7F FF");
        EXPECT_EQ(bench.Content(91), " 01 08 00 10 7F FF");
        EXPECT_EQ(bench.Talk().CurrentRow, 6);
        EXPECT_EQ(bench.Content(91), " 01 08 00 11 7F FF");
    }
}

TEST(RtuTest, RisingTestFromAboveTheParametersBeginsAtRow6) {
    RtuTalkBench bench(31);
    bench.Talk().CurrentRow = 0;
    EXPECT_EQ(bench.Content(91), " 01 08 00 10 7F FF");
    bench.Talk().CurrentRow = 5;
    EXPECT_EQ(bench.Content(91), " 01 08 00 10 7F FF");
}

TEST(RtuTest, TestsEmptyTheRawTextOfTheirRow) {
    struct Row {
        std::int32_t commandCode;
        int row;
    };
    for (const Row& row : {Row{90, 6}, Row{91, 10}}) {
        RtuTalkBench bench(31);
        bench.SetColumn(column::kSingleRead, std::vector<Text>(9, u"0064"));
        bench.Talk().CurrentRow = 9;
        bench.Request(row.commandCode);
        for (int r = 6; r <= 14; ++r) {
            EXPECT_EQ(bench.Cell(r, column::kSingleRead), r == row.row ? "" : "0064") << row.commandCode << r;
        }
    }
}

TEST(RtuTest, RisingTestAtTheEndOf16BitsEndsWithError6) {
    RtuTalkBench bench(31);
    bench.Talk().CurrentRow = 32767;
    EXPECT_EQ(ErrorOf([&] { bench.Request(91); }), 6);
}

}  // namespace
}  // namespace commtest
