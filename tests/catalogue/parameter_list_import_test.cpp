#include "catalogue/parameter_list_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_bench.h"
#include "runtime/runtime_error.h"
#include "support/error_of.h"
#include "support/failing_store.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::ListBench;
using ::testing::SizeIs;

const Text kGood = u"数据库重置完毕！";

class ParameterListImportTest : public ::testing::TestWithParam<testing::StoreUnderTest>, public ListBench {
  protected:
    ParameterListImportTest() : ListBench(GetParam()) {}

    void Import(const std::vector<Text>& lines) {
        Put(kListFileName, lines);
        Run();
    }
    void Run() { ImportParameterList(*store, files, dialogs); }

    // The rows of one block of native type.
    void ImportRows(const std::vector<Text>& rows, const Text& code = u"11000101") {
        std::vector<Text> lines = {u"DEVICE METER", u"TYPE " + code};
        lines.insert(lines.end(), rows.begin(), rows.end());
        lines.emplace_back(u"END");
        Import(lines);
    }

    // What stands in the catalogue before an import, which clears it.
    void AddOldInstrument() {
        InstrumentRecord instrument;
        instrument.id = 7;
        instrument.name = u"OLD";
        instrument.code = u"11000101";
        instrument.classId = u"1";
        catalogue.AddInstrument(instrument);
        ParameterRecord parameter;
        parameter.id = 70;
        parameter.instrumentId = 7;
        parameter.name = u"OLD PV";
        catalogue.AddParameter(parameter);
    }
    void ExpectTheOldInstrument() const {
        EXPECT_THAT(Instruments(), ElementsAre("7|OLD|11000101||||1"));
        EXPECT_THAT(Parameters(), SizeIs(1));
    }
};

TEST_P(ParameterListImportTest, WorkedSampleGivesItsInstrumentAndRows) {
    Import({u"DEVICE  EXAMPLE-METER", u"TYPE 11000101", u"001  PV  1000  0  R  0  9999",
            u"002  LOW:ALARM  2010  1  RW  -1999  9999", u"003  MODE  1020  R", u"END", u"DEVICE   END"});
    EXPECT_THAT(Instruments(), ElementsAre("1|EXAMPLE-METER|11000101|TQ仪表协议|11|数字显示仪表|1"));
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0000|1|R|0|0|9999",
                                          "2|1|LOW:  ALARM|0010|2|RW|1|-1999|9999", "3|1|MODE|0020|1|R|0||"));
    EXPECT_THAT(dialogs.Texts(), ElementsAre("数据库重置完毕！"));
}

TEST_P(ParameterListImportTest, TakesThePlaceOfWhatStood) {
    AddOldInstrument();
    ImportRows({u"001 PV 1000 0 R"});
    EXPECT_THAT(Instruments(), SizeIs(1));
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0000|1|R|0||"));
}

TEST_P(ParameterListImportTest, ListWithoutADeviceEmptiesTheCatalogue) {
    AddOldInstrument();
    Import({u"; nothing", u"DEVICE   END"});
    EXPECT_THAT(Instruments(), IsEmpty());
    EXPECT_THAT(Parameters(), IsEmpty());
    EXPECT_THAT(dialogs.Texts(), ElementsAre("数据库重置完毕！"));
}

// --- Heads and their types ---

TEST_P(ParameterListImportTest, LinesOutsideABlockThatAreRemarksOrNoHeadArePassed) {
    Import({u"; DEVICE ONE", u"DEVICE TWO；", u"METER", u"", u"DEVICE THREE", u"TYPE 11000101", u"END"});
    EXPECT_THAT(Instruments(), ElementsAre("1|THREE|11000101|TQ仪表协议|11|数字显示仪表|1"));
}

TEST_P(ParameterListImportTest, TextBehindTheLastLineIsNotRead) {
    Import({u"DEVICE ONE", u"TYPE 11000101", u"END", u"DEVICE   END and more", u"DEVICE TWO", u"TYPE x"});
    EXPECT_THAT(Instruments(), SizeIs(1));
}

TEST_P(ParameterListImportTest, DeviceWhoseNameHoldsEndEndsTheImport) {
    Import({u"DEVICE VENDOR-8", u"TYPE 11000101", u"END", u"DEVICE TWO", u"TYPE 11000101", u"END"});
    EXPECT_THAT(Instruments(), IsEmpty());
}

TEST_P(ParameterListImportTest, HeadAndRowsAreInUpperCaseAndTheTypeIsNot) {
    Import({u"  device   meter a ", u"type 11000101x", u"1 pv 1a0f 0 rw", u"end"});
    EXPECT_THAT(Instruments(), ElementsAre("1|METER A|11000101x|TQ仪表协议|11|数字显示仪表|1"));
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0A0F|1|RW|0||"));
}

TEST_P(ParameterListImportTest, TypeStandsWithinThirtyLines) {
    std::vector<Text> lines = {u"DEVICE METER"};
    lines.insert(lines.end(), 29, u"REMARK 99");
    lines.insert(lines.end(), {u"TYPE 31000101", u"1 PV 1000 R", u"END"});
    Import(lines);
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|31000101|ModBus-RTU协议|31|数字显示仪表|1"));
}

TEST_P(ParameterListImportTest, ThirtiethLineStandsForATypeThatDoesNotCome) {
    std::vector<Text> lines = {u"DEVICE METER"};
    lines.insert(lines.end(), 29, u"REMARK 99");
    lines.insert(lines.end(), {u"REMARK 21000101", u"1 PV 1000 R", u"END"});
    Import(lines);
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|21000101|ModBus-Ascii协议|21|数字显示仪表|1"));
    EXPECT_THAT(Parameters(), SizeIs(1));
}

struct NamedProtocol {
    Text code;
    std::string name;
};

TEST_P(ParameterListImportTest, ProtocolIsNamedByTheFirstTwoCharactersOfTheCode) {
    const NamedProtocol protocols[] = {{u"21", "ModBus-Ascii协议"},
                                       {u"22", "ModBus-Ascii协议-定制01"},
                                       {u"23", "ModBus-Ascii协议-定制02"},
                                       {u"31", "ModBus-RTU协议"},
                                       {u"32", "ModBus-RTU协议-定制01"},
                                       {u"33", "ModBus-RTU协议-KD700记录仪"},
                                       {u"34", "ModBus-RTU协议-TQ记录仪板卡"},
                                       {u"35", "ModBus-RTU协议-标准流量表"},
                                       {u"12", "TQ仪表协议-定制累加和"},
                                       {u"13", "TQ仪表协议-定制异或和"},
                                       {u"41", "TQ特殊仪表协议-NOVAX"},
                                       {u"51", "ModBus-RTU协议-M46T"},
                                       {u"42", "TQ特殊仪表协议-HCT615D"},
                                       {u"11", "TQ仪表协议"},
                                       {u"14", "TQ仪表协议"},
                                       {u"00", "TQ仪表协议"},
                                       {u"99", "TQ仪表协议"}};
    for (const NamedProtocol& protocol : protocols) {
        ImportRows({}, protocol.code + u"0001");
        EXPECT_EQ(ToUtf8(catalogue.AllInstruments().At(0, 3)), protocol.name);
    }
}

TEST_P(ParameterListImportTest, ClassIsFoundByTheNumberOfCharacters5And6) {
    ImportRows({}, u"11000301");
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|11000301|TQ仪表协议|11|流量仪表|3"));
    ImportRows({}, u"110013");
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|110013|TQ仪表协议|11|记录仪|13"));
}

TEST_P(ParameterListImportTest, CharactersWithoutAClassStandForThemselves) {
    ImportRows({}, u"11002901");
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|11002901|TQ仪表协议|11|29|29"));
    ImportRows({}, u"1100AB01");
    const std::string id =
        GetParam().engine == StoreEngine::Sqlite ? "AB" : "";  // what is no number is a null
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|1100AB01|TQ仪表协议|11|AB|" + id));
}

TEST_P(ParameterListImportTest, InstrumentsAndParametersAreNumberedThroughTheList) {
    Import({u"DEVICE A", u"TYPE 11000101", u"1 P 1010 R", u"2 Q 1011 R", u"END", u"", u"DEVICE B",
            u"TYPE 11000101", u"1 P 1010 R", u"END"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|P|0010|1|R|0||", "2|1|Q|0011|1|R|0||", "3|2|P|0010|1|R|0||"));
    Run();
    EXPECT_THAT(Parameters(), SizeIs(3)) << "the numbers start anew";
}

// --- Repair ---

TEST_P(ParameterListImportTest, HeadIsInUpperCaseBeforeItIsRepairedAndARowBehindThat) {
    Replace(u"kPa", u"千帕");
    Replace(u"KPA", u"兆帕");
    Import({u"DEVICE kPa", u"TYPE 11000101", u"1 kPa 1010 R", u"2 KPA 1011 R", u"END"});
    EXPECT_THAT(Instruments(), ElementsAre("1|兆帕|11000101|TQ仪表协议|11|数字显示仪表|1"));
    EXPECT_THAT(Parameters(), ElementsAre("1|1|千帕|0010|1|R|0||", "2|1|兆帕|0011|1|R|0||"));
}

TEST_P(ParameterListImportTest, TypeIsNotRepaired) {
    Replace(u"11", u"31");
    ImportRows({});
    EXPECT_THAT(Instruments(), ElementsAre("1|METER|11000101|TQ仪表协议|11|数字显示仪表|1"));
}

// --- Rows ---

TEST_P(ParameterListImportTest, LineThatHoldsEndEndsTheBlock) {
    ImportRows({u"1 PV 1010 R", u"2 TREND 1011 R", u"3 SV 1012 R"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0010|1|R|0||"));
}

TEST_P(ParameterListImportTest, RemarkInsideABlockIsARow) {
    ImportRows({u"; 001 PV 1010 0 R"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|;001PV|0010|1|R|0||"));
}

TEST_P(ParameterListImportTest, RowWithoutANameIsNotAddedAndUsesNoNumber) {
    ImportRows({u"", u"001  ABCD1 1010 0 R", u"002 PV 1010 0 R"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0010|1|R|0||"));
}

TEST_P(ParameterListImportTest, RowWithoutAnAddressHasNoLengthAndTheAddress0) {
    ImportRows({u"001 PV"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0|||0||"));
    EXPECT_THAT(dialogs.Texts(), ElementsAre("数据库重置完毕！"));
}

TEST_P(ParameterListImportTest, NothingBehindTheAddressIsNoError) {
    ImportRows({u"001 PV 1010"});
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0010|1||0||"));
    EXPECT_THAT(dialogs.Texts(), ElementsAre("数据库重置完毕！"));
}

TEST_P(ParameterListImportTest, RowsOfCode51HaveTwoBytesAndAnAddressOfFourDigits) {
    ImportRows({u"001 PV 1DFE R"}, u"51000101");
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|1DFE|2|R|0||"));
}

TEST_P(ParameterListImportTest, BadDecimalPointsAreStoredAndTheirParametersNamed) {
    ImportRows({u"1 PV 1010 X R", u"2 SV 1011 1 R", u"3 LOW:AL 1012 -1 R"});
    EXPECT_THAT(Parameters(),
                ElementsAre("1|1|PV|0010|1|R|X||", "2|1|SV|0011|1|R|1||", "3|1|LOW:  AL|0012|1|R|-1||"));
    EXPECT_THAT(dialogs.Texts(), ElementsAre("PV、LOW:  AL  参数数据导入出现错误！"));
}

TEST_P(ParameterListImportTest, BadDecimalPointOfARowWithoutANameIsAnErrorToo) {
    ImportRows({u"1 1010 X R"});
    EXPECT_THAT(Parameters(), IsEmpty());
    EXPECT_THAT(dialogs.Texts(), ElementsAre("  参数数据导入出现错误！"));
}

// --- The export behind it ---

TEST_P(ParameterListImportTest, EveryFinishedImportAppendsTheCatalogueToTheCopy) {
    ImportRows({u"1 PV 1010 X R"});
    Run();
    const std::string block =
        "Device  METER\r\nType    11000101\r\n"
        "001  PV                                      1010 X     R                             \r\n"
        "END\r\nDEVICE   END\r\n";
    EXPECT_EQ(ToUtf8(files.TextFiles[Text(kListCopyFileName)]), block + block);
}

TEST_P(ParameterListImportTest, ExportThatFailsIsToldBehindTheMessageAndTheImportStands) {
    struct Files : testing::FakeProgramFiles {
        std::unique_ptr<GrowingFile> OpenForAppend(const Text&) override {
            throw RuntimeError(RuntimeError::kBadFile);
        }
    } readOnly;
    readOnly.TextFiles[Text(kListFileName)] = u"DEVICE A\r\nTYPE 11000101\r\nEND\r\n";
    EXPECT_EQ(ErrorOf([&] { ImportParameterList(*store, readOnly, dialogs); }), 52);
    EXPECT_THAT(dialogs.Texts(), ElementsAre("数据库重置完毕！"));
    EXPECT_THAT(Instruments(), SizeIs(1));
}

// --- What ends an import goes back ---

TEST_P(ParameterListImportTest, WithoutTheFileNothingChanges) {
    AddOldInstrument();
    EXPECT_EQ(ErrorOf([&] { Run(); }), 53);
    ExpectTheOldInstrument();
}

TEST_P(ParameterListImportTest, FileThatEndsInsideABlockChangesNothingAndExportsNothing) {
    AddOldInstrument();
    for (const std::vector<Text>& lines : {std::vector<Text>{u"DEVICE A"},
                                           {u"DEVICE A", u"TYPE 11000101"},
                                           {u"DEVICE A", u"TYPE 11000101", u"1 PV 1010 R"}}) {
        EXPECT_EQ(ErrorOf([&] { Import(lines); }), 62);
        ExpectTheOldInstrument();
    }
    EXPECT_FALSE(files.TextFiles.contains(Text(kListCopyFileName)));
    EXPECT_THAT(dialogs.Texts(), IsEmpty());
}

TEST_P(ParameterListImportTest, CodeThatIsNoNumberChangesNothing) {
    AddOldInstrument();
    EXPECT_EQ(ErrorOf([&] { ImportRows({}, u"AB000101"); }), 13);
    ExpectTheOldInstrument();
    EXPECT_EQ(ErrorOf([&] { ImportRows({}, u""); }), 13);
    ExpectTheOldInstrument();
}

TEST_P(ParameterListImportTest, LineThatCannotBeReadChangesNothing) {
    AddOldInstrument();
    EXPECT_EQ(ErrorOf([&] { ImportRows({u"1 PV 1010 R", Text(70000, u'X')}); }), 52);
    ExpectTheOldInstrument();
}

TEST_P(ParameterListImportTest, WhicheverStatementFailsNothingHasChanged) {
    AddOldInstrument();
    Put(kListFileName, {u"DEVICE A", u"TYPE 11000101", u"1 PV 1010 R", u"2 SV 1011 R", u"END", u"DEVICE B",
                        u"TYPE 31000301", u"1 PV 1010 R", u"END", u"DEVICE   END"});
    testing::FailingStore failing(*store);
    const int indexCalls = GetParam().engine == StoreEngine::Sqlite ? testing::kIndexCalls : 2;
    int call = 1 + indexCalls;
    for (;; ++call) {
        ASSERT_LT(call, 100);
        failing.FailAt(call);
        if (ErrorOf([&] { ImportParameterList(failing, files, dialogs); }) == 0) break;
        if (!dialogs.Shown.empty()) break;  // the export behind the import
        ExpectTheOldInstrument();
    }
    EXPECT_GT(call, 10 + indexCalls);
    EXPECT_THAT(Instruments(), SizeIs(2));
}

// --- Step by step ---

TEST_P(ParameterListImportTest, TellsHowFarItIs) {
    const std::string list = "DEVICE A\r\nTYPE 11000101\r\n1 PV 1010 R\r\nEND\r\n";
    ParameterListImport import(*store, std::make_unique<BytesOfText>(list));
    EXPECT_TRUE(import.Step());
    EXPECT_EQ(import.Line(), 2);
    EXPECT_EQ(import.Instruments(), 1);
    EXPECT_TRUE(import.Step());
    EXPECT_EQ(import.Parameters(), 1);
    EXPECT_TRUE(import.Step());
    EXPECT_FALSE(import.Step());
    EXPECT_EQ(import.BytesRead(), list.size());
    EXPECT_EQ(import.Size(), list.size());
}

TEST_P(ParameterListImportTest, GoneBeforeItsCommitItLeavesWhatStood) {
    AddOldInstrument();
    {
        ParameterListImport import(*store,
                                   std::make_unique<BytesOfText>("DEVICE A\r\nTYPE 11000101\r\nEND\r\n"));
        while (import.Step()) {
        }
        EXPECT_THAT(Instruments(), SizeIs(1));
    }
    ExpectTheOldInstrument();
}

TEST_P(ParameterListImportTest, ReplacementsAreReadOnce) {
    ParameterListImport import(*store,
                               std::make_unique<BytesOfText>("DEVICE A\r\nTYPE 11000101\r\n1 PV 1010 R\r\n"));
    import.Step();
    Replace(u"PV", u"SV");
    import.Step();
    EXPECT_THAT(Parameters(), ElementsAre("1|1|PV|0010|1|R|0||"));
}

INSTANTIATE_TEST_SUITE_P(Each, ParameterListImportTest, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
