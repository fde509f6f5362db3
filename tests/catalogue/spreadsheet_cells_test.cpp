#include "catalogue/spreadsheet_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "catalogue/instrument_selection.h"
#include "support/bench_session.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::TestParameter;

const Text kNative = u"TQ仪表协议";
const Text kRtu = u"ModBus-RTU协议";

// The cells by their names, "A6".
std::map<std::string, std::string> ByName(const std::vector<SheetCell>& cells) {
    std::map<std::string, std::string> named;
    for (const SheetCell& cell : cells) {
        const char letter = static_cast<char>(65 + cell.column);
        const auto [at, isNew] = named.emplace(letter + std::to_string(cell.row), ToUtf8(cell.text));
        EXPECT_TRUE(isNew) << at->first;
    }
    return named;
}

class Spreadsheet : public ::testing::Test {
  protected:
    static std::vector<TestParameter> Parameters(int count) {
        std::vector<TestParameter> parameters;
        for (int i = 1; i <= count; ++i) {
            parameters.push_back({u"参数" + FromUtf8(std::to_string(i)), u"0100", u"2", u"RW", u"0"});
        }
        return parameters;
    }

    BenchSession bench;
    MainForm& form = bench.Form();
};

TEST_F(Spreadsheet, HasProtocolAndInstrumentAboveTheTableWithTheirBlanks) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.Choose(kNative, u"A表");
    auto cells = ByName(SpreadsheetCells(form));
    EXPECT_EQ(cells.at("A2"), "通讯协议:  TQ仪表协议");
    EXPECT_EQ(cells.at("A3"), "Device  A表");
    for (const char* name : {"A1", "A4", "A5", "B2", "B3", "B5"}) EXPECT_EQ(cells.count(name), 0U) << name;
}

TEST_F(Spreadsheet, GridRowGoesFiveRowsDownWithItsSerialInFront) {
    bench.Add(u"A表", kNative, u"1101", {{u"给定值", u"0001", u"2", u"RWS", u"0010"}});
    bench.Choose(kNative, u"A表");
    auto cells = ByName(SpreadsheetCells(form));
    EXPECT_EQ(cells.at("A6"), "001");
    EXPECT_EQ(cells.at("A7"), "002");
}

TEST_F(Spreadsheet, GridColumnGoesToTheColumnOfItsLetter) {
    bench.Add(u"A表", kNative, u"1101", {{u"给定值", u"0001", u"2", u"RWS", u"0010"}});
    bench.Choose(kNative, u"A表");
    for (int col = 6; col <= 10; ++col) {
        form.ParameterGrid().SetCell(1, col, u"读" + FromUtf8(std::to_string(col)));
    }
    auto cells = ByName(SpreadsheetCells(form));
    const std::pair<const char*, const char*> expected[] = {
        {"B6", "给定值"}, {"C6", "0001"}, {"D6", "2"},   {"E6", "RWS"}, {"F6", "0010"},
        {"G6", "读6"},    {"H6", "读7"},  {"I6", "读8"}, {"J6", "读9"}, {"K6", "读10"}};
    for (const auto& [name, text] : expected) EXPECT_EQ(cells.at(name), text) << name;
    EXPECT_EQ(cells.count("L6"), 0U);
}

TEST_F(Spreadsheet, EndStandsBehindTheLastRowOfTheGrid) {
    bench.Add(u"A表", kNative, u"1101", Parameters(20));
    bench.Choose(kNative, u"A表");
    auto cells = ByName(SpreadsheetCells(form));
    EXPECT_EQ(cells.at("A25"), "020");
    EXPECT_EQ(cells.at("B25"), "参数20");
    EXPECT_EQ(cells.at("A26"), "END");
    EXPECT_EQ(cells.count("B26"), 0U);
    EXPECT_EQ(cells.count("A27"), 0U);
}

TEST_F(Spreadsheet, EmptyRowsOfAShortListHaveSerialsToo) {
    bench.Add(u"A表", kNative, u"1101", Parameters(2));
    bench.Choose(kNative, u"A表");
    auto cells = ByName(SpreadsheetCells(form));
    EXPECT_EQ(cells.at("A8"), "003");
    EXPECT_EQ(cells.at("B8"), "");
    EXPECT_EQ(cells.at("A19"), "014");
    EXPECT_EQ(cells.at("A20"), "END");
}

TEST_F(Spreadsheet, SerialOfMoreThanThreeDigitsIsWhole) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.Choose(kNative, u"A表");
    form.ParameterGrid().SetRows(1001);
    auto cells = ByName(SpreadsheetCells(form));
    EXPECT_EQ(cells.at("A1004"), "999");
    EXPECT_EQ(cells.at("A1005"), "1000");
    EXPECT_EQ(cells.at("A1006"), "END");
}

TEST_F(Spreadsheet, FileHasTheNameOfTheInstrumentWithEverySlashTurned) {
    EXPECT_EQ(ToUtf8(SpreadsheetFileName(u"电流/电压/转速表")), "电流-电压-转速表参数地址表.xls");
    EXPECT_EQ(ToUtf8(SpreadsheetFileName(u"A\\表")), "A\\表参数地址表.xls");
}

TEST_F(Spreadsheet, OfTheCurrentInstrumentLoadsTheGridAnew) {
    bench.Add(u"甲/乙", kNative, u"1101", Parameters(1));
    bench.Choose(kNative, u"甲/乙");
    form.ParameterGrid().SetCell(1, 6, u"C800");
    form.ParameterGrid().SetCell(1, 7, u"C801");
    bench.store->Execute(u"Update 仪表_参数 Set 地址 = '0A1F'");
    const InstrumentSheet sheet = LoadInstrumentSheet(form);
    EXPECT_EQ(ToUtf8(sheet.instrument), "甲/乙");
    EXPECT_EQ(ToUtf8(sheet.fileName), "甲-乙参数地址表.xls");
    auto cells = ByName(sheet.cells);
    EXPECT_EQ(cells.at("C6"), "0A1F");
    EXPECT_EQ(cells.at("G6"), "");
    EXPECT_EQ(cells.at("H6"), "0");
    EXPECT_EQ(bench.Cell(1, 2), "0A1F");
    EXPECT_EQ(bench.Cell(1, 6), "");
}

TEST_F(Spreadsheet, OfTheCurrentInstrumentPassesTheStoresErrorOn) {
    form.InstrumentList().Set(u"仪表'甲");
    EXPECT_EQ(ErrorOf([&] { LoadInstrumentSheet(form); }), RuntimeError::kStore);
}

TEST_F(Spreadsheet, OfAllInstrumentsHoldsEachOfTheListInItsOrder) {
    bench.Add(u"B表", kNative, u"1101", Parameters(2));
    bench.Add(u"A表", kNative, u"1102", Parameters(20));
    bench.Add(u"C表", kRtu, u"3101", Parameters(1));
    bench.Choose(kNative, u"B表");
    const std::vector<InstrumentSheet> sheets = CollectInstrumentSheets(form);
    ASSERT_EQ(sheets.size(), 2U);
    EXPECT_EQ(ToUtf8(sheets[0].instrument), "A表");
    EXPECT_EQ(ToUtf8(sheets[1].instrument), "B表");
    EXPECT_EQ(ToUtf8(sheets[1].fileName), "B表参数地址表.xls");
    EXPECT_EQ(ByName(sheets[0].cells).at("A3"), "Device  A表");
    EXPECT_EQ(ByName(sheets[0].cells).at("B25"), "参数20");
    EXPECT_EQ(ByName(sheets[1].cells).at("A20"), "END");
    EXPECT_EQ(ByName(sheets[1].cells).at("A2"), "通讯协议:  TQ仪表协议");
}

TEST_F(Spreadsheet, OfAnInstrumentThatCannotBeLoadedHoldsTheErrorAndTheOthersStand) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.Choose(kNative, u"A表");
    form.InstrumentList().Add(u"仪表'甲");
    form.InstrumentList().Add(u"A表");
    const std::vector<InstrumentSheet> sheets = CollectInstrumentSheets(form);
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_FALSE(sheets[0].failure.has_value());
    ASSERT_TRUE(sheets[1].failure.has_value());
    EXPECT_EQ(sheets[1].failure->Number(), RuntimeError::kStore);
    EXPECT_TRUE(sheets[1].cells.empty());
    EXPECT_FALSE(sheets[2].failure.has_value());
    EXPECT_EQ(ToUtf8(form.InstrumentName()), "A表");
}

// --- What a running session would notice ---

class SpreadsheetsOfARunningSession : public Spreadsheet {
  protected:
    SpreadsheetsOfARunningSession() {
        bench.Add(u"A表", kNative, u"1101", {{u"甲", u"0100", u"2", u"RW", u"0"}});
        bench.Add(u"B表", kNative, u"1102",
                  {{u"乙", u"0000", u"3", u"W", u"0"}, {u"丙", u"0102", u"2", u"RW", u"0"}});
        bench.Add(u"C表", kNative, u"3103", Parameters(40));
        bench.Choose(kNative, u"B表");
        form.ParameterGrid().SetCell(2, 6, u"C800");
        form.ParameterGrid().SetCellColour(2, 6, kLightRed);
        form.ParameterGrid().Select(2, 6);
        form.ParameterGrid().TopRow = 2;
        form.CurrentRow = 2;
        form.FirstDataRow = 2;
        form.ProtocolCode = 11;
        form.StaticSample = u" 40 41";
        form.DynamicSample = u" 40 42";
        form.SentFrames().Add(u" 40 30");
        form.SentFrames().Set(u" 40 30");
        for (const TextView type : {u"", u"实数", u"长整数"}) form.ConDataTypeList.Add(Text(type));
        form.ConDataTypeList.Set(u"整数");
        form.Focus.Ask(FocusWish::Target::CellEditor);
    }
};

TEST_F(SpreadsheetsOfARunningSession, LeaveNameAndCodesAsTheyWere) {
    form.InstrumentList().Change = [this] {
        form.ProtocolCode = 31;
        form.CurrentRow = 9;
    };
    CollectInstrumentSheets(form);
    EXPECT_EQ(ToUtf8(form.InstrumentName()), "B表");
    EXPECT_EQ(form.InstrumentList().Items().size(), 3U);
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "1102");
    EXPECT_EQ(form.ProtocolCode, 11);
    EXPECT_EQ(form.FirstDataRow, 2);
    EXPECT_EQ(form.CurrentRow, 2);
}

TEST_F(SpreadsheetsOfARunningSession, LeaveTheGridWithItsReadValuesColoursAndPlace) {
    CollectInstrumentSheets(form);
    const Grid& grid = form.ParameterGrid();
    EXPECT_EQ(bench.Cell(1, 1), "乙");
    EXPECT_EQ(bench.Cell(2, 6), "C800");
    EXPECT_EQ(grid.CellColour(2, 6), kLightRed);
    EXPECT_EQ(grid.Rows(), 15);
    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.Col, 6);
    EXPECT_EQ(grid.TopRow, 2);
    EXPECT_TRUE(grid.Redraw);
}

TEST_F(SpreadsheetsOfARunningSession, LeaveLimitsSamplesFramesAndFocus) {
    form.Limits = {{}, {u"1", u"2"}, {u"3", u"4"}};
    CollectInstrumentSheets(form);
    ASSERT_EQ(form.Limits.size(), 3U);
    EXPECT_EQ(ToUtf8(form.Limits[2].lower), "3");
    EXPECT_EQ(ToUtf8(form.StaticSample), " 40 41");
    EXPECT_EQ(ToUtf8(form.DynamicSample), " 40 42");
    EXPECT_EQ(ToUtf8(form.SentFrames().Value()), " 40 30");
    EXPECT_THAT(form.SentFrames().Items(), ElementsAre(u" 40 30"));
    EXPECT_EQ(ToUtf8(form.ConDataTypeList.Value()), "整数");
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::CellEditor);
}

TEST_F(SpreadsheetsOfARunningSession, TellNoView) {
    const auto looks = [&] {
        return std::vector<std::uint64_t>{form.ParameterGrid().Generation(),  form.ParameterGrid().Epoch(),
                                          form.InstrumentList().Generation(), form.InstrumentList().Epoch(),
                                          form.SentFrames().Generation(),     form.SentFrames().Epoch(),
                                          form.ConDataTypeList.Generation(),  form.Focus.Generation()};
    };
    const auto before = looks();
    CollectInstrumentSheets(form);
    EXPECT_EQ(looks(), before);
}

TEST_F(SpreadsheetsOfARunningSession, LeaveTheNextRequestAsItWouldHaveBeen) {
    const auto framesWith = [&](bool collects) {
        BenchSession each;
        each.Add(u"A表", kNative, u"1101", {{u"甲", u"0100", u"2", u"RW", u"0"}});
        each.Add(u"B表", kNative, u"1102",
                 {{u"丙", u"0102", u"2", u"RW", u"0"}, {u"丁", u"0104", u"2", u"RW", u"0"}});
        each.Choose(kNative, u"B表");
        each.Form().CommandCode = 1;
        each.Press(4);
        each.line.RunUntil(1000);
        if (collects) CollectInstrumentSheets(each.Form());
        each.line.RunUntil(4000);
        return each.SentFrames();
    };
    const std::vector<std::string> frames = framesWith(false);
    EXPECT_GT(frames.size(), 2U);
    EXPECT_EQ(framesWith(true), frames);
}

}  // namespace
}  // namespace commtest
