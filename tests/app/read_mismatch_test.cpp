// Static data are read at once and then row by row: the two reads of a row are compared.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/instrument_bench.h"
#include "commands/toolbar_commands.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::InstrumentBench;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr Colour kRed = 0xC0C0FF;
constexpr Colour kWindow = 0x80000005;

// Row 6 and row 7 hold C800 and 6400; read alone they are C800 and 6500.
class RowsReadTwice : public ::testing::Test {
  protected:
    RowsReadTwice() {
        bench.Form().CommandCode = 20;
        bench.WillReply({"@01RRC800640078\r", "@01REC8006D\r", "@01RE650015\r", "@01RE640014\r"});
        bench.Press(toolbar::kStartStop);
        bench.line.RunUntil(301);
        bench.Form().CommandCode = 50;
        bench.Form().CurrentRow = 6;
    }

    InstrumentBench bench{11, {{u"上限", u"0020", u"2", u"RW", u"0"}, {u"下限", u"0022", u"2", u"RW", u"0"}}};
    Grid& grid = bench.Rows();
};

TEST_F(RowsReadTwice, HaveNoColourBeforeTheSecondRead) { EXPECT_THAT(grid.Colours(), IsEmpty()); }

TEST_F(RowsReadTwice, ThatAreEqualHaveTheColourOfTheWindow) {
    bench.line.RunUntil(402);
    EXPECT_EQ(bench.Cell(6, column::kSingleRead), "C800");
    EXPECT_THAT(grid.Colours(), ElementsAre(Pair(Pair(6, 6), kWindow)));
}

TEST_F(RowsReadTwice, ThatDifferAreRed) {
    bench.line.RunUntil(503);
    EXPECT_EQ(bench.Cell(7, column::kSingleRead), "6500");
    EXPECT_THAT(grid.Colours(), ElementsAre(Pair(Pair(6, 6), kWindow), Pair(Pair(7, 6), kRed)));
}

TEST_F(RowsReadTwice, ThatAreEqualAgainHaveTheColourOfTheWindowOnceMore) {
    bench.line.RunUntil(503);
    bench.Form().CurrentRow = 7;
    bench.line.RunUntil(604);
    EXPECT_THAT(grid.Colours(), ElementsAre(Pair(Pair(6, 6), kWindow), Pair(Pair(7, 6), kWindow)));
}

TEST_F(RowsReadTwice, LoseTheirColoursWithAnotherInstrument) {
    bench.line.RunUntil(503);
    bench.Choose(bench.Form().ConCommTypeList.Value(), u"");
    EXPECT_THAT(grid.Colours(), IsEmpty());
}

}  // namespace
}  // namespace commtest
