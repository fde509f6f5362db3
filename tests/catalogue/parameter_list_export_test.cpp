#include "catalogue/parameter_list_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_bench.h"

namespace commtest {
namespace {

using ::testing::IsEmpty;
using testing::ListBench;
using ::testing::SizeIs;

// --- A row's line ---

TEST(ListLineOf, FillsItsColumns) {
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"PV", u"10000", u"0", u"R", u"0", u"9999")),
              "001  PV                                      1000 0     R     0           9999        ");
    EXPECT_EQ(ToUtf8(ListLineOf(2, u"LOW:  ALARM", u"20010", u"1", u"RW", u"-1999", u"9999")),
              "002  LOW:  ALARM                             2010 1     RW    -1999       9999        ");
}

TEST(ListLineOf, SerialHasThreeDigitsOrMore) {
    EXPECT_TRUE(ListLineOf(999, u"", u"", u"", u"", u"", u"").starts_with(u"999   "));
    EXPECT_TRUE(ListLineOf(1000, u"", u"", u"", u"", u"", u"").starts_with(u"1000   "));
}

TEST(ListLineOf, DoubleByteCharactersTakeTwoOfTheFortyBytesOfTheName) {
    const Text twenty(20, u'温');
    EXPECT_EQ(ToUtf8(ListLineOf(1, twenty, u"20010", u"", u"R", u"", u"")),
              "001  " + ToUtf8(twenty) + "2010 0     R                             ");
    EXPECT_EQ(ListLineOf(1, u"温度", u"20010", u"", u"R", u"", u"").find(u"2010"), 5U + 2 + 36);
}

TEST(ListLineOf, LongerNameIsNotCutAndShiftsTheColumns) {
    const Text twentyOne(21, u'温');
    EXPECT_EQ(ToUtf8(ListLineOf(1, twentyOne, u"20010", u"", u"R", u"", u"")),
              "001  " + ToUtf8(twentyOne) + "2010 0     R                             ");
}

TEST(ListLineOf, WiderFieldsAreCut) {
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"通", u"80D27", u"1234567", u"ABCDEFGH", u"1234567890123", u"65535")),
              "001  通                                      8D27 123456ABCDEF12345678901265535       ");
}

TEST(ListLineOf, BlankDecimalPointIs0) {
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"A", u"10010", u"  ", u"R", u"", u"")).substr(45),
              "1010 0     R                             ");
}

TEST(ListLineOf, SecondCharacterOfTheAddressFallsAway) {
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"A", u"21DFE", u"0", u"R", u"", u"")).substr(45, 5), "2DFE ");
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"A", u"0", u"0", u"R", u"", u"")).substr(45, 2), "0 ");
    EXPECT_EQ(ToUtf8(ListLineOf(1, u"A", u"", u"0", u"R", u"", u"")).substr(45, 2), " 0");
}

// --- The list ---

class ParameterListExportTest : public ::testing::TestWithParam<testing::StoreUnderTest>, public ListBench {
  protected:
    ParameterListExportTest() : ListBench(GetParam()) {}

    void AddInstrument(int id, const Text& name, const Text& code, int classId) {
        InstrumentRecord instrument;
        instrument.id = id;
        instrument.name = name;
        instrument.code = code;
        instrument.classId = FromUtf8(std::to_string(classId));
        catalogue.AddInstrument(instrument);
    }
    void AddParameter(int instrument, const Text& name) {
        ParameterRecord parameter;
        parameter.id = ++lastParameter_;
        parameter.instrumentId = instrument;
        parameter.name = name;
        parameter.address = u"0010";
        parameter.length = u"2";
        parameter.attribute = u"R";
        catalogue.AddParameter(parameter);
    }
    std::string Exported() {
        ExportParameterList(*store, files);
        return ToUtf8(files.TextFiles[Text(kListCopyFileName)]);
    }
    static std::string Row(const std::string& serial, const std::string& name) {
        return serial + "  " + name + std::string(40 - name.size(), ' ') +
               "2010 0     R                             \r\n";
    }

  private:
    int lastParameter_ = 0;
};

TEST_P(ParameterListExportTest, EmptyCatalogueGivesTheTwoEndsOnly) {
    EXPECT_EQ(Exported(), "END\r\nDEVICE   END\r\n");
}

TEST_P(ParameterListExportTest, BlocksComeInTheOrderOfTheirClassesWithAnEmptyLineBetween) {
    AddInstrument(1, u"B", u"11000301", 3);
    AddInstrument(2, u"A", u"11000101", 1);
    AddParameter(1, u"P");
    AddParameter(2, u"Q");
    AddParameter(2, u"R");
    EXPECT_EQ(Exported(), "Device  A\r\nType    11000101\r\n" + Row("001", "Q") + Row("002", "R") +
                              "END\r\n\r\nDevice  B\r\nType    11000301\r\n" + Row("001", "P") +
                              "END\r\nDEVICE   END\r\n");
}

TEST_P(ParameterListExportTest, InstrumentsOfOneNameInARowAreOneBlock) {
    AddInstrument(1, u"A", u"11000101", 1);
    AddInstrument(2, u"A", u"31000101", 1);
    AddParameter(1, u"P");
    AddParameter(2, u"Q");
    EXPECT_EQ(Exported(), "Device  A\r\nType    11000101\r\n" + Row("001", "P") + Row("002", "Q") +
                              "END\r\nDEVICE   END\r\n");
}

TEST_P(ParameterListExportTest, OldFileGrowsByTheList) {
    files.TextFiles[Text(kListCopyFileName)] = u"旧\r\n";
    EXPECT_EQ(Exported(), "旧\r\nEND\r\nDEVICE   END\r\n");
}

TEST_P(ParameterListExportTest, NullsAreEmpty) {
    AddInstrument(1, u"A", u"11000101", 1);
    store->AddRow(u"仪表_参数", {u"ID", u"仪表ID", u"参数名称"}, {u"1", u"1", u"P"});
    EXPECT_EQ(Exported(), "Device  A\r\nType    11000101\r\n001  P" + std::string(39, ' ') + " 0     " +
                              std::string(30, ' ') + "\r\nEND\r\nDEVICE   END\r\n");
}

// The bytes of the list, and what the export tells beside them.
struct Told {
    std::string bytes;
    int instruments;
    int parameters;
    std::vector<LossyRow> lossy;
};

Told ExportOf(Store& store, std::function<bool(const Text&)> wanted = {}) {
    std::string bytes;
    ParameterListExport list(
        store, [&](const std::string& block) { bytes += block; }, std::move(wanted));
    while (list.Step()) {
    }
    return {bytes, list.Instruments(), list.Parameters(), list.LossyRows()};
}

TEST_P(ParameterListExportTest, IsCodePage936WithAQuestionMarkForWhatItLacksWhichIsTold) {
    AddInstrument(1, u"表", u"11000101", 1);
    AddParameter(1, u"温度");
    AddParameter(1, u"µ值");
    const Told told = ExportOf(*store);
    EXPECT_THAT(told.bytes, ::testing::HasSubstr("Device  \xB1\xED\r\n"));
    EXPECT_THAT(told.bytes, ::testing::HasSubstr("001  \xCE\xC2\xB6\xC8" + std::string(36, ' ') + "2010"));
    EXPECT_THAT(told.bytes, ::testing::HasSubstr("002  ?\xD6\xB5" + std::string(37, ' ') + "2010"));
    ASSERT_THAT(told.lossy, SizeIs(1));
    EXPECT_EQ(ToUtf8(told.lossy[0].instrument), "表");
    EXPECT_EQ(told.lossy[0].serial, 2);
    EXPECT_EQ(ToUtf8(told.lossy[0].name), "µ值");
}

TEST_P(ParameterListExportTest, TakesTheWantedInstrumentsOnly) {
    AddInstrument(1, u"A", u"11000101", 1);
    AddInstrument(2, u"B", u"11000101", 1);
    AddInstrument(3, u"C", u"11000101", 1);
    for (const int id : {1, 2, 3}) AddParameter(id, u"P");
    const Told told = ExportOf(*store, [](const Text& name) { return name != u"B"; });
    EXPECT_EQ(told.bytes, "Device  A\r\nType    11000101\r\n" + Row("001", "P") +
                              "END\r\n\r\nDevice  C\r\nType    11000101\r\n" + Row("001", "P") +
                              "END\r\nDEVICE   END\r\n");
    EXPECT_EQ(told.instruments, 2);
    EXPECT_EQ(told.parameters, 2);
    EXPECT_THAT(told.lossy, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Each, ParameterListExportTest, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
