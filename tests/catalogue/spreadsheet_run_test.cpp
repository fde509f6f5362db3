#include "catalogue/spreadsheet_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_spreadsheets.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::FakeSpreadsheetEngine;
using ::testing::IsEmpty;
using Kind = SpreadsheetResult::Kind;

InstrumentSheet Sheet(const Text& name) {
    return {name, SpreadsheetFileName(name), {{3, 0, Text(u"Device  ").append(name)}}};
}

class SpreadsheetRunTest : public ::testing::Test {
  protected:
    SpreadsheetRun RunOf(std::vector<InstrumentSheet> sheets) {
        return {engine, {u"/p/参数地址表.xls", u"/p/结果"}, std::move(sheets)};
    }

    static std::vector<std::string> Names(const SpreadsheetRun& run) {
        std::vector<std::string> names;
        for (const SpreadsheetRun::Entry& entry : run.Ended()) names.push_back(ToUtf8(entry.instrument));
        return names;
    }

    FakeSpreadsheetEngine engine;
};

TEST_F(SpreadsheetRunTest, OrdersTheCellsInTheSheetOfTheTemplateUnderTheResultsName) {
    SpreadsheetRun run = RunOf({Sheet(u"甲/乙")});
    run.Start();
    ASSERT_EQ(engine.Orders.size(), 1U);
    EXPECT_EQ(ToUtf8(engine.Orders[0].templatePath), "/p/参数地址表.xls");
    EXPECT_EQ(ToUtf8(engine.Orders[0].sheet), "参数表");
    EXPECT_EQ(ToUtf8(engine.Orders[0].resultPath), "/p/结果/甲-乙参数地址表.xls");
    EXPECT_THAT(engine.Orders[0].cells, ElementsAre(SheetCell{3, 0, u"Device  甲/乙"}));
}

TEST_F(SpreadsheetRunTest, HasAsManyUnderWayAsTheEngineLikes) {
    SpreadsheetRun run = RunOf({Sheet(u"甲"), Sheet(u"乙"), Sheet(u"丙"), Sheet(u"丁")});
    run.Start();
    EXPECT_THAT(engine.UnderWay(), ElementsAre(0U, 1U));
    EXPECT_EQ(ToUtf8(run.LastBegun()), "乙");
    engine.End(1);
    EXPECT_THAT(engine.UnderWay(), ElementsAre(0U, 2U));
    EXPECT_EQ(ToUtf8(run.LastBegun()), "丙");
    EXPECT_THAT(Names(run), ElementsAre("乙"));
    EXPECT_EQ(run.Total(), 4U);
    EXPECT_FALSE(run.IsOver());
}

TEST_F(SpreadsheetRunTest, TellsOfEachTableAndIsOverBehindTheLast) {
    SpreadsheetRun run = RunOf({Sheet(u"甲"), Sheet(u"乙")});
    std::vector<bool> looks;
    run.Changed = [&] { looks.push_back(run.IsOver()); };
    run.Start();
    engine.End(0);
    engine.End(1);
    EXPECT_THAT(looks, ElementsAre(false, true));
    EXPECT_EQ(run.WrittenCount(), 2U);
    EXPECT_FALSE(run.WasCancelled());
}

TEST_F(SpreadsheetRunTest, GoesOnBehindATableThatCouldNotBeWritten) {
    SpreadsheetRun run = RunOf({Sheet(u"甲"), Sheet(u"乙"), Sheet(u"丙")});
    run.Start();
    engine.End(0, {Kind::OpenElsewhere, u"/p/结果/.~lock"});
    engine.End(1);
    engine.End(2);
    EXPECT_TRUE(run.IsOver());
    EXPECT_EQ(run.WrittenCount(), 2U);
    EXPECT_EQ(run.Ended()[0].result.kind, Kind::OpenElsewhere);
    EXPECT_EQ(ToUtf8(run.Ended()[0].path), "/p/结果/甲参数地址表.xls");
    EXPECT_FALSE(run.Hindrance().has_value());
}

TEST_F(SpreadsheetRunTest, TableThatCouldNotBeLoadedIsAmongTheFailedAndNotOrdered) {
    InstrumentSheet failed = {u"乙'", u"乙'参数地址表.xls"};
    failed.failure = RuntimeError::OfStore(u"near \"'\"");
    SpreadsheetRun run = RunOf({Sheet(u"甲"), failed, Sheet(u"丙")});
    run.Start();
    EXPECT_EQ(engine.Orders.size(), 2U);
    EXPECT_THAT(Names(run), ElementsAre("乙'"));
    EXPECT_FALSE(run.Ended()[0].IsWritten());
    engine.End(0);
    engine.End(1);
    EXPECT_TRUE(run.IsOver());
    EXPECT_EQ(run.WrittenCount(), 2U);
}

TEST_F(SpreadsheetRunTest, WithoutATableToOrderItIsOverAtOnce) {
    InstrumentSheet failed = {u"乙'", u"乙'参数地址表.xls"};
    failed.failure = RuntimeError(RuntimeError::kOverflow);
    SpreadsheetRun run = RunOf({failed});
    int calls = 0;
    run.Changed = [&] { ++calls; };
    run.Start();
    EXPECT_TRUE(run.IsOver());
    EXPECT_EQ(calls, 1);
}

TEST_F(SpreadsheetRunTest, FailureThatEveryTableWouldMeetEndsIt) {
    for (const Kind kind : {Kind::NoEngine, Kind::NoTemplate, Kind::UnreadableTemplate, Kind::NoSheet}) {
        FakeSpreadsheetEngine each;
        SpreadsheetRun run(each, {}, {Sheet(u"甲"), Sheet(u"乙"), Sheet(u"丙")});
        int calls = 0;
        run.Changed = [&] { ++calls; };
        run.Start();
        each.End(0, {kind, u"参数表"});
        EXPECT_TRUE(run.IsOver());
        EXPECT_EQ(calls, 1);
        EXPECT_THAT(each.UnderWay(), IsEmpty());
        EXPECT_EQ(each.Orders.size(), 2U);
        EXPECT_EQ(run.Hindrance(), (SpreadsheetResult{kind, u"参数表"}));
    }
}

TEST_F(SpreadsheetRunTest, CancelUndoesWhatIsUnderWayAndKeepsWhatIsWritten) {
    SpreadsheetRun run = RunOf({Sheet(u"甲"), Sheet(u"乙"), Sheet(u"丙"), Sheet(u"丁")});
    run.Start();
    engine.End(0);
    int calls = 0;
    run.Changed = [&] { ++calls; };
    run.Cancel();
    EXPECT_THAT(engine.UnderWay(), IsEmpty());
    EXPECT_TRUE(run.IsOver());
    EXPECT_TRUE(run.WasCancelled());
    EXPECT_THAT(Names(run), ElementsAre("甲"));
    EXPECT_EQ(engine.Orders.size(), 3U);
    EXPECT_EQ(calls, 0);
}

TEST_F(SpreadsheetRunTest, CancelOfARunThatIsOverChangesNothing) {
    SpreadsheetRun run = RunOf({Sheet(u"甲")});
    run.Start();
    engine.End(0);
    run.Cancel();
    EXPECT_FALSE(run.WasCancelled());
}

}  // namespace
}  // namespace commtest
