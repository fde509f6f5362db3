#include "protocol_native/read_requests.h"

#include <gtest/gtest.h>

#include "protocol_native/native_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NativeTalkBench;
using testing::TestParameter;

// Rows 6 and 7 are dynamic, row 8 is the first with "RW", row 14 the last of the grid.
const std::vector<TestParameter> kParameters = {
    {u"测量值", u"0010", u"2", u"D", u"0"}, {u"流量", u"0012", u"4", u"D", u"0"},
    {u"上限", u"0020", u"2", u"RW", u"0"},  {u"下限", u"0022", u"2", u"RW", u"0"},
    {u"系数", u"0024", u"4", u"RW", u"0"},  {u"方式", u"0028", u"1", u"RW", u"0"},
    {u"校零", u"0000", u"4", u"W", u"0"},   {u"编号", u"0030", u"2", u"S", u"0"},
    {u"版本", u"0040", u"1", u"R", u"0"}};

// The same instrument under code 12: a length character and three address characters in one column.
std::vector<TestParameter> ParametersWithLengthInAddress() {
    std::vector<TestParameter> rows = kParameters;
    for (TestParameter& row : rows) {
        if (row.address != u"0000") row.address = row.length + row.address.substr(1);
    }
    return rows;
}

struct ReadBench : NativeTalkBench {
    explicit ReadBench(int code)
        : NativeTalkBench(code, code == 12 ? ParametersWithLengthInAddress() : kParameters) {}
};

// --- Static and dynamic reads ---

TEST(NativeRead, DynamicReadOfAddressOneByteByByte) {
    struct Row {
        int code;
        const char* frame;
    };
    const Row rows[] = {{11, " 40 30 31 52 44 31 37 0D"},
                        {12, " 40 30 31 52 44 46 37 0D"},
                        {13, " 40 30 31 52 44 31 37 30 30 0d"}};
    for (const Row& row : rows) {
        ReadBench bench(row.code);
        bench.Poll(10);
        EXPECT_EQ(ToUtf8(bench.Talk().SendText), row.frame) << row.code;
    }
}

TEST(NativeRead, CommandCodeChoosesCommandAttributeAndNextTurn) {
    struct Row {
        std::int32_t commandCode;
        const char* frame;
        std::int32_t after;
        const char* command;
        const char* attribute;
        int firstRow;
    };
    const Row rows[] = {{10, "@01RD17\r", 10, " 52 44", "D", 6},
                        {30, "@01RD17\r", 32, " 52 44", "D", 6},
                        {31, "@01RD17\r", 32, " 52 44", "D", 6},
                        {20, "@01RR01\r", 20, " 52 52", "R", 8},
                        {32, "@01RR01\r", 31, " 52 52", "R", 8}};
    for (const Row& row : rows) {
        ReadBench bench(11);
        EXPECT_EQ(bench.Poll(row.commandCode), row.frame) << row.commandCode;
        EXPECT_EQ(bench.Talk().CommandCode, row.after) << row.commandCode;
        EXPECT_EQ(ToUtf8(bench.Talk().ReadFrameCommand), row.command) << row.commandCode;
        EXPECT_EQ(ToUtf8(bench.Talk().ReadAttribute), row.attribute) << row.commandCode;
        EXPECT_EQ(bench.Talk().CurrentRow, row.firstRow) << row.commandCode;
    }
}

TEST(NativeRead, AlternatingReadBeginsWithTheDynamicOne) {
    ReadBench bench(12);
    std::vector<std::string> frames;
    for (int turn = 0; turn < 4; ++turn) frames.push_back(bench.Poll(bench.Talk().CommandCode));
    EXPECT_EQ(frames, (std::vector<std::string>{"@01RDF7\r", "@01RR05\r", "@01RDF7\r", "@01RR05\r"}));
}

TEST(NativeRead, StaticReadTakesTheFirstRowWhoseAttributeContainsItsLetter) {
    ReadBench bench(11);
    bench.SetCell(3, column::kAttribute, u"WR");
    bench.Poll(20);
    EXPECT_EQ(bench.Talk().CurrentRow, 3);
}

TEST(NativeRead, ReadWithoutARowOfItsKindLeavesCurrentRow) {
    ReadBench bench(11);
    bench.SetCell(6, column::kAttribute, u"");
    bench.SetCell(7, column::kAttribute, u"");
    bench.Talk().CurrentRow = 11;
    EXPECT_EQ(bench.Poll(10), "@01RD17\r");
    EXPECT_EQ(bench.Talk().CurrentRow, 11);
}

TEST(NativeRead, AddressStandsInTheFrameAsItIs) {
    ReadBench bench(11);
    bench.Talk().AddressText = u" 31 30 30";
    EXPECT_EQ(bench.Poll(10), "@100RD27\r");
}

// --- Replay, search, what stands in SendText ---

TEST(NativeRead, ReplayReadsByTheParityOfSendCount) {
    for (const auto build : {BuildTqReadRequest, BuildTqGroupReadRequest}) {
        ReadBench bench(11);
        Conversation& talk = bench.Talk();
        talk.CommandCode = 10001;
        talk.CurrentRow = 11;
        const bool isSum = build == BuildTqGroupReadRequest;
        talk.SendCount = 1;
        build(talk, bench.clock);
        EXPECT_EQ(bench.Frame(), isSum ? "@01RR05\r" : "@01RR01\r");
        EXPECT_EQ(ToUtf8(talk.ReadFrameCommand), " 52 52");
        talk.SendCount = 2;
        build(talk, bench.clock);
        EXPECT_EQ(bench.Frame(), isSum ? "@01RDF7\r" : "@01RD17\r");
        EXPECT_EQ(ToUtf8(talk.ReadFrameCommand), " 52 44");
        EXPECT_EQ(talk.CommandCode, 10001);
        EXPECT_EQ(talk.CurrentRow, 11);
    }
}

TEST(NativeRead, SearchReadsDynamicDataAndMovesNothing) {
    for (const std::int32_t commandCode : {1001, 1031, 9999, 10000}) {
        ReadBench bench(11);
        bench.Talk().CurrentRow = 11;
        bench.Talk().SendCount = 1;
        EXPECT_EQ(bench.Poll(commandCode), "@01RD17\r") << commandCode;
        EXPECT_EQ(ToUtf8(bench.Talk().ReadFrameCommand), " 52 44") << commandCode;
        EXPECT_EQ(bench.Talk().CommandCode, commandCode);
        EXPECT_EQ(bench.Talk().CurrentRow, 11) << commandCode;
    }
}

TEST(NativeRead, FrameOfAWriteGoesOutInPlaceOfARead) {
    struct Row {
        std::int32_t before;
        std::int32_t after;
    };
    for (const Row& row : {Row{101, 1}, Row{131, 31}, Row{160, 60}, Row{231, 131}, Row{1000, 900}}) {
        for (const int code : {11, 12}) {
            ReadBench bench(code);
            bench.Talk().CurrentRow = 11;
            bench.Talk().SendText = testing::FrameOf("@01W31E\r");
            EXPECT_EQ(bench.Poll(row.before), "@01W31E\r") << row.before;
            EXPECT_EQ(bench.Talk().CommandCode, row.after) << row.before;
            EXPECT_EQ(bench.Talk().CurrentRow, 11) << row.before;
        }
    }
}

TEST(NativeRead, FreshGroupReadFollowsAWriteUnderGroupReads) {
    ReadBench bench(11);
    bench.Talk().CurrentRow = 8;
    bench.Talk().SendText = testing::FrameOf("@01W31E\r");
    bench.Poll(160);
    EXPECT_EQ(bench.Poll(bench.Talk().CommandCode), "@01RE00200A65\r");
}

TEST(NativeRead, CommandCodeOfNoMeaningLeavesTheFrame) {
    for (const std::int32_t commandCode : {0, 1, 11, 21, 34, 70, 80, 90, 91, 100, -31}) {
        ReadBench bench(11);
        bench.Talk().SendText = testing::FrameOf("@01W31E\r");
        EXPECT_EQ(bench.Poll(commandCode), "@01W31E\r") << commandCode;
        EXPECT_EQ(bench.Talk().CommandCode, commandCode);
    }
}

TEST(NativeRead, CommandCode33LeavesASingleLineFeed) {
    ReadBench bench(11);
    bench.BuildRead(33);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), "\n");
}

TEST(NativeRead, GridIsRedrawnBehindEveryBuild) {
    for (const std::int32_t commandCode : {10, 20, 40, 60, 70, 131, 1031}) {
        for (const int code : {11, 12, 13}) {
            ReadBench bench(code);
            bench.Talk().SendText = u" 40 30 31 0D";
            bench.Talk().CurrentRow = 9;
            bench.Rows().Redraw = false;
            bench.Poll(commandCode);
            EXPECT_TRUE(bench.Rows().Redraw) << code << " " << commandCode;
        }
    }
}

// --- The fill of code 13 ---

TEST(NativeRead, Code13FillsEveryFrameAndSpellsItsLineEndSmall) {
    struct Row {
        std::int32_t commandCode;
        const char* frame;
    };
    const Row rows[] = {
        {20, "@01RR0100\r"}, {40, "@01RE0022021400\r"}, {60, "@01RE0022081E00\r"}, {1031, "@01RD1700\r"}};
    for (const Row& row : rows) {
        ReadBench bench(13);
        bench.Talk().CurrentRow = 9;
        EXPECT_EQ(bench.Poll(row.commandCode), row.frame) << row.commandCode;
        EXPECT_TRUE(bench.Talk().SendText.ends_with(u" 30 30 0d")) << row.commandCode;
    }
}

TEST(NativeRead, FrameLeftStandingUnderCode13GrowsByTwoFillBytesEachTime) {
    ReadBench bench(13);
    bench.Poll(10);
    bench.Poll(70);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40 30 31 52 44 31 37 30 30 30 30 0d");
    bench.Poll(131);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40 30 31 52 44 31 37 30 30 30 30 30 30 0d");
}

// --- Single reads ---

TEST(NativeSingleRead, NamesAddressAndLengthOfCurrentRow) {
    struct Row {
        int code;
        const char* frame;
    };
    const Row rows[] = {{11, "@01RE00240414\r"}, {12, "@01RE00240422\r"}, {13, "@01RE0024041400\r"}};
    for (const Row& row : rows) {
        for (const std::int32_t commandCode : {40, 50}) {
            ReadBench bench(row.code);
            bench.Talk().CurrentRow = 10;
            EXPECT_EQ(bench.Poll(commandCode), row.frame);
            EXPECT_EQ(bench.Talk().CurrentRow, 10);
            EXPECT_EQ(bench.Talk().CommandCode, commandCode);
        }
    }
}

TEST(NativeSingleRead, ParameterOfInstrumentTenByteByByte) {
    ReadBench bench(11);
    bench.Talk().AddressText = u" 30 41";
    bench.SetCell(10, column::kAddress, u"0123");
    bench.SetCell(10, column::kLength, u"2");
    bench.Talk().CurrentRow = 10;
    bench.Poll(40);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40 30 41 52 45 30 31 32 33 30 32 36 34 0D");
}

TEST(NativeSingleRead, Code12TakesTheLengthFromTheAddressColumn) {
    ReadBench bench(12);
    bench.SetCell(10, column::kAddress, u"8ABC");
    bench.Talk().CurrentRow = 10;
    EXPECT_EQ(bench.Poll(40), "@01RE0ABC0856\r");
}

TEST(NativeSingleRead, OnlyTheFirstCharacterOfTheLengthGoesOut) {
    ReadBench bench(11);
    bench.SetCell(10, column::kLength, u"16");
    bench.Talk().CurrentRow = 10;
    EXPECT_EQ(bench.Poll(40), "@01RE00240111\r");
}

TEST(NativeSingleRead, RowOutsideTheParametersGoesBackToTheFirst) {
    for (const int code : {11, 12}) {
        for (const std::int16_t row : std::initializer_list<std::int16_t>{15, 16, 7, 0}) {
            ReadBench bench(code);
            bench.Talk().CurrentRow = row;
            EXPECT_EQ(bench.Poll(50), code == 11 ? "@01RE00200216\r" : "@01RE0020021C\r") << row;
            EXPECT_EQ(bench.Talk().CurrentRow, 8) << row;
        }
    }
}

TEST(NativeSingleRead, LastRowIsRead) {
    ReadBench bench(11);
    bench.Talk().CurrentRow = 14;
    EXPECT_EQ(bench.Poll(50), "@01RE00400113\r");
}

TEST(NativeSingleRead, CommandRowInMidListGoesBackToTheTop) {
    ReadBench bench(11);
    bench.Talk().CurrentRow = 12;
    EXPECT_EQ(bench.Poll(50), "@01RE00200216\r");
    EXPECT_EQ(bench.Talk().CurrentRow, 8);
}

TEST(NativeSingleRead, Code12ReadsARowOfAddressZeroAsItStands) {
    ReadBench bench(12);
    bench.Talk().CurrentRow = 12;
    EXPECT_EQ(bench.Poll(50), "@01RE00000018\r");
    EXPECT_EQ(bench.Talk().CurrentRow, 12);
}

TEST(NativeSingleRead, Code13NeverGoesBack) {
    struct Row {
        std::int16_t row;
        const char* frame;
    };
    for (const Row& row : {Row{6, "@01RE0010021500\r"}, Row{12, "@01RE0000041200\r"}}) {
        ReadBench bench(13);
        bench.Talk().CurrentRow = row.row;
        EXPECT_EQ(bench.Poll(50), row.frame);
        EXPECT_EQ(bench.Talk().CurrentRow, row.row);
    }
}

TEST(NativeSingleRead, RowBeyondTheGridRaisesError9UnderCode13) {
    ReadBench bench(13);
    bench.Talk().CurrentRow = 15;
    EXPECT_EQ(ErrorOf([&] { bench.Poll(50); }), 9);
    EXPECT_EQ(ErrorOf([&] { bench.Poll(60); }), 9);
}

TEST(NativeSingleRead, EmptiesItsColumnOfTheRow) {
    for (const int code : {11, 12, 13}) {
        ReadBench bench(code);
        for (const int row : {9, 10}) bench.SetCell(row, column::kSingleRead, u"C800");
        bench.Talk().CurrentRow = 10;
        bench.Poll(50);
        EXPECT_EQ(bench.Cell(10, column::kSingleRead), "");
        EXPECT_EQ(bench.Cell(9, column::kSingleRead), "C800");
    }
}

TEST(NativeSingleRead, EmptyLengthRaisesError5BehindTheEmptiedCell) {
    for (const int code : {11, 13}) {
        ReadBench bench(code);
        bench.SetCell(10, column::kLength, u"");
        bench.SetCell(10, column::kSingleRead, u"C800");
        bench.Talk().CurrentRow = 10;
        bench.Talk().SendText = u" 40";
        EXPECT_EQ(ErrorOf([&] { bench.Poll(50); }), 5);
        EXPECT_EQ(bench.Cell(10, column::kSingleRead), "");
        EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40");
    }
}

TEST(NativeSingleRead, EmptyAddressColumnGivesCode12AShortFrame) {
    ReadBench bench(12);
    bench.SetCell(10, column::kAddress, u"");
    bench.Talk().CurrentRow = 10;
    EXPECT_EQ(bench.Poll(50), "@01RE0058\r");
}

TEST(NativeSingleRead, BringsTheRowIntoView) {
    std::vector<TestParameter> parameters = kParameters;
    parameters.resize(24, {u"参数", u"0050", u"2", u"RW", u"0"});
    NativeTalkBench bench(11, parameters);
    bench.Talk().CurrentRow = 15;
    bench.Poll(60);
    EXPECT_EQ(bench.Rows().TopRow, 1) << "a group read does not scroll";
    bench.Poll(50);
    EXPECT_EQ(bench.Rows().TopRow, 14);
}

// --- Group reads ---

struct GroupBench : ReadBench {
    explicit GroupBench(int code) : ReadBench(code) { Talk().CurrentRow = 8; }
    GroupBench& Limit(const Text& limit) {
        Talk().ConDataNub.Set(limit);
        return *this;
    }
    GroupBench& With(int row, int col, const Text& text) {
        SetCell(row, col, text);
        return *this;
    }
    std::string Poll() { return NativeTalkBench::Poll(60); }
};

TEST(NativeGroupRead, CountsTheFirstRowTwiceAndTheLastOneNever) {
    GroupBench bench(11);  // lengths 2, 2, 4, 1
    EXPECT_EQ(bench.Poll(), "@01RE00200A65\r");
    EXPECT_EQ(ToUtf8(bench.Talk().ReadAttribute), "RW");
    EXPECT_EQ(bench.Talk().ReadLimit, 16);
    EXPECT_EQ(bench.Talk().CurrentRow, 8);
    EXPECT_EQ(bench.Talk().CommandCode, 60);
}

TEST(NativeGroupRead, StopsWhereTheCountHasReachedTheLimit) {
    struct Row {
        const char16_t* limit;
        const char* frame;
    };
    const Row rows[] = {{u"3", "@01RE00200410\r"},  {u"4", "@01RE00200410\r"},  {u"5", "@01RE00200612\r"},
                        {u"6", "@01RE00200612\r"},  {u"7", "@01RE00200A65\r"},  {u"0", "@01RE00200410\r"},
                        {u"-1", "@01RE00200410\r"}, {u"4.5", "@01RE00200410\r"}};
    for (const Row& row : rows)
        EXPECT_EQ(GroupBench(11).Limit(row.limit).Poll(), row.frame) << ToUtf8(row.limit);
}

TEST(NativeGroupRead, RunEndsAtAGapOfTheAddresses) {
    EXPECT_EQ(GroupBench(11).With(10, column::kAddress, u"0025").Poll(), "@01RE00200410\r");
    EXPECT_EQ(GroupBench(11).With(9, column::kAddress, u"0021").Poll(), "@01RE00200216\r");
}

TEST(NativeGroupRead, RunGoesOnWhileTheAttributeContainsThatOfItsFirstRow) {
    EXPECT_EQ(GroupBench(11).With(10, column::kAttribute, u"R").Poll(), "@01RE00200410\r");
    EXPECT_EQ(GroupBench(11).With(10, column::kAttribute, u"SRW").Poll(), "@01RE00200A65\r");
}

TEST(NativeGroupRead, EmptyAttributeIsContainedInEvery) {
    EXPECT_EQ(GroupBench(11).With(8, column::kAttribute, u"").Poll(), "@01RE00200A65\r");
}

TEST(NativeGroupRead, AddressesAndLengthsAreHexadecimal) {
    GroupBench bench(11);
    bench.With(8, column::kAddress, u"00FE")
        .With(8, column::kLength, u"10")
        .With(9, column::kAddress, u"010E");
    EXPECT_EQ(bench.Limit(u"300").Poll(), "@01RE00FE2017\r");  // 16 and 16
}

TEST(NativeGroupRead, AddressesAreSigned16BitNumbers) {
    GroupBench bench(11);
    bench.With(8, column::kAddress, u"7FFE").With(9, column::kAddress, u"8000");
    EXPECT_EQ(bench.Poll(), "@01RE7FFE0266\r");
    bench.With(8, column::kAddress, u"FFFE")
        .With(9, column::kAddress, u"0000")
        .With(9, column::kLength, u"1");
    EXPECT_EQ(bench.Poll(), "@01REFFFE0411\r");
}

TEST(NativeGroupRead, FirstRowThatIsTheLastOfTheGridStandsAlone) {
    GroupBench bench(11);
    bench.Talk().CurrentRow = 14;
    EXPECT_EQ(bench.Poll(), "@01RE00400113\r");
}

TEST(NativeGroupRead, RunMayGoToTheLastRowOfTheGrid) {
    GroupBench bench(11);
    bench.With(13, column::kAddress, u"003F")
        .With(13, column::kLength, u"1")
        .With(13, column::kAttribute, u"R");
    bench.Talk().CurrentRow = 13;
    EXPECT_EQ(bench.Poll(), "@01RE003F0261\r");
}

TEST(NativeGroupRead, RowOutsideTheParametersGoesBackToTheFirst) {
    for (const int code : {11, 12}) {
        for (const std::int16_t row : std::initializer_list<std::int16_t>{15, 7}) {
            GroupBench bench(code);
            bench.Limit(u"4").Talk().CurrentRow = row;
            EXPECT_EQ(bench.Poll(), code == 11 ? "@01RE00200410\r" : "@01RE0020021C\r") << row;
            EXPECT_EQ(bench.Talk().CurrentRow, 8);
        }
    }
}

TEST(NativeGroupRead, CommandRowIsReadAsItStands) {
    GroupBench bench(11);
    bench.Talk().CurrentRow = 12;
    EXPECT_EQ(bench.Poll(), "@01RE00000412\r");
    EXPECT_EQ(bench.Talk().CurrentRow, 12);
}

TEST(NativeGroupRead, EmptiesTheSingleReadOfItsFirstRowOnly) {
    for (const int code : {11, 12}) {
        GroupBench bench(code);
        bench.With(8, column::kSingleRead, u"C800").With(9, column::kSingleRead, u"C800").Poll();
        EXPECT_EQ(bench.Cell(8, column::kSingleRead), "");
        EXPECT_EQ(bench.Cell(9, column::kSingleRead), "C800");
    }
}

TEST(NativeGroupRead, EmptyLengthReadsAsZero) {
    EXPECT_EQ(GroupBench(11).With(8, column::kLength, u"").Poll(), "@01RE00200014\r");
}

TEST(NativeGroupRead, CountAbove255IsNotCut) {
    GroupBench bench(11);
    bench.With(8, column::kLength, u"80").With(9, column::kAddress, u"00A0").Limit(u"256");
    EXPECT_EQ(bench.Poll(), "@01RE002010025\r");
}

TEST(NativeGroupRead, CountBeyond16BitsRaisesError6) {
    GroupBench bench(11);
    bench.With(8, column::kLength, u"4000").With(9, column::kAddress, u"4020").Talk().SendText = u" 40";
    EXPECT_EQ(ErrorOf([&] { bench.Poll(); }), 6);
    EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 40");
}

TEST(NativeGroupRead, LimitIsReadAtTheStartUnderCodes11And13) {
    for (const int code : {11, 13}) {
        GroupBench bench(code);
        bench.Talk().CurrentRow = 14;  // no second row
        EXPECT_EQ(ErrorOf([&] { bench.Limit(u"十六").Poll(); }), 13);
        EXPECT_EQ(ErrorOf([&] { bench.Limit(u"32768").Poll(); }), 6);
    }
}

TEST(NativeGroupRead, TickedCheck2TakesARandomPartOfTheLimit) {
    struct Row {
        const char16_t* limit;
        double random;
        std::int16_t readLimit;
        const char* frame;
    };
    const Row rows[] = {{u"16", 0.3, 4, "@01RE00200410\r"},
                        {u"16", 0.4, 6, "@01RE00200612\r"},
                        {u"16", 0.4375, 7, "@01RE00200A65\r"},
                        {u"16", 0.999, 15, "@01RE00200A65\r"},
                        {u"1", 0.999, 0, "@01RE00200410\r"}};
    for (const Row& row : rows) {
        GroupBench bench(11);
        bench.Limit(row.limit).Talk().Check2.Set(true);
        bench.clock.RandomNumbers = {row.random};
        EXPECT_EQ(bench.Poll(), row.frame) << row.random;
        EXPECT_EQ(bench.Talk().ReadLimit, row.readLimit);
    }
}

// --- Group reads of code 12 ---

// Rows 8 to 10 make a run: the next whole address column is the former address plus its length character.
// Lengths 15, 1, 0.
struct RunOfCode12 : GroupBench {
    RunOfCode12() : GroupBench(12) {
        With(8, column::kAddress, u"FFFF")
            .With(9, column::kAddress, u"100E")
            .With(10, column::kAddress, u"000F");
        for (const int row : {9, 10}) With(row, column::kAttribute, u"RW2");
    }
};

TEST(NativeGroupRead, Code12AlmostAlwaysEndsAtItsFirstRow) {
    GroupBench bench(12);
    EXPECT_EQ(bench.Poll(), "@01RE0020021C\r");
    EXPECT_EQ(ToUtf8(bench.Talk().ReadAttribute), "2") << "the length column";
}

TEST(NativeGroupRead, Code12LooksForTheLengthOfTheFirstRowInTheAttributes) {
    EXPECT_EQ(RunOfCode12().Limit(u"31").Poll(), "@01RE0FFF1F71\r");  // 15, 15 and 1
    EXPECT_EQ(RunOfCode12().With(10, column::kAttribute, u"RW").Poll(), "@01RE0FFF1E70\r");
    EXPECT_EQ(RunOfCode12().With(9, column::kAttribute, u"RW").Poll(), "@01RE0FFF0F70\r");
}

TEST(NativeGroupRead, Code12ComparesWithTheWholeAddressColumn) {
    EXPECT_EQ(RunOfCode12().With(9, column::kAddress, u"000E").Poll(), "@01RE0FFF0F70\r");
}

TEST(NativeGroupRead, Code12ReadsItsLimitAnewAtEachStep) {
    EXPECT_EQ(RunOfCode12().Limit(u"30").Poll(), "@01RE0FFF1E70\r");
    EXPECT_EQ(RunOfCode12().Limit(u"30.5").Poll(), "@01RE0FFF1F71\r") << "the number as it is";
    EXPECT_EQ(RunOfCode12().Limit(u"99999").Poll(), "@01RE0FFF1F71\r");
    EXPECT_EQ(ErrorOf([] { RunOfCode12().Limit(u"十六").Poll(); }), 13);
    EXPECT_EQ(GroupBench(12).Limit(u"十六").Poll(), "@01RE0020021C\r") << "no step, no look at it";
}

TEST(NativeGroupRead, Check2HasNoEffectUnderCode12) {
    RunOfCode12 bench;
    bench.Talk().Check2.Set(true);
    bench.Talk().ReadLimit = 77;
    bench.clock.RandomNumbers = {0.0};
    EXPECT_EQ(bench.Limit(u"31").Poll(), "@01RE0FFF1F71\r");
    EXPECT_EQ(bench.Talk().ReadLimit, 77);
}

// --- Finding a readable row ---

TEST(FindReadableRow, TakesTheFirstReadableParameterFromFirstDataRowOn) {
    for (const int code : {11, 12}) {
        ReadBench bench(code);
        bench.Talk().CurrentRow = 10;
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 8);
        bench.Talk().FirstDataRow = 12;  // a command row is none
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 13) << "attribute S";
        bench.Talk().FirstDataRow = 14;
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 14) << "attribute R";
    }
}

TEST(FindReadableRow, PassesOverRowsThatAreNotReadable) {
    ReadBench bench(11);
    for (const int row : {8, 9}) bench.SetCell(row, column::kAttribute, u"WD");
    bench.SetCell(10, column::kAddress, u"0000");
    FindReadableRow(bench.Talk());
    EXPECT_EQ(bench.Talk().CurrentRow, 11);
}

TEST(FindReadableRow, WithoutOneARowInsideTheGridStaysAndOneBeyondGoesToFirstDataRow) {
    for (const int code : {11, 12}) {
        ReadBench bench(code);
        for (int row = 8; row <= 14; ++row) bench.SetCell(row, column::kAttribute, u"W");
        bench.Talk().CurrentRow = 14;
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 14);
        bench.Talk().CurrentRow = 15;
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 8);
    }
}

TEST(FindReadableRow, DoesNothingUnderOtherCodes) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{13, 21, 0}) {
        ReadBench bench(11);
        bench.Talk().ProtocolCode = code;
        bench.Talk().CurrentRow = 99;
        FindReadableRow(bench.Talk());
        EXPECT_EQ(bench.Talk().CurrentRow, 99);
    }
}

}  // namespace
}  // namespace commtest
