#include "protocol_modbus/ascii_read_requests.h"

#include <gtest/gtest.h>

#include "protocol_modbus/ascii_talk_bench.h"
#include "session/grid_rows.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::AsciiTalkBench;
using testing::ErrorOf;
using testing::TestParameter;

constexpr std::int16_t kFirstRow = AsciiTalkBench::kFirstRow;
constexpr std::int32_t kSingle = command::kReadRowByRow;
constexpr std::int32_t kMulti = command::kReadSeveralRows;

// Rows of that length at these addresses, from row 6 on.
std::vector<TestParameter> RowsAt(const std::vector<Text>& addresses, const Text& length) {
    std::vector<TestParameter> rows;
    for (const Text& address : addresses) rows.push_back({u"参数", address, length, u"R", u"0"});
    return rows;
}

std::vector<TestParameter> FiveRows(const Text& length = u"2") {
    return RowsAt({u"0010", u"0011", u"0012", u"0013", u"0014"}, length);
}

std::string FrameOfRow(int code, const Text& address, const Text& length,
                       std::int32_t commandCode = kSingle) {
    AsciiTalkBench bench(code, RowsAt({address}, length));
    return bench.PollFrom(kFirstRow, commandCode);
}

// --- Single read ---

TEST(AsciiRead, SingleReadOfEachCodeByteByByte) {
    struct Row {
        int code;
        const char16_t* length;
        const char* frame;
    };
    const Row rows[] = {{21, u"2", " 3A 30 31 30 33 30 30 31 30 30 30 30 31 45 42 0D 0A"},
                        {21, u"4", " 3A 30 31 30 33 30 30 31 30 30 30 30 32 45 41 0D 0A"},
                        {22, u"5", " 3A 30 31 30 33 31 30 30 31 37 41 0D 0A"},
                        {23, u"2", " 3A 30 31 30 33 30 31 31 30 45 42 0D 0A"}};
    for (const Row& row : rows) {
        AsciiTalkBench bench(row.code, RowsAt({u"0010"}, row.length));
        bench.PollFrom(kFirstRow, kSingle);
        EXPECT_EQ(ToUtf8(bench.Talk().SendText), row.frame) << row.code;
    }
}

struct LengthCase {
    const char16_t* length;
    const char* frame;
};

TEST(AsciiRead, CountIsHalfTheLengthRoundedHalfToEven) {
    const LengthCase cases[] = {{u"1", ":010300100000EC\r\n"}, {u"2", ":010300100001EB\r\n"},
                                {u"3", ":010300100002EA\r\n"}, {u"4", ":010300100002EA\r\n"},
                                {u"5", ":010300100002EA\r\n"}, {u"6", ":010300100003E9\r\n"},
                                {u"8", ":010300100004E8\r\n"}, {u"0", ":010300100000EC\r\n"}};
    for (const LengthCase& one : cases) {
        EXPECT_EQ(FrameOfRow(21, u"0010", one.length), one.frame) << ToUtf8(one.length);
    }
}

TEST(AsciiReadCustom01, CountIsAFifthOfTheLengthRoundedHalfToEven) {
    const LengthCase cases[] = {{u"5", ":010310017A\r\n"},   {u"4", ":010310017A\r\n"},
                                {u"2", ":010310007B\r\n"},   {u"1", ":010310007B\r\n"},
                                {u"8", ":0103100279\r\n"},   {u"2.5", ":010310007B\r\n"},
                                {u"7.5", ":0103100279\r\n"}, {u"50", ":0103100A6A\r\n"}};
    for (const LengthCase& one : cases) {
        EXPECT_EQ(FrameOfRow(22, u"0010", one.length), one.frame) << ToUtf8(one.length);
    }
}

TEST(AsciiRead, FirstDigitOfTheAddressBecomesZero) {
    EXPECT_EQ(FrameOfRow(21, u"4010", u"2"), ":010300100001EB\r\n");
    EXPECT_EQ(FrameOfRow(21, u"FABC", u"2"), ":01030ABC000135\r\n");
    EXPECT_EQ(FrameOfRow(21, u"4010", u"2", kMulti), ":010300100001EB\r\n");
}

TEST(AsciiReadCustom01, OnlyTheLastTwoDigitsOfTheAddressTravel) {
    EXPECT_EQ(FrameOfRow(22, u"1210", u"5"), ":010310017A\r\n");
    EXPECT_EQ(FrameOfRow(22, u"12AB", u"5"), ":0103AB0158\r\n");
    EXPECT_EQ(FrameOfRow(22, u"12AB", u"5", kMulti), ":0103AB0158\r\n");
}

TEST(AsciiReadCustom02, SingleReadIsAFixedFrameWhateverTheRowSays) {
    EXPECT_EQ(FrameOfRow(23, u"0FFF", u"8"), ":01030110EB\r\n");
    EXPECT_EQ(FrameOfRow(23, u"", u"1"), ":01030110EB\r\n");
}

TEST(AsciiRead, FrameCarriesTheAddressOfTheInstrument) {
    AsciiTalkBench bench(21, FiveRows());
    bench.Talk().AddressText = u"0A";
    EXPECT_EQ(bench.PollFrom(kFirstRow, kSingle), ":0A0300100001E2\r\n");
}

TEST(AsciiRead, CheckWordOfASumOf256HasThreeDigits) {
    AsciiTalkBench bench(21, FiveRows());
    bench.Talk().AddressText = u"EC";
    EXPECT_EQ(bench.PollFrom(kFirstRow, kSingle), ":EC0300100001100\r\n");
}

TEST(AsciiRead, CommandsThatReadASingleRow) {
    for (const std::int32_t commandCode : {0, 10, 20, 30, 31, 32, 40, 50, 1001, 1031, 1060}) {
        EXPECT_EQ(FrameOfRow(21, u"0010", u"2", commandCode), ":010300100001EB\r\n") << commandCode;
        EXPECT_EQ(FrameOfRow(22, u"0010", u"5", commandCode), ":010310017A\r\n") << commandCode;
        EXPECT_EQ(FrameOfRow(23, u"0010", u"2", commandCode), ":01030110EB\r\n") << commandCode;
    }
}

// --- Commands that compose nothing ---

TEST(AsciiRead, OtherCommandsLeaveTheFormerFrameAndTheGrid) {
    for (const int code : {21, 22, 23}) {
        for (const std::int32_t commandCode : {-1, 51, 59, 61, 70, 80, 90, 91, 100}) {
            AsciiTalkBench bench(code, FiveRows());
            bench.Talk().SendText = u" 41";
            bench.SetCell(kFirstRow, column::kSingleRead, u"0064");
            bench.PollFrom(3, commandCode);
            EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 41") << commandCode;
            EXPECT_EQ(bench.Talk().CommandCode, commandCode);
            EXPECT_EQ(bench.Talk().CurrentRow, 3);
            EXPECT_EQ(bench.Cell(kFirstRow, column::kSingleRead), "0064");
        }
    }
}

TEST(AsciiRead, WaitingWriteGoesOutAndItsHundredsAreTakenOff) {
    for (const int code : {21, 22, 23}) {
        const std::pair<int, int> codes[] = {{160, 60}, {131, 31}, {150, 50}, {260, 60}, {101, 1}, {1000, 0}};
        for (const auto& [waiting, plain] : codes) {
            AsciiTalkBench bench(code, FiveRows());
            bench.Talk().SendText = u" 41";
            bench.PollFrom(3, waiting);
            EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 41") << waiting;
            EXPECT_EQ(bench.Talk().CommandCode, plain);
        }
    }
}

// --- Row guard ---

TEST(AsciiRead, RowOutsideTheParametersBecomesRow6) {
    for (const int code : {21, 22, 23}) {
        for (const std::int32_t commandCode : {kSingle, kMulti}) {
            for (const std::int16_t row : std::vector<std::int16_t>{0, 5, -1, 500}) {
                AsciiTalkBench bench(code, FiveRows());
                bench.PollFrom(row, commandCode);
                EXPECT_EQ(bench.Talk().CurrentRow, 6);
            }
        }
    }
}

TEST(AsciiRead, LastRowIsInsideAndTheRowBehindItIsNot) {
    AsciiTalkBench bench(21, FiveRows());
    const auto last = static_cast<std::int16_t>(bench.Rows().Rows() - 1);
    bench.SetCell(last, column::kAddress, u"0077");
    bench.SetCell(last, column::kLength, u"2");
    EXPECT_EQ(bench.PollFrom(last, kSingle), ":01030077000184\r\n");
    EXPECT_EQ(bench.PollFrom(static_cast<std::int16_t>(last + 1), kSingle), ":010300100001EB\r\n");
}

TEST(AsciiRead, RawValueOfTheRowIsEmptiedAndThoseOfTheOthersStay) {
    for (const int code : {21, 22, 23}) {
        for (const std::int32_t commandCode : {kSingle, kMulti}) {
            AsciiTalkBench bench(code, FiveRows());
            for (const int row : {6, 7, 8}) bench.SetCell(row, column::kSingleRead, u"0064");
            bench.SetCell(7, column::kGroupRead, u"0064");
            bench.PollFrom(7, commandCode);
            EXPECT_EQ(bench.Cell(6, column::kSingleRead), "0064");
            EXPECT_EQ(bench.Cell(7, column::kSingleRead), "");
            EXPECT_EQ(bench.Cell(8, column::kSingleRead), "0064");
            EXPECT_EQ(bench.Cell(7, column::kGroupRead), "0064");
        }
    }
}

// --- Several rows ---

struct RunBench : AsciiTalkBench {
    RunBench(int code, const std::vector<TestParameter>& rows, const Text& limit)
        : AsciiTalkBench(code, rows) {
        Talk().ConDataNub.Set(limit);
    }
    std::string Run(std::int16_t row = kFirstRow) { return PollFrom(row, kMulti); }
};

TEST(AsciiReadSeveralRows, RowsThatRunTogetherAreCountedUpToTheLimit) {
    for (const int code : {21, 23}) {
        EXPECT_EQ(RunBench(code, FiveRows(), u"16").Run(), ":010300100005E7\r\n");
        EXPECT_EQ(RunBench(code, FiveRows(), u"4").Run(), ":010300100004E8\r\n");
        EXPECT_EQ(RunBench(code, FiveRows(), u"16").Run(8), ":010300120003E7\r\n");
        EXPECT_EQ(RunBench(code, FiveRows(), u"16").Run(10), ":010300140001E7\r\n");
    }
}

TEST(AsciiReadSeveralRows, LimitIsLookedAtAfterARowIsAddedOnly) {
    for (const char16_t* limit : {u"1", u"0", u"-3", u"2"}) {
        EXPECT_EQ(RunBench(21, FiveRows(), limit).Run(), ":010300100002EA\r\n") << ToUtf8(limit);
    }
}

TEST(AsciiReadSeveralRows, RunEndsAtAGap) {
    const auto rows = RowsAt({u"0010", u"0011", u"0013", u"0014"}, u"2");
    EXPECT_EQ(RunBench(21, rows, u"16").Run(), ":010300100002EA\r\n");
}

// The first digit of the row before is dropped and that of the row itself is kept.
TEST(AsciiReadSeveralRows, OnlyAddressesThatBeginWithZeroRunTogether) {
    EXPECT_EQ(RunBench(21, RowsAt({u"4010", u"4011", u"4012"}, u"2"), u"16").Run(), ":010300100001EB\r\n");
    EXPECT_EQ(RunBench(21, RowsAt({u"4010", u"0011", u"4012"}, u"2"), u"16").Run(), ":010300100002EA\r\n");
}

TEST(AsciiReadSeveralRows, StepIsTheLengthOfTheFirstRow) {
    const auto rows = RowsAt({u"0010", u"0012", u"0014"}, u"4");
    EXPECT_EQ(RunBench(21, rows, u"16").Run(), ":010300100006E6\r\n");
    RunBench mixed(21, rows, u"16");
    mixed.SetCell(7, column::kLength, u"2");
    EXPECT_EQ(mixed.Run(), ":010300100006E6\r\n");
    EXPECT_EQ(mixed.Run(7), ":010300120001E9\r\n");
}

TEST(AsciiReadSeveralRows, LimitStandsInWords) {
    const auto rows = RowsAt({u"0010", u"0012", u"0014", u"0016"}, u"4");
    EXPECT_EQ(RunBench(21, rows, u"5").Run(), ":010300100006E6\r\n");
    EXPECT_EQ(RunBench(21, rows, u"4").Run(), ":010300100004E8\r\n");
}

// 1.5 a row on addresses that cannot follow at a half: the run is the first row alone, of 1.5, that is 2.
TEST(AsciiReadSeveralRows, StepOfAHalfNeverMeetsAnAddress) {
    EXPECT_EQ(RunBench(21, RowsAt({u"0010", u"0011", u"0012"}, u"3"), u"16").Run(), ":010300100002EA\r\n");
}

// 2.5 a row, which is 2 in the count but not in the step: rows two apart do not run on, nor do rows three
// apart.
TEST(AsciiReadSeveralRows, StepOfTwoAndAHalfMeetsNeitherTwoNorThree) {
    for (const int code : {21, 23}) {
        EXPECT_EQ(RunBench(code, RowsAt({u"0010", u"0012", u"0014"}, u"5"), u"16").Run(),
                  ":010300100002EA\r\n");
        EXPECT_EQ(RunBench(code, RowsAt({u"0010", u"0013", u"0016"}, u"5"), u"16").Run(),
                  ":010300100002EA\r\n");
    }
}

// Rows two apart do run on where the first one is of 4: 2, then 4.
TEST(AsciiReadSeveralRows, LengthOfFiveBehindTheFirstRowIsNotLookedAt) {
    RunBench bench(21, RowsAt({u"0010", u"0012"}, u"5"), u"16");
    bench.SetCell(kFirstRow, column::kLength, u"4");
    EXPECT_EQ(bench.Run(), ":010300100004E8\r\n");
}

TEST(AsciiReadSeveralRows, LengthZeroRunsOnAtTheSameAddress) {
    EXPECT_EQ(RunBench(21, RowsAt({u"0010", u"0010", u"0010"}, u"0"), u"16").Run(), ":010300100000EC\r\n");
}

TEST(AsciiReadSeveralRows, TickedCheckDrawsTheLimit) {
    struct Row {
        double random;
        const char* frame;
    };
    const Row rows[] = {{0.99, ":010300100004E8\r\n"},  // 4 of 5
                        {0.65, ":010300100003E9\r\n"},  // 3
                        {0.0, ":010300100002EA\r\n"}};  // 0, looked at after a row is added
    for (const Row& row : rows) {
        RunBench bench(21, FiveRows(), u"5");
        bench.Talk().Check2.Set(true);
        bench.clock.RandomNumbers = {row.random};
        EXPECT_EQ(bench.Run(), row.frame) << row.random;
    }
}

TEST(AsciiReadSeveralRows, LimitIsTakenAnewForEachFrame) {
    RunBench bench(21, FiveRows(), u"2");
    EXPECT_EQ(bench.Run(), ":010300100002EA\r\n");
    bench.Talk().ConDataNub.Set(u"4");
    EXPECT_EQ(bench.Run(), ":010300100004E8\r\n");
}

TEST(AsciiReadSeveralRows, BuilderDoesNotMoveTheRow) {
    for (const int code : {21, 22, 23}) {
        RunBench bench(code, FiveRows(), u"16");
        bench.Run(7);
        EXPECT_EQ(bench.Talk().CurrentRow, 7);
    }
}

// Code 22: addresses go on by half the length of the row before, the count by a fifth of it.
TEST(AsciiReadCustom01SeveralRows, AddressesGoByWordsAndTheCountByFives) {
    EXPECT_EQ(RunBench(22, RowsAt({u"0010", u"0012", u"0014"}, u"4"), u"16").Run(), ":0103100378\r\n");
    EXPECT_EQ(RunBench(22, RowsAt({u"0010", u"0015", u"001A"}, u"10"), u"16").Run(), ":0103100279\r\n");
    EXPECT_EQ(RunBench(22, RowsAt({u"0010", u"0011", u"0012"}, u"5"), u"16").Run(), ":010310017A\r\n");
}

TEST(AsciiReadCustom01SeveralRows, OnlyTheFirstDigitOfTheLengthBeforeCounts) {
    EXPECT_EQ(RunBench(22, RowsAt({u"0010", u"0014"}, u"8"), u"16").Run(), ":0103100477\r\n");
    // The first count is that of the whole length, 16; behind it 1.6 more.
    EXPECT_EQ(RunBench(22, RowsAt({u"0010", u"0014"}, u"80"), u"40").Run(), ":0103101278\r\n");
}

TEST(AsciiReadCustom01SeveralRows, LengthOfTheRowBeforeIsTheStep) {
    RunBench bench(22, RowsAt({u"0010", u"0012", u"0016"}, u"4"), u"16");
    bench.SetCell(7, column::kLength, u"8");
    EXPECT_EQ(bench.Run(), ":0103100477\r\n");  // 0.8 is 1, 1.8 is 2, 3.6 is 4
}

TEST(AsciiReadCustom01SeveralRows, LimitEndsTheRun) {
    const auto rows = RowsAt({u"0010", u"0012", u"0014", u"0016"}, u"4");
    EXPECT_EQ(RunBench(22, rows, u"3").Run(), ":0103100378\r\n");
    EXPECT_EQ(RunBench(22, rows, u"0").Run(), ":0103100279\r\n");
}

// --- Failures ---

TEST(AsciiRead, LengthThatIsNoNumberRaisesError13AndLeavesTheFrame) {
    for (const int code : {21, 22, 23}) {
        for (const std::int32_t commandCode : {kSingle, kMulti}) {
            for (const char16_t* length : {u"", u"x"}) {
                AsciiTalkBench bench(code, RowsAt({u"0010"}, length));
                bench.Talk().SendText = u" 41";
                bench.SetCell(kFirstRow, column::kSingleRead, u"0064");
                EXPECT_EQ(ErrorOf([&] { bench.PollFrom(kFirstRow, commandCode); }), 13);
                EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 41");
                EXPECT_EQ(bench.Cell(kFirstRow, column::kSingleRead), "");
            }
        }
    }
}

TEST(AsciiReadSeveralRows, LimitThatIsNoNumberRaisesError13AndLeavesTheFrame) {
    for (const int code : {21, 22, 23}) {
        for (const bool ticked : {false, true}) {
            RunBench bench(code, FiveRows(), u"多");
            bench.Talk().Check2.Set(ticked);
            bench.Talk().SendText = u" 41";
            EXPECT_EQ(ErrorOf([&] { bench.Run(); }), 13);
            EXPECT_EQ(ToUtf8(bench.Talk().SendText), " 41");
        }
    }
}

TEST(AsciiRead, SingleReadDoesNotLookAtTheLimit) {
    AsciiTalkBench bench(21, FiveRows());
    bench.Talk().ConDataNub.Set(u"多");
    EXPECT_EQ(bench.PollFrom(kFirstRow, kSingle), ":010300100001EB\r\n");
}

TEST(AsciiReadCustom01SeveralRows, EmptyLengthOfARowBeforeRaisesError13) {
    RunBench bench(22, RowsAt({u"0010", u"0012", u"0014"}, u"4"), u"16");
    bench.SetCell(7, column::kLength, u"");
    EXPECT_EQ(ErrorOf([&] { bench.Run(); }), 13);
}

TEST(AsciiRead, LengthBeyond16BitsRaisesError6) {
    EXPECT_EQ(ErrorOf([] { FrameOfRow(21, u"0010", u"65536"); }), 6);
    EXPECT_EQ(ErrorOf([] { FrameOfRow(22, u"0010", u"200000"); }), 6);
}

}  // namespace
}  // namespace commtest
