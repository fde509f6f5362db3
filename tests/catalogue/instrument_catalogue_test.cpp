#include "catalogue/instrument_catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/number_columns.h"
#include "runtime/runtime_error.h"
#include "support/error_of.h"
#include "support/statement_table.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

const Text kProtocol = u"TQ仪表协议";

// The rows of a result as texts, the fields joined by blanks, a null as "null".
std::vector<std::string> Lines(const StoreRows& result) {
    std::vector<std::string> lines;
    for (const auto& row : result.rows) {
        std::string line;
        for (const StoreValue& value : row)
            line += (line.empty() ? "" : " ") + (value ? ToUtf8(*value) : "null");
        lines.push_back(line);
    }
    return lines;
}

constexpr std::size_t kExportColumns = 9;

std::string LineOf(const RowCursor& row, std::size_t columns) {
    std::string line = ToUtf8(row.At(0));
    for (std::size_t i = 1; i < columns; ++i) line += " " + ToUtf8(row.At(i));
    return line;
}

class InstrumentCatalogueTest : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    void AddInstrument(int id, const Text& name, const Text& code, int classId = 1) {
        InstrumentRecord instrument;
        instrument.id = id;
        instrument.name = name;
        instrument.code = code;
        instrument.protocol = kProtocol;
        instrument.sortKey = code.substr(0, 2);
        instrument.className = u"类别甲";
        instrument.classId = FromUtf8(std::to_string(classId));
        catalogue.AddInstrument(instrument);
    }

    void AddParameter(int id, int instrument, const Text& name, const Text& address, const Text& length) {
        ParameterRecord parameter;
        parameter.id = id;
        parameter.instrumentId = instrument;
        parameter.name = name;
        parameter.address = address;
        parameter.length = length;
        parameter.attribute = u"RW";
        parameter.decimalPoint = u"0";
        parameter.lowerLimit = u"-1";
        parameter.upperLimit = u"9";
        catalogue.AddParameter(parameter);
    }

    void AddProtocol(const Text& number, const Text& name, const StoreValue& code) {
        store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"}, {u"协议规定", number, name, code});
    }

    void AddChip(const Text& code, const Text& file) {
        store->AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"功能简述", u"实例", u"属性"},
                      {code, file, u"2024-05-06", u"功能", u"实例甲", u"R"});
    }

    std::unique_ptr<Store> store = testing::MakeEmptyCatalogue(GetParam());
    InstrumentCatalogue catalogue{*store};
};

TEST_P(InstrumentCatalogueTest, ParametersComeInTheOrderOfTheirKeys) {
    AddInstrument(1, u"表一", u"11000101");
    AddParameter(2, 1, u"后", u"0012", u"2");
    AddParameter(1, 1, u"先", u"0010", u"2");
    EXPECT_THAT(Lines(catalogue.ParametersOfInstrument(u"表一")),
                ElementsAre("先 0010 2 RW 0 9 -1 1 TQ仪表协议 11000101 -1",
                            "后 0012 2 RW 0 9 -1 1 TQ仪表协议 11000101 -1"));
}

TEST_P(InstrumentCatalogueTest, InstrumentWithoutParametersHasNoRowsAndIsNotAmongThoseOfItsProtocol) {
    AddInstrument(1, u"表一", u"11000101");
    AddInstrument(2, u"空表", u"11000102");
    AddParameter(1, 1, u"值", u"0010", u"2");
    EXPECT_THAT(catalogue.ParametersOfInstrument(u"空表").rows, IsEmpty());
    EXPECT_THAT(Lines(catalogue.InstrumentsOfProtocol(kProtocol)),
                ElementsAre("表一 TQ仪表协议 1 11000101 1"));
    EXPECT_THAT(Lines(catalogue.InstrumentsByCode(kProtocol)),
                ElementsAre("表一 TQ仪表协议 11000101", "空表 TQ仪表协议 11000102"));
}

TEST_P(InstrumentCatalogueTest, EachInstrumentOfAProtocolStandsOnceHoweverManyParametersItHas) {
    AddInstrument(1, u"表一", u"11000101");
    AddParameter(1, 1, u"值一", u"0010", u"2");
    AddParameter(2, 1, u"值二", u"0012", u"2");
    EXPECT_THAT(catalogue.InstrumentsOfProtocol(kProtocol).rows, SizeIs(1));
    EXPECT_THAT(catalogue.InstrumentsOfProtocol(u"别的协议").rows, IsEmpty());
}

TEST_P(InstrumentCatalogueTest, QuoteInANameBreaksItsStatementWithTheEnginesText) {
    AddInstrument(1, u"O'K", u"11000101");
    try {
        catalogue.ParametersOfInstrument(u"O'K");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        const std::string message = ToUtf8(error.StandardMessage());
        if (GetParam().engine == StoreEngine::Sqlite) {
            EXPECT_EQ(message, "数据库错误:\r\n\r\nnear \"K\": syntax error");
        } else {
            EXPECT_THAT(message, StartsWith("数据库错误:\r\n\r\nERROR: syntax error at or near \"K\""));
        }
    }
}

TEST_P(InstrumentCatalogueTest, AQuoteIsStoredAsData) {
    AddInstrument(1, u"O'K", u"11000101");
    EXPECT_EQ(ToUtf8(catalogue.AllInstruments().At(0, 1)), "O'K");
}

TEST_P(InstrumentCatalogueTest, ToolbarListHasTheLengthApartOrInFrontOfTheAddress) {
    AddInstrument(1, u"表一", u"11000101");
    AddParameter(1, 1, u"值", u"0010", u"2");
    EXPECT_THAT(Lines(catalogue.ToolbarParameters(ParameterListForm::LengthApart, u"表一")),
                ElementsAre("值 0010 2 0 RW -1 9"));
    EXPECT_THAT(Lines(catalogue.ToolbarParameters(ParameterListForm::LengthInFront, u"表一")),
                ElementsAre("值 20010 0 RW -1 9"));
}

TEST_P(InstrumentCatalogueTest, ClearingTakesTheParametersAlongAndLeavesTheRest) {
    AddInstrument(1, u"表一", u"11000101");
    AddParameter(1, 1, u"值", u"0010", u"2");
    AddChip(u"11000101", u"A.BIN");
    catalogue.AddClass(u"类别甲", 1);
    catalogue.ClearCatalogue();
    EXPECT_THAT(catalogue.AllInstruments().rows, IsEmpty());
    EXPECT_THAT(catalogue.AllParameters().rows, IsEmpty());
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(1));
    EXPECT_THAT(store->Query(u"SELECT * From 仪表_芯片").rows, SizeIs(1));
}

TEST_P(InstrumentCatalogueTest, ClearingInSlicesEndsWhereNoInstrumentIsLeft) {
    for (const int id : {-3, 1, 16, 17, 18, 5000}) AddInstrument(id, u"表", u"11000101");
    AddParameter(1, 16, u"值", u"0010", u"2");
    AddParameter(2, 18, u"值", u"0010", u"2");
    EXPECT_TRUE(catalogue.ClearSomeInstruments());
    EXPECT_EQ(catalogue.Size().instruments, 3);
    EXPECT_EQ(catalogue.Size().parameters, 1);
    EXPECT_TRUE(catalogue.ClearSomeInstruments());
    EXPECT_TRUE(catalogue.ClearSomeInstruments());
    EXPECT_EQ(catalogue.Size().instruments, 0);
    EXPECT_FALSE(catalogue.ClearSomeInstruments());
}

TEST_P(InstrumentCatalogueTest, SizeIsTheNumberOfInstrumentsAndOfParameters) {
    EXPECT_EQ(catalogue.Size().instruments, 0);
    EXPECT_EQ(catalogue.Size().parameters, 0);
    AddInstrument(1, u"表一", u"11000101");
    AddInstrument(2, u"表二", u"11000101");
    for (const int id : {1, 2, 3}) AddParameter(id, 1, u"值", u"0010", u"2");
    EXPECT_EQ(catalogue.Size().instruments, 2);
    EXPECT_EQ(catalogue.Size().parameters, 3);
}

TEST_P(InstrumentCatalogueTest, InstrumentsOfTheSameNameComeInTheOrderOfTheirNumbers) {
    for (const int id : {30, 10, 20}) {
        AddInstrument(id, id == 20 ? u"乙" : u"甲", u"11000101");
        AddParameter(id, id, u"值", u"0010", u"2");
        AddParameter(100 - id, id, u"值", u"0010", u"2");
    }
    EXPECT_THAT(Lines(catalogue.InstrumentsOfProtocol(kProtocol)),
                ElementsAre("乙 TQ仪表协议 20 11000101 1", "甲 TQ仪表协议 10 11000101 1",
                            "甲 TQ仪表协议 30 11000101 1"));
}

TEST_P(InstrumentCatalogueTest, ParameterOfNoInstrumentIsRefused) {
    EXPECT_THROW(AddParameter(1, 7, u"值", u"0010", u"2"), RuntimeError);
}

TEST_P(InstrumentCatalogueTest, InstrumentWithoutAChipIsInTheListsWithNulls) {
    AddInstrument(1, u"表一", u"11000102");
    AddInstrument(2, u"表二", u"11000101");
    AddChip(u"11000101", u"A.BIN");
    const auto expected = ElementsAre("TQ仪表协议 类别甲 表二 A.BIN 2024-05-06 功能 实例甲 R 11000101 2 1",
                                      "TQ仪表协议 类别甲 表一 null null null null null 11000102 1 null");
    EXPECT_THAT(Lines(catalogue.CatalogueList()), expected);
    EXPECT_EQ(catalogue.CatalogueList().ColumnOf(u"芯片ID"), 10);
}

TEST_P(InstrumentCatalogueTest, ChipListIsInTheOrderOfTheSortKey) {
    AddInstrument(1, u"表一", u"12000101");
    AddInstrument(2, u"表二", u"11000101", 2);
    AddInstrument(3, u"表三", u"11000201", 1);
    const StoreRows list = catalogue.ChipList();
    ASSERT_THAT(list.rows, SizeIs(3));
    EXPECT_EQ(ToUtf8(list.At(0, 2)), "表三");
    EXPECT_EQ(ToUtf8(list.At(1, 2)), "表二");
    EXPECT_EQ(ToUtf8(list.At(2, 2)), "表一");
}

TEST_P(InstrumentCatalogueTest, ChipRecordIsFoundByInstrumentAndFile) {
    AddInstrument(1, u"表一", u"11000101");
    AddChip(u"11000101", u"A.BIN");
    AddChip(u"11000101", u"B.BIN");
    EXPECT_THAT(Lines(catalogue.ChipRecord(u"表一", u"B.BIN")),
                ElementsAre("表一 11000101 B.BIN 2024-05-06 实例甲 R 功能 1 2"));
}

TEST_P(InstrumentCatalogueTest, CodeIsFoundByProtocolAndName) {
    AddInstrument(1, u"表一", u"11000101");
    EXPECT_THAT(Lines(catalogue.InstrumentCode(kProtocol, u"表一")), ElementsAre("表一 11000101"));
    EXPECT_THAT(catalogue.InstrumentCode(u"别的协议", u"表一").rows, IsEmpty());
}

TEST_P(InstrumentCatalogueTest, DeletedRecordingLeavesTheListAndStaysAmongTheInstrumentsOfItsProtocol) {
    testing::AddRecording(*store, u"表一", u"甲", u" 40");
    testing::AddRecording(*store, u"表二", u"乙", u" 40");
    catalogue.DeleteRecording(u"表一", u"甲");
    EXPECT_THAT(Lines(catalogue.RecordingsList()), ElementsAre("TQ仪表协议 表二 乙 2024-05-06"));
    EXPECT_THAT(Lines(catalogue.RecordedInstruments(kProtocol)),
                ElementsAre("表一 TQ仪表协议", "表二 TQ仪表协议"));
    EXPECT_THAT(catalogue.FramesOfRecording(u"表一", u"甲").rows, SizeIs(1));
}

TEST_P(InstrumentCatalogueTest, DeletingARecordingMarksOnlyTheNoteNamed) {
    testing::AddRecording(*store, u"表一", u"甲", u" 40");
    testing::AddRecording(*store, u"表一", u"乙", u" 40");
    catalogue.DeleteRecording(u"表一", u"甲");
    EXPECT_THAT(Lines(catalogue.RecordingsList()), ElementsAre("TQ仪表协议 表一 乙 2024-05-06"));
}

TEST_P(InstrumentCatalogueTest, FramesComeInTheOrderOfTheRecording) {
    testing::AddRecording(*store, u"表一", u"甲", u" 42");
    testing::AddRecording(*store, u"表一", u"甲", u" 41");
    EXPECT_THAT(Lines(catalogue.FramesOfRecording(u"表一", u"甲")),
                ElementsAre(" 40 30 31  42 1 11000101 1", " 40 30 31  41 1 11000101 2"));
}

TEST_P(InstrumentCatalogueTest, RecordedPairIsKnownByInstrumentReplyAndNote) {
    testing::AddRecording(*store, u"表一", u"甲", u" 42");
    EXPECT_THAT(catalogue.RecordedPair(u"表一", u" 42", u"甲").rows, SizeIs(1));
    EXPECT_THAT(catalogue.RecordedPair(u"表二", u" 42", u"甲").rows, IsEmpty());
    EXPECT_THAT(catalogue.RecordedPair(u"表一", u" 43", u"甲").rows, IsEmpty());
    EXPECT_THAT(catalogue.RecordedPair(u"表一", u" 42", u"乙").rows, IsEmpty());
}

TEST_P(InstrumentCatalogueTest, RecordingsAreRenamedByTheirInstrumentAndByTheirNote) {
    testing::AddRecording(*store, u"表一", u"甲", u" 42");
    testing::AddRecording(*store, u"表二", u"乙", u" 42");
    catalogue.RenameRecordedInstrument(u"新表", u"表一");
    catalogue.ChangeNote(u"丙", u"乙");
    EXPECT_THAT(Lines(catalogue.NotesOfInstrument(u"新表")), ElementsAre("甲"));
    EXPECT_THAT(Lines(catalogue.NotesOfInstrument(u"表二")), ElementsAre("丙"));
    EXPECT_THAT(catalogue.NotesOfInstrument(u"表一").rows, IsEmpty());
}

TEST_P(InstrumentCatalogueTest, ChangedNoteChangesForEveryInstrumentThatHasIt) {
    testing::AddRecording(*store, u"表一", u"甲", u" 42");
    testing::AddRecording(*store, u"表二", u"甲", u" 42");
    testing::AddRecording(*store, u"表二", u"乙", u" 42");
    catalogue.ChangeNote(u"丙", u"甲");
    EXPECT_THAT(Lines(catalogue.NotesOfInstrument(u"表一")), ElementsAre("丙"));
    EXPECT_THAT(Lines(catalogue.NotesOfInstrument(u"表二")), ElementsAre("丙", "乙"));
}

TEST_P(InstrumentCatalogueTest, ExportIsInTheOrderOfClassesAndPutsTheLengthInFrontOfTheAddress) {
    AddInstrument(1, u"表一", u"11000201", 2);
    AddInstrument(2, u"表二", u"12000101", 1);
    AddParameter(1, 1, u"值一", u"0010", u"2");
    AddParameter(2, 2, u"值二", u"0012", u"4");
    const auto rows = catalogue.OpenExportRows();
    ASSERT_TRUE(rows->Next());
    EXPECT_EQ(LineOf(*rows, kExportColumns), "值二 40012 4 0 RW -1 9 表二 12000101");
    ASSERT_TRUE(rows->Next());
    EXPECT_EQ(LineOf(*rows, kExportColumns), "值一 20010 2 0 RW -1 9 表一 11000201");
    EXPECT_FALSE(rows->Next());
}

TEST_P(InstrumentCatalogueTest, ProtocolsComeInTheOrderOfTheirNumbersWithTrimmedNames) {
    AddProtocol(u"10", u"乙", u"12");
    AddProtocol(u"9", u" 协议 甲 ", u"31");
    const std::vector<ProtocolRecord> protocols = catalogue.ProtocolList();
    ASSERT_THAT(protocols, SizeIs(2));
    EXPECT_EQ(ToUtf8(protocols[0].name), "协议 甲");
    EXPECT_EQ(ToUtf8(protocols[0].codeText), "31");
    EXPECT_EQ(protocols[0].Code(), 31);
    EXPECT_EQ(ToUtf8(protocols[1].name), "乙");
    EXPECT_EQ(protocols[1].Code(), 12);
}

TEST_P(InstrumentCatalogueTest, CodeOfAProtocolThatIsNoShortNumberFailsOnlyWhereItIsAskedFor) {
    AddProtocol(u"1", u"甲", ValueFor(store->Engine(), u"宽度", u"x"));
    AddProtocol(u"2", u"乙", u"32768");
    store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段"}, {u"协议规定", u"3", u"丙"});
    const std::vector<ProtocolRecord> protocols = catalogue.ProtocolList();
    ASSERT_THAT(protocols, SizeIs(3));
    EXPECT_EQ(ErrorOf([&] { protocols[0].Code(); }), 13);
    EXPECT_EQ(ErrorOf([&] { protocols[1].Code(); }), 6);
    EXPECT_EQ(ErrorOf([&] { protocols[2].Code(); }), 13);
}

TEST_P(InstrumentCatalogueTest, ClassesComeInTheOrderOfTheirNumbers) {
    catalogue.AddClass(u"乙", 2);
    catalogue.AddClass(u"甲", 1);
    EXPECT_THAT(Lines(catalogue.Classes()), ElementsAre("甲 1", "乙 2"));
}

TEST_P(InstrumentCatalogueTest, EveryStatementOfAClosedStoreFails) {
    store->Close();
    EXPECT_THROW(catalogue.ProtocolList(), RuntimeError);
    EXPECT_THROW(catalogue.ClearCatalogue(), RuntimeError);
}

TEST_P(InstrumentCatalogueTest, NamesAreInTheOrderOfTheirCodePoints) {
    int id = 0;
    for (const char16_t* name : {u"长", u"𠮷", u"阿", u"a", u"中", u"A", u"ｱ", u"北", u"", u"a b", u"B"}) {
        AddInstrument(++id, name, u"11000101");
        AddParameter(id, id, u"值", u"0010", u"2");
    }
    std::vector<std::string> names;
    for (const std::vector<StoreValue>& row : catalogue.InstrumentsOfProtocol(kProtocol).rows)
        names.push_back(ToUtf8(*row[0]));
    EXPECT_THAT(names, ElementsAre("", "A", "B", "a", "a b", "中", "北", "长", "阿", "ｱ", "𠮷"));
}

TEST_P(InstrumentCatalogueTest, NullsStandAtTheHeadOfAList) {
    AddInstrument(1, u"表一", u"11000101", 1);
    catalogue.AddInstrument({2, u"表二", u"11000101", kProtocol, u"11", u"", std::nullopt});
    store->AddRow(u"仪表_名称", {u"仪表ID", u"仪表名称"}, {u"3", u"表三"});
    for (const int id : {1, 2, 3}) AddParameter(id, id, u"值", u"0010", u"2");
    for (const StoreRows& list : {catalogue.CatalogueList(), catalogue.ChipList()}) {
        EXPECT_EQ(ToUtf8(list.At(0, 2)), "表三");
        EXPECT_EQ(ToUtf8(list.At(1, 2)), "表二");
        EXPECT_EQ(ToUtf8(list.At(2, 2)), "表一");
    }
    const auto rows = catalogue.OpenExportRows();
    std::vector<std::string> owners;
    while (rows->Next()) owners.push_back(ToUtf8(rows->At(7)));
    EXPECT_THAT(owners, ElementsAre("表二", "表三", "表一"));
}

TEST_P(InstrumentCatalogueTest, WhatIsEqualInTheOrderComesByItsKeys) {
    for (const int id : {30, 10, 20}) {
        AddInstrument(id, u"甲", u"11000101");
        AddParameter(id, id, u"值", u"0010", u"2");
    }
    for (const StoreRows& list :
         {catalogue.CatalogueList(), catalogue.ChipList(), catalogue.InstrumentsOfProtocol(kProtocol)}) {
        std::vector<std::string> keys;
        const auto column = static_cast<std::size_t>(list.ColumnOf(u"仪表ID"));
        for (std::size_t row = 0; row < list.rows.size(); ++row) keys.push_back(ToUtf8(list.At(row, column)));
        EXPECT_THAT(keys, ElementsAre("10", "20", "30"));
    }
    AddInstrument(5, u"乙", u"11000101");
    EXPECT_THAT(Lines(catalogue.InstrumentsByCode(kProtocol)),
                ElementsAre("乙 TQ仪表协议 11000101", "甲 TQ仪表协议 11000101"));
}

TEST_P(InstrumentCatalogueTest, HeadingsAreSpelledAsTheStatementHasThem) {
    AddInstrument(1, u"表一", u"11000101");
    const StoreRows list = catalogue.CatalogueList();
    EXPECT_EQ(ToUtf8(list.columns.at(9)), "仪表ID");
    EXPECT_EQ(ToUtf8(list.columns.at(10)), "芯片ID");
    EXPECT_EQ(catalogue.AllInstruments().ColumnOf(u"仪表ID"), 0);
}

TEST_P(InstrumentCatalogueTest, AClassThatIsNoNumberIsANullForAServer) {
    const bool isServer = store->Engine() != StoreEngine::Sqlite;
    const StoreValue classes[] = {u"7", u"07", u"", u"AB", u"1.5", u"99999999999", std::nullopt};
    int id = 0;
    for (const StoreValue& number : classes)
        catalogue.AddInstrument({++id, u"表", u"", u"", u"", u"", number});
    const StoreRows rows = store->Query(u"SELECT 类别ID From 仪表_名称 Order By 仪表ID");
    EXPECT_EQ(rows.At(0, 0), u"7");
    EXPECT_EQ(rows.At(1, 0), u"7");
    for (const std::size_t row : {2U, 3U, 4U, 5U}) EXPECT_EQ(rows.rows[row][0].has_value(), !isServer) << row;
    EXPECT_EQ(rows.rows[6][0], std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Each, InstrumentCatalogueTest, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
