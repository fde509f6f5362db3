#include "protocol_modbus/read_operation.h"

#include <gtest/gtest.h>

#include "session/grid_rows.h"
#include "support/conversation_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::StandingClock;
using enum ReadOperation;

TEST(TakeReadOperation, SortsTheCommandCodeAndTakesAWriteOff) {
    struct Row {
        std::int32_t code;
        ReadOperation operation;
        std::int32_t after;
    };
    const Row rows[] = {
        {-1, Nothing, -1},       {0, SingleRow, 0},        {10, SingleRow, 10},   {20, SingleRow, 20},
        {31, SingleRow, 31},     {32, SingleRow, 32},      {40, SingleRow, 40},   {50, SingleRow, 50},
        {51, Nothing, 51},       {59, Nothing, 59},        {60, SeveralRows, 60}, {61, Nothing, 61},
        {79, Nothing, 79},       {80, BoardType, 80},      {81, Nothing, 81},     {89, Nothing, 89},
        {90, FixedTest, 90},     {91, RisingTest, 91},     {92, Nothing, 92},     {100, Nothing, 100},
        {101, Nothing, 1},       {110, Nothing, 10},       {160, Nothing, 60},    {191, Nothing, 91},
        {200, Nothing, 0},       {260, Nothing, 60},       {1000, Nothing, 0},    {1001, SingleRow, 1001},
        {1060, SingleRow, 1060}, {10031, SingleRow, 10031}};
    Operation asked;
    for (const Row& row : rows) {
        asked.CommandCode = row.code;
        EXPECT_EQ(TakeReadOperation(asked), row.operation) << row.code;
        EXPECT_EQ(asked.CommandCode, row.after) << row.code;
    }
}

TEST(PrepareRowForRead, KeepsCurrentRowAmongTheParameters) {
    struct Row {
        std::int16_t before;
        std::int16_t after;
    };
    for (const Row& row :
         {Row{-1, 6}, Row{0, 6}, Row{5, 6}, Row{6, 6}, Row{7, 7}, Row{9, 9}, Row{10, 6}, Row{32767, 6}}) {
        ParameterRows parameters;
        Grid& grid = parameters.ParameterGrid();
        grid.SetSize(10, column::kCount);
        for (int r = 0; r < 10; ++r) grid.SetCell(r, column::kSingleRead, u"0064");
        parameters.CurrentRow = row.before;
        PrepareRowForRead(parameters);
        EXPECT_EQ(parameters.CurrentRow, row.after) << row.before;
        for (int r = 0; r < 10; ++r) {
            EXPECT_EQ(ToUtf8(grid.Cell(r, column::kSingleRead)), r == row.after ? "" : "0064") << r;
        }
    }
}

TEST(PrepareRowForRead, GridWithoutRow6IsError9) {
    ParameterRows rows;
    rows.ParameterGrid().SetSize(6, column::kCount);
    EXPECT_EQ(ErrorOf([&] { PrepareRowForRead(rows); }), 9);
}

TEST(TakeReadLimit, IsTheNumberInItsBox) {
    struct Row {
        const char16_t* box;
        std::int16_t limit;
    };
    Operation asked;
    StandingClock clock;
    for (const Row& row : {Row{u"5", 5}, Row{u"0", 0}, Row{u"-3", -3}, Row{u" 7 ", 7}, Row{u"2.5", 2},
                           Row{u"3.5", 4}, Row{u"1E02", 100}, Row{u"32767", 32767}}) {
        asked.ConDataNub.Set(row.box);
        EXPECT_EQ(TakeReadLimit(asked, clock), row.limit) << ToUtf8(row.box);
    }
    for (const char16_t* box : {u"", u"多", u"5个"}) {
        asked.ConDataNub.Set(box);
        EXPECT_EQ(ErrorOf([&] { TakeReadLimit(asked, clock); }), 13) << ToUtf8(box);
    }
    asked.ConDataNub.Set(u"32768");
    EXPECT_EQ(ErrorOf([&] { TakeReadLimit(asked, clock); }), 6);
}

TEST(TakeReadLimit, TickedIsTheWholePartOfARandomShare) {
    struct Row {
        double random;
        const char16_t* box;
        std::int16_t limit;
    };
    for (const Row& row : {Row{0, u"8", 0}, Row{0.124, u"8", 0}, Row{0.125, u"8", 1}, Row{0.5, u"8", 4},
                           Row{0.999, u"8", 7}, Row{0.5, u"5", 2}, Row{0.5, u"0", 0}}) {
        Operation asked;
        StandingClock clock;
        clock.RandomNumbers = {row.random};
        asked.ConDataNub.Set(row.box);
        asked.Check2.Set(true);
        EXPECT_EQ(TakeReadLimit(asked, clock), row.limit) << row.random;
    }
}

TEST(TakeReadLimit, DrawsARandomNumberOnlyWhereItIsTicked) {
    Operation asked;
    StandingClock clock;
    clock.RandomNumbers = {0.25, 0.5};
    asked.ConDataNub.Set(u"8");
    TakeReadLimit(asked, clock);
    asked.Check2.Set(true);
    EXPECT_EQ(TakeReadLimit(asked, clock), 2);
    EXPECT_EQ(TakeReadLimit(asked, clock), 4);
}

TEST(ZeroToppedAddress, FirstDigitBecomesZero) {
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"4010")), "0010");
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"0010")), "0010");
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"FFFF")), "0FFF");
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"12345")), "02345");
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"4")), "0");
    EXPECT_EQ(ToUtf8(ZeroToppedAddress(u"")), "0");
}

TEST(RowRunsOn, DropsTheFirstDigitOfTheRowBeforeOnly) {
    struct Row {
        const char16_t* before;
        const char16_t* address;
        double step;
        bool runsOn;
    };
    const Row rows[] = {
        {u"0010", u"0011", 1, true},          {u"0010", u"0012", 1, false}, {u"0010", u"0012", 2, true},
        {u"0010", u"0010", 1, false},         {u"0011", u"0010", 1, false}, {u"1010", u"1011", 1, false},
        {u"1010", u"0011", 1, true},          {u"0FFF", u"1000", 1, true},  {u"0010", u"8011", 1, false},
        {u"000F", u"0010", 1, true},          {u"010", u"11", 1, true},     {u"字", u"0001", 1, true},
        {u"07FFFFFFF", u"80000000", 1, false}};
    Grid grid;
    grid.SetSize(9, column::kCount);
    for (const Row& row : rows) {
        grid.SetCell(7, column::kAddress, row.before);
        grid.SetCell(8, column::kAddress, row.address);
        EXPECT_EQ(RowRunsOn(grid, 8, row.step), row.runsOn)
            << ToUtf8(row.before) << " " << ToUtf8(row.address);
    }
}

}  // namespace
}  // namespace commtest
