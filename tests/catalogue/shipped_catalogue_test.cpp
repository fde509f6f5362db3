#include "catalogue/shipped_catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogue/instrument_catalogue.h"
#include "runtime/runtime_error.h"
#include "support/sqlite_store.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

// Columns of the query of parameters.
constexpr std::size_t kAddress = 1;
constexpr std::size_t kLength = 2;
constexpr std::size_t kAttribute = 3;
constexpr std::size_t kDecimalPoint = 4;
constexpr std::size_t kCode = 9;

constexpr std::size_t kFirstDynamicRow = 6;

std::vector<std::string> ColumnOf(const StoreRows& rows, std::size_t column) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < rows.rows.size(); ++i) texts.push_back(ToUtf8(rows.At(i, column)));
    return texts;
}

int NumberOf(const std::string& text, int base) { return std::stoi(text, nullptr, base); }

class ShippedCatalogueTest : public ::testing::Test {
  protected:
    std::vector<Text> InstrumentsOf(const Text& protocol) {
        std::vector<Text> names;
        const StoreRows rows = catalogue.InstrumentsOfProtocol(protocol);
        for (std::size_t i = 0; i < rows.rows.size(); ++i) names.push_back(rows.At(i, 0));
        return names;
    }

    // The parameter lists of the three native protocols.
    std::vector<StoreRows> NativeLists() {
        std::vector<StoreRows> lists;
        for (const Text protocol : {u"TQ仪表协议", u"TQ仪表协议-定制累加和", u"TQ仪表协议-定制异或和"}) {
            for (const Text& name : InstrumentsOf(protocol))
                lists.push_back(catalogue.ParametersOfInstrument(name));
        }
        return lists;
    }

    std::unique_ptr<testing::SqliteStore> store = testing::MakeShippedCatalogue();
    InstrumentCatalogue catalogue{*store};
};

TEST_F(ShippedCatalogueTest, HoldsTheFourteenProtocolsInTheirOrder) {
    std::vector<std::string> names;
    std::vector<int> codes;
    for (const ProtocolRecord& protocol : catalogue.ProtocolList()) {
        names.push_back(ToUtf8(protocol.name));
        codes.push_back(protocol.Code());
    }
    EXPECT_THAT(codes, ElementsAre(11, 12, 13, 21, 22, 23, 31, 32, 33, 34, 35, 41, 42, 51));
    EXPECT_THAT(names, ElementsAre("TQ仪表协议", "TQ仪表协议-定制累加和", "TQ仪表协议-定制异或和",
                                   "ModBus-Ascii协议", "ModBus-Ascii协议-定制01", "ModBus-Ascii协议-定制02",
                                   "ModBus-RTU协议", "ModBus-RTU协议-定制01", "ModBus-RTU协议-KD700记录仪",
                                   "ModBus-RTU协议-TQ记录仪板卡", "ModBus-RTU协议-标准流量表",
                                   "TQ特殊仪表协议-NOVAX", "TQ特殊仪表协议-HCT615D", "ModBus-RTU协议-M46T"));
}

TEST_F(ShippedCatalogueTest, EveryProtocolHasAnInstrumentOfItsCode) {
    for (const ProtocolRecord& protocol : catalogue.ProtocolList()) {
        const StoreRows instruments = catalogue.InstrumentsOfProtocol(protocol.name);
        ASSERT_FALSE(instruments.rows.empty()) << ToUtf8(protocol.name);
        for (const std::string& code : ColumnOf(instruments, 3)) {
            EXPECT_EQ(code.substr(0, 2), ToUtf8(protocol.codeText));
        }
    }
}

TEST_F(ShippedCatalogueTest, HasTheSettingsOfTheListsAndTheGrid) {
    EXPECT_THAT(catalogue.DataTypeList().rows, SizeIs(11));
    EXPECT_EQ(ToUtf8(catalogue.DataTypeList().At(3, 0)), "IEEE-754单精度浮点数");
    const StoreRows columns = catalogue.GridLayout();
    const auto field = [&](const char16_t* name) {
        return ColumnOf(columns, static_cast<std::size_t>(columns.ColumnOf(name)));
    };
    EXPECT_THAT(field(u"列号"), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"));
    EXPECT_THAT(field(u"字段"), ElementsAre("序号", "参数名称", "地址", "长度", "属性", "小数点", "RE 读值",
                                            "RR/RD 读值", "计算值", "小数点修正值", "修改值"));
    EXPECT_EQ(field(u"宽度")[0], "530");
    EXPECT_EQ(field(u"宽度")[1], "3200");
    EXPECT_EQ(field(u"合并")[1], "0");
    EXPECT_EQ(field(u"对齐")[1], "1");
    EXPECT_THAT(catalogue.Classes().rows, SizeIs(7));
    EXPECT_THAT(catalogue.Replacements().rows, SizeIs(14));
}

TEST_F(ShippedCatalogueTest, NamesAndCodesOfInstrumentsAreTheirsAlone) {
    const StoreRows instruments = catalogue.AllInstruments();
    EXPECT_THAT(instruments.rows, SizeIs(19));
    for (const char16_t* column : {u"仪表名称", u"编号"}) {
        const auto texts = ColumnOf(instruments, static_cast<std::size_t>(instruments.ColumnOf(column)));
        EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size());
    }
}

TEST_F(ShippedCatalogueTest, EveryChipRecordIsOfAnInstrumentAndSomeInstrumentsHaveNone) {
    const StoreRows list = catalogue.ChipList();
    EXPECT_THAT(list.rows, SizeIs(20));
    const auto files = ColumnOf(list, static_cast<std::size_t>(list.ColumnOf(u"文件名")));
    EXPECT_EQ(std::count(files.begin(), files.end(), ""), 6);
    EXPECT_THAT(store->Query(u"SELECT * From 仪表_芯片").rows, SizeIs(14));
    const StoreRows record = catalogue.ChipRecord(u"HX-D10智能数字显示控制仪", u"D10V104.HEX");
    ASSERT_THAT(record.rows, SizeIs(1));
    EXPECT_EQ(ToUtf8(record.At(0, 1)), "11000101");
    EXPECT_EQ(ToUtf8(record.At(0, 3)), "2026-06-02");
    EXPECT_EQ(ToUtf8(record.At(0, 4)), "标准");
    EXPECT_EQ(ToUtf8(record.At(0, 5)), "量产");
    EXPECT_EQ(ToUtf8(record.At(0, 6)), "标准型，带四路报警与变送输出；修正断线时的显示。");
}

TEST_F(ShippedCatalogueTest, NativeInstrumentsHaveBetween40And200Rows) {
    std::set<std::size_t> sizes;
    for (const StoreRows& list : NativeLists()) sizes.insert(list.rows.size());
    EXPECT_THAT(sizes, ElementsAre(43, 44, 46, 55, 95, 200));
}

TEST_F(ShippedCatalogueTest, DynamicValuesOfNativeInstrumentsBeginAtRowSixAndEndAtTheFirstReadWriteRow) {
    for (const StoreRows& list : NativeLists()) {
        const std::vector<std::string> attributes = ColumnOf(list, kAttribute);
        std::size_t row = kFirstDynamicRow;
        EXPECT_EQ(attributes[row - 1], "D");
        while (attributes[row - 1] == "D" || attributes[row - 1] == "S") ++row;
        EXPECT_EQ(attributes[row - 1], "RW");
        EXPECT_EQ(std::find(attributes.begin(), attributes.end(), "RW") - attributes.begin() + 1,
                  static_cast<std::ptrdiff_t>(row));
        for (; row <= attributes.size(); ++row) {
            EXPECT_TRUE(attributes[row - 1].front() == 'R' || attributes[row - 1] == "S") << row;
        }
    }
}

TEST_F(ShippedCatalogueTest, StaticAddressesOfNativeInstrumentsRunOnByTheLengths) {
    for (const StoreRows& list : NativeLists()) {
        const bool lengthInAddress = ToUtf8(list.At(0, kCode)).starts_with("12");
        const std::vector<std::string> attributes = ColumnOf(list, kAttribute);
        const auto first = std::find(attributes.begin(), attributes.end(), "RW") - attributes.begin();
        for (auto i = static_cast<std::size_t>(first) + 1; i < list.rows.size(); ++i) {
            const auto address = [&](std::size_t row) {
                return NumberOf(ToUtf8(list.At(row, kAddress)).substr(1), 16);
            };
            EXPECT_EQ(address(i - 1) + NumberOf(ToUtf8(list.At(i - 1, kLength)), 10), address(i));
            if (lengthInAddress) {
                EXPECT_EQ(ToUtf8(list.At(i, kAddress)).front(), ToUtf8(list.At(i, kLength)).front());
            }
        }
    }
}

TEST_F(ShippedCatalogueTest, EveryDecimalPointThatIsAnAddressNamesADecimalPointParameter) {
    for (const StoreRows& list : NativeLists()) {
        std::size_t references = 0;
        for (const std::string& point : ColumnOf(list, kDecimalPoint)) {
            if (point.size() < 4) continue;
            ++references;
            const auto row = std::find_if(list.rows.begin(), list.rows.end(), [&](const auto& fields) {
                return ToUtf8(*fields[kAddress]) == point;
            });
            ASSERT_NE(row, list.rows.end()) << point;
            EXPECT_NE((*row)[0]->find(u"小数点"), Text::npos) << point;
        }
        EXPECT_GT(references, 0U);
    }
}

TEST_F(ShippedCatalogueTest, EnglishFaceHasTheSameProtocolsAndDataTypesAndSixColumnsOfItsOwn) {
    const auto names = [](const std::vector<ProtocolRecord>& protocols) {
        std::vector<std::string> texts;
        for (const ProtocolRecord& one : protocols) texts.push_back(ToUtf8(one.codeText + u" " + one.name));
        return texts;
    };
    EXPECT_EQ(names(catalogue.ProtocolList(u"表格-设置")), names(catalogue.ProtocolList()));
    EXPECT_THAT(catalogue.ProtocolList(u"表格-设置"), SizeIs(14));
    EXPECT_EQ(catalogue.DataTypeList(u"表格-设置").rows, catalogue.DataTypeList().rows);
    const StoreRows layout = catalogue.GridLayout(u"表格-设置");
    EXPECT_THAT(ColumnOf(layout, 1), ElementsAre("0", "1", "2", "3", "4", "5"));
    EXPECT_THAT(ColumnOf(layout, 2),
                ElementsAre("serial", "parameter name", "address", "length", "attribute", "Dec"));
}

TEST_F(ShippedCatalogueTest, CommandsAreInFrontOfTheInstrumentsThatTakeThem) {
    const StoreRows list = catalogue.ParametersOfInstrument(u"HX-D10智能数字显示控制仪");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(ToUtf8(list.At(i, kAddress)), "0000");
        EXPECT_EQ(ToUtf8(list.At(i, kLength)), std::to_string(3 + i));
        EXPECT_EQ(ToUtf8(list.At(i, kAttribute)), "W");
    }
}

// A small catalogue whose lines a test can spoil.
class CatalogueFilesTest : public ::testing::Test {
  protected:
    // What is wrong when the file has this content, or nothing.
    std::string Refusal(std::string_view file, std::string_view content) {
        for (CatalogueFile& known : files) {
            if (known.name == file) known.content = content;
        }
        testing::SqliteStore store;
        store.Open({StoreAddress::Kind::LocalFile, u":memory:", {}});
        try {
            FillCatalogue(store, files);
            return "";
        } catch (const CatalogueFileError& error) {
            EXPECT_TRUE(store.Query(u"SELECT * From sqlite_master").rows.empty()) << "left something behind";
            return error.what();
        }
    }

    std::string InstrumentRefusal(std::string_view content) { return Refusal("instruments/a.txt", content); }

    std::vector<CatalogueFile> files = {
        {"protocols.txt", "11 | TQ仪表协议\n"},
        {"data_types.txt", "单字节\n"},
        {"grid_columns.txt", "序号 | 530 | 0 | 4\n"},
        {"grid_columns_english.txt", "serial | 530 | 0 | 4\n"},
        {"replacements.txt", "（ | (\n"},
        {"classes.txt", "01 | 显示仪表\n"},
        {"chips.txt", "11000101 | A.HEX | 2026-06-02 | 标准 | 量产 | 带报警。\n"},
        {"instruments/a.txt", "# A remark.\n\n11000101 | 表一\n值 | 0010 | 2 | RW | 0 | -1 | 9.5\n"},
    };
};

TEST_F(CatalogueFilesTest, RemarksEmptyLinesAndForeignLineEndsSayNothing) {
    EXPECT_EQ(InstrumentRefusal("# A remark.\r\n\r\n  11000101 |表一\r\n值|0010|2|RW|0||\r\n"), "");
}

TEST_F(CatalogueFilesTest, ALineThatIsNotAsItShouldBeIsNamedWithWhatWasExpectedAndWhatStoodThere) {
    EXPECT_EQ(Refusal("protocols.txt", "TQ仪表协议\n"),
              "protocols.txt:1: expected code | name, found \"TQ仪表协议\"");
    EXPECT_EQ(Refusal("protocols.txt", "1 | TQ仪表协议\n"),
              "protocols.txt:1: expected a code of two digits, found \"1 | TQ仪表协议\"");
}

TEST_F(CatalogueFilesTest, ColumnsAndClassesNeedNumbers) {
    EXPECT_EQ(Refusal("grid_columns.txt", "# A remark.\n序号 | breit | 0 | 4\n"),
              "grid_columns.txt:2: expected numbers for width, merge and alignment, found \"序号 | breit | 0 "
              "| 4\"");
}

TEST_F(CatalogueFilesTest, ColumnsOfTheEnglishFaceNeedNumbersToo) {
    EXPECT_EQ(Refusal("grid_columns_english.txt", "serial | wide | 0 | 4\n"),
              "grid_columns_english.txt:1: expected numbers for width, merge and alignment, found \"serial | "
              "wide | 0 | 4\"");
}

TEST_F(CatalogueFilesTest, ClassesNeedTwoDigits) {
    EXPECT_EQ(Refusal("classes.txt", "1 | 显示仪表\n"),
              "classes.txt:1: expected a number of two digits, found \"1 | 显示仪表\"");
}

TEST_F(CatalogueFilesTest, ChipRecordsNeedACodeAndADate) {
    EXPECT_EQ(Refusal("chips.txt", "甲 | A.HEX | 2026-06-02 | 标准 | 量产 |\n"),
              "chips.txt:1: expected a code of digits, found \"甲 | A.HEX | 2026-06-02 | 标准 | 量产 |\"");
    for (const std::string day : {"2026-6-2", "2026-06-0x", "2026/06/02", ""}) {
        const std::string line = "11000101 | A.HEX | " + day + " | 标准 | 量产 | 带报警。";
        EXPECT_EQ(Refusal("chips.txt", line),
                  "chips.txt:1: expected a date as 2026-06-02, found \"" + line + "\"");
    }
}

TEST_F(CatalogueFilesTest, AnInstrumentNeedsAKnownProtocolAndAKnownClass) {
    EXPECT_EQ(InstrumentRefusal("11 | 表一\n"),
              "instruments/a.txt:1: expected a code of at least six digits, found \"11 | 表一\"");
    EXPECT_EQ(InstrumentRefusal("99000101 | 表一\n"),
              "instruments/a.txt:1: expected a code that begins with that of a protocol, found \"99000101 | "
              "表一\"");
    EXPECT_EQ(InstrumentRefusal("11009901 | 表一\n"),
              "instruments/a.txt:1: expected a code with the number of a class behind four digits, found "
              "\"11009901 | "
              "表一\"");
}

TEST_F(CatalogueFilesTest, AParameterNeedsItsSevenFieldsInForm) {
    const std::string at = "instruments/a.txt:3: expected ";
    const auto refusal = [&](const std::string& row) {
        return InstrumentRefusal("\n11000101 | 表一\n" + row + "\n");
    };
    EXPECT_EQ(refusal("值 | 0010 | 2"), at + "name | address | length | attribute | decimal point | lower "
                                             "limit | upper limit, found \"值 | 0010 "
                                             "| 2\"");
    EXPECT_EQ(refusal("| 0010 | 2 | R | 0 | |"), at + "a name, found \"| 0010 | 2 | R | 0 | |\"");
    EXPECT_EQ(refusal("值 | 10 | 2 | R | 0 | |"),
              at + "an address of four hexadecimal digits, found \"值 | 10 | 2 | R | 0 | |\"");
    EXPECT_EQ(refusal("值 | 00G0 | 2 | R | 0 | |"),
              at + "an address of four hexadecimal digits, found \"值 | 00G0 | 2 | R | 0 | |\"");
    EXPECT_EQ(refusal("值 | 0010 | 16 | R | 0 | |"),
              at + "a length of one digit, found \"值 | 0010 | 16 | R | 0 | |\"");
    EXPECT_EQ(refusal("值 | 0010 | 2 | X | 0 | |"),
              at + "an attribute of the letters D, R, S and W, found \"值 | 0010 | 2 | X | 0 | |\"");
    EXPECT_EQ(refusal("值 | 0010 | 2 | R | | |"),
              at + "a decimal point in hexadecimal digits, found \"值 | 0010 | 2 | R | | |\"");
    EXPECT_EQ(refusal("值 | 0010 | 2 | R | 0 | 1-2 |"),
              at + "limits that are numbers or nothing, found \"值 | 0010 | 2 | R | 0 | 1-2 |\"");
}

TEST_F(CatalogueFilesTest, AMissingFileIsNamed) {
    files.erase(files.begin());
    testing::SqliteStore store;
    store.Open({StoreAddress::Kind::LocalFile, u":memory:", {}});
    try {
        FillCatalogue(store, files);
        FAIL() << "no error";
    } catch (const CatalogueFileError& error) {
        EXPECT_STREQ(error.what(), "protocols.txt: expected a file of this name, found none");
    }
}

// A store whose n-th statement fails.
class FailingStore : public testing::SqliteStore {
  public:
    int statementsLeft = 0;

    using SqliteStore::Execute;
    void Execute(const Text& sql) override {
        CountDown();
        SqliteStore::Execute(sql);
    }
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override {
        CountDown();
        SqliteStore::AddRow(table, columns, values);
    }
    void Rollback() override { SqliteStore::Execute(u"ROLLBACK"); }

  private:
    void CountDown() {
        if (--statementsLeft < 0) throw RuntimeError::OfStore(u"made to fail");
    }
};

TEST_F(CatalogueFilesTest, WhicheverStatementFailsTheStoreIsAsItWas) {
    int failures = 0;
    for (bool filled = false; !filled; ++failures) {
        ASSERT_LT(failures, 100);
        FailingStore store;
        store.statementsLeft = 1;
        store.Open({StoreAddress::Kind::LocalFile, u":memory:", {}});
        store.statementsLeft = failures;
        try {
            FillCatalogue(store, files);
            filled = true;
        } catch (const RuntimeError&) {
            EXPECT_TRUE(store.Query(u"SELECT * From sqlite_master").rows.empty()) << failures;
        }
    }
    EXPECT_EQ(failures - 1, 1 + 8 + 1 + 9 + 1 + 11 + 1);  // begin, tables, view, indexes, rows, commit
}

}  // namespace
}  // namespace commtest
