#include "catalogue/instrument_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/runtime_error.h"
#include "support/bench_session.h"
#include "support/error_of.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::TestParameter;

const Text kNative = u"TQ仪表协议";
const Text kRtu = u"ModBus-RTU协议";

class InstrumentSelection : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    static std::vector<TestParameter> Parameters(int count, const Text& attribute = u"RW") {
        std::vector<TestParameter> parameters;
        for (int i = 1; i <= count; ++i) {
            parameters.push_back({u"参数" + FromUtf8(std::to_string(i)), u"0100", u"2", attribute, u"0"});
        }
        return parameters;
    }

    void ClickProtocol(const Text& protocol) {
        form.ConCommTypeList.Set(protocol);
        ConCommTypeList_Click(form);
    }

    std::string Instrument() const { return ToUtf8(form.ConMeterName[0].Value()); }

    BenchSession bench{kChineseFace, testing::MakeEmptyCatalogue(GetParam())};
    MainForm& form = bench.Form();
};

// --- The protocol ---

struct Choice {
    Text protocol;
    int button;
    std::int16_t code;
    int displayMode;  // of ShowMode, 9 being what stood before
};

TEST_P(InstrumentSelection, ProtocolNameChoosesItsButtonCodeAndDisplay) {
    const Choice choices[] = {{u"TQ仪表协议", 0, 11, 0},
                              {u"TQ仪表协议-定制累加和", 1, 12, 0},
                              {u"TQ仪表协议-定制异或和", 2, 13, 0},
                              {u"ModBus-Ascii协议", 3, 21, 0},
                              {u"ModBus-Ascii协议-定制01", 4, 22, 0},
                              {u"ModBus-Ascii协议-定制02", 5, 23, 9},
                              {u"ModBus-RTU协议", 6, 31, 1},
                              {u"ModBus-RTU协议-定制01", 7, 32, 1},
                              {u"ModBus-RTU协议-KD700记录仪", 8, 33, 1},
                              {u"ModBus-RTU协议-TQ记录仪板卡", 9, 34, 1},
                              {u"ModBus-RTU协议-标准流量表", 10, 35, 1},
                              {u"TQ特殊仪表协议-NOVAX", 11, 41, 1},
                              {u"TQ特殊仪表协议-HCT615D", 12, 42, 1},
                              {u"ModBus-RTU协议-M46T", 13, 51, 1}};
    for (const Choice& choice : choices) {
        SCOPED_TRACE(ToUtf8(choice.protocol));
        form.ShowMode.Show(9);
        ClickProtocol(choice.protocol);
        EXPECT_EQ(form.ConMeterType.Chosen(), choice.button);
        EXPECT_EQ(form.ProtocolCode, choice.code);
        EXPECT_EQ(form.ShowMode.Chosen(), choice.displayMode);
    }
}

TEST_P(InstrumentSelection, FirstCaptionThatContainsTheNameWins) {
    ClickProtocol(u"KD700");
    EXPECT_EQ(form.ConMeterType.Chosen(), 8);
    ClickProtocol(u"定制01");
    EXPECT_EQ(form.ConMeterType.Chosen(), 4);
    ClickProtocol(u"");
    EXPECT_EQ(form.ConMeterType.Chosen(), 0);
}

TEST_P(InstrumentSelection, UnknownProtocolNameChoosesNoButton) {
    ClickProtocol(kRtu);
    ClickProtocol(u"没有的协议");
    EXPECT_EQ(form.ConMeterType.Chosen(), 6);
    EXPECT_EQ(form.ProtocolCode, 31);
}

TEST_P(InstrumentSelection, ButtonOfTheFirstProtocolOffersTheDemonstrationAndNoOtherTakesItAway) {
    form.ConMyCommDriver.SetEnabled(false);
    form.ConMeterType.Choose(6);
    EXPECT_FALSE(form.ConMyCommDriver.Enabled());
    form.ConMeterType.Choose(0);
    EXPECT_TRUE(form.ConMyCommDriver.Enabled());
    form.ConMeterType.Choose(6);
    EXPECT_TRUE(form.ConMyCommDriver.Enabled());
}

TEST_P(InstrumentSelection, ButtonBehindTheLastProtocolRaisesError9) {
    EXPECT_EQ(ErrorOf([&] { ConMeterType_Click(form, 14); }), 9);
}

TEST_P(InstrumentSelection, ClickOfTheUserOnAButtonChoosesItsProtocolAsFromTheList) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.Add(u"C表", kRtu, u"3101", Parameters(1));
    ClickProtocol(kNative);
    ChooseProtocolOfType(form, 6);
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.Value()), "ModBus-RTU协议");
    EXPECT_EQ(form.ConMeterType.Chosen(), 6);
    EXPECT_EQ(form.ProtocolCode, 31);
    EXPECT_EQ(form.ShowMode.Chosen(), 1);
    EXPECT_EQ(Instrument(), "C表");
}

TEST_P(InstrumentSelection, ClickOfTheUserRunsTheClickOfTheListOnce) {
    int clicks = 0;
    form.ConCommTypeList.Click = [&] { ++clicks; };
    ChooseProtocolOfType(form, 6);
    EXPECT_EQ(clicks, 1);
    form.ConMeterType.Choose(3);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.Value()), "ModBus-RTU协议");
}

TEST_P(InstrumentSelection, ClickOfTheUserBehindTheLastProtocolRaisesError9) {
    ClickProtocol(kNative);
    EXPECT_EQ(ErrorOf([&] { ChooseProtocolOfType(form, 14); }), 9);
    EXPECT_EQ(ErrorOf([&] { ChooseProtocolOfType(form, -1); }), 9);
    EXPECT_EQ(ToUtf8(form.ConCommTypeList.Value()), "TQ仪表协议");
}

TEST_P(InstrumentSelection, ProtocolComposesTheAddressInItsOwnForm) {
    form.ConMeterAddr.Set(u"10");
    ClickProtocol(kNative);
    EXPECT_EQ(ToUtf8(form.AddressText), " 30 41");
    ClickProtocol(kRtu);
    EXPECT_EQ(ToUtf8(form.AddressText), "0A");
}

// --- The instruments of a protocol ---

TEST_P(InstrumentSelection, InstrumentsOfTheProtocolAreListedByNameAndTheFirstIsChosen) {
    bench.Add(u"B表", kNative, u"1101", Parameters(1));
    bench.Add(u"A表", kNative, u"1102", Parameters(2));
    bench.Add(u"C表", kRtu, u"3101", Parameters(1));
    ClickProtocol(kNative);
    EXPECT_THAT(form.ConMeterName[0].Items(), ElementsAre(u"A表", u"B表"));
    EXPECT_EQ(Instrument(), "A表");
    EXPECT_EQ(bench.Cell(2, 1), "参数2");
}

TEST_P(InstrumentSelection, ProtocolWithoutInstrumentsEmptiesNameAndGrid) {
    bench.Add(u"A表", kNative, u"1101", Parameters(2));
    ClickProtocol(kNative);
    ClickProtocol(kRtu);
    EXPECT_THAT(form.ConMeterName[0].Items(), IsEmpty());
    EXPECT_EQ(Instrument(), "");
    EXPECT_EQ(bench.Cell(1, 1), "");
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "");
}

TEST_P(InstrumentSelection, CodeOfTheLastInstrumentWinsOverTheCodeOfTheButton) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.Add(u"B表", kNative, u"3101", Parameters(1));
    ClickProtocol(kNative);
    EXPECT_EQ(Instrument(), "A表");
    EXPECT_EQ(form.ProtocolCode, 31);
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "1101");
    EXPECT_EQ(form.ShowMode.Chosen(), 1);
    EXPECT_EQ(ToUtf8(form.AddressText), "01");
}

TEST_P(InstrumentSelection, InstrumentsFollowTheNameInTheListNotTheButton) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    ClickProtocol(kNative);
    form.ConMeterType.Choose(6);
    EXPECT_THAT(form.ConMeterName[0].Items(), ElementsAre(u"A表"));
    EXPECT_EQ(form.ProtocolCode, 11);
}

TEST_P(InstrumentSelection, FailingQueryPassesTheStoresErrorOn) {
    form.ConCommTypeList.Set(u"TQ'协议");
    EXPECT_EQ(ErrorOf([&] { LoadInstrumentNames(form); }), RuntimeError::kStore);
    form.ConMeterName[0].Set(u"仪表'甲");
    EXPECT_EQ(ErrorOf([&] { ConMeterName_Click(form); }), RuntimeError::kStore);
}

// --- The parameters of an instrument ---

TEST_P(InstrumentSelection, ParameterFieldsGoToColumnsOneToFiveAndTheLimitsNowhere) {
    bench.Add(u"A表", kNative, u"1101", {{u"给定值", u"0123", u"2", u"RWS", u"0010"}});
    bench.store->Execute(u"Update 仪表_参数 Set 上限值 = '900', 下限值 = '-5'");
    ClickProtocol(kNative);
    const char* cells[] = {"001 ", "给定值", "0123", "2", "RWS", "0010", "", "0", "", "", ""};
    for (int col = 0; col < 11; ++col) EXPECT_EQ(bench.Cell(1, col), cells[col]) << col;
}

TEST_P(InstrumentSelection, FieldWithoutAValueGivesAnEmptyCell) {
    bench.Add(u"A表", kNative, u"1101", Parameters(1));
    bench.store->Execute(u"Update 仪表_参数 Set 小数点 = NULL");
    ClickProtocol(kNative);
    EXPECT_EQ(bench.Cell(1, 5), "");
}

struct RowCount {
    int parameters;
    int rows;
};

TEST_P(InstrumentSelection, GridHasARowForEachParameterAndAtLeastFifteen) {
    for (const RowCount& row : {RowCount{1, 15}, RowCount{2, 15}, RowCount{13, 15}, RowCount{14, 15},
                                RowCount{15, 16}, RowCount{200, 201}}) {
        BenchSession each(kChineseFace, testing::MakeEmptyCatalogue(GetParam()));
        each.Add(u"A表", kNative, u"1101", Parameters(row.parameters));
        each.Choose(kNative, u"A表");
        EXPECT_EQ(each.Form().ParameterGrid().Rows(), row.rows) << row.parameters;
        EXPECT_EQ(each.Form().ParameterGrid().Column(1).width, 3200);
        EXPECT_EQ(each.Form().ParameterGrid().Cols(), 11);
    }
}

TEST_P(InstrumentSelection, EmptyRowsOfAShortListAreNumberedToo) {
    bench.Add(u"A表", kNative, u"1101", Parameters(2));
    ClickProtocol(kNative);
    EXPECT_EQ(bench.Cell(3, 0), "003 ");
    EXPECT_EQ(bench.Cell(14, 0), "014 ");
    EXPECT_EQ(bench.Cell(3, 1), "");
}

TEST_P(InstrumentSelection, InstrumentWithoutParametersHasAnEmptyGridOfFifteenRowsAndNoCode) {
    bench.Add(u"A表", kNative, u"1101", Parameters(20));
    ClickProtocol(kNative);
    form.ConMeterName[0].Set(u"没有参数的仪表");
    ConMeterName_Click(form);
    EXPECT_EQ(form.ParameterGrid().Rows(), 15);
    EXPECT_EQ(bench.Cell(1, 1), "");
    EXPECT_EQ(bench.Cell(1, 7), "");
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "");
}

TEST_P(InstrumentSelection, ColumnSevenOfTheFirstFiveParametersIsPresetWithTheirNumberFromZero) {
    bench.Add(u"A表", kNative, u"1101", Parameters(7));
    ClickProtocol(kNative);
    for (int row = 1; row <= 5; ++row) EXPECT_EQ(bench.Cell(row, 7), std::to_string(row - 1));
    EXPECT_EQ(bench.Cell(6, 7), "");
    EXPECT_EQ(bench.Cell(7, 7), "");
}

TEST_P(InstrumentSelection, PresetStandsOnlyBesideAParameter) {
    bench.Add(u"A表", kNative, u"1101", Parameters(2));
    ClickProtocol(kNative);
    EXPECT_EQ(bench.Cell(2, 7), "1");
    EXPECT_EQ(bench.Cell(3, 7), "");
}

TEST_P(InstrumentSelection, PresetStaysUntilAReplyOverwritesIt) {
    bench.Add(u"A表", kNative, u"1101", Parameters(3));
    bench.Choose(kNative, u"A表");
    form.CommandCode = 20;
    bench.WillAnswer({"40 30 31 52 52 43 38 30 30 37 41 0D"});  // one value, C800
    bench.Press(4);
    bench.line.RunUntil(301);
    EXPECT_EQ(bench.Cell(1, 7), "C800");
    EXPECT_EQ(bench.Cell(2, 7), "1");
}

TEST_P(InstrumentSelection, InstrumentCodeComesFromTheCatalogue) {
    bench.Add(u"A表", kNative, u"11020304", Parameters(3));
    ClickProtocol(kNative);
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "11020304");
}

TEST_P(InstrumentSelection, OfTwoInstrumentsOfOneNameTheFirstParameterGivesTheCode) {
    bench.Add(u"A表", kNative, u"1102", Parameters(1));
    bench.Add(u"A表", kNative, u"1101", Parameters(2));
    ClickProtocol(kNative);
    EXPECT_EQ(ToUtf8(form.MeterCodeText), "1102");
    EXPECT_EQ(bench.Cell(3, 1), "参数2");
}

TEST_P(InstrumentSelection, FirstDataRowIsTheFirstRowThatIsExactlyReadableAndWritable) {
    bench.Add(u"A表", kNative, u"1101",
              {{u"甲", u"0000", u"3", u"W", u"0"},
               {u"乙", u"0100", u"2", u"RWS", u"0"},
               {u"丙", u"0102", u"2", u"RW", u"0"}});
    ClickProtocol(kNative);
    EXPECT_EQ(form.FirstDataRow, 3);
}

TEST_P(InstrumentSelection, RowsOfTheInstrumentBeforeAreKeptWhereTheNewOneHasNone) {
    bench.Add(u"A表", kNative, u"1101", Parameters(3, u"R"));
    form.FirstDataRow = 8;
    form.CurrentRow = 9;
    ClickProtocol(kNative);
    EXPECT_EQ(form.FirstDataRow, 8);
    EXPECT_EQ(form.CurrentRow, 9);
}

TEST_P(InstrumentSelection, SelectionBeginsWithACleanGridAndTheFirstCell) {
    bench.Add(u"A表", kNative, u"1101", Parameters(3));
    ClickProtocol(kNative);
    Grid& grid = form.ParameterGrid();
    grid.SetCell(1, 9, u"200");
    grid.SetCellColour(1, 6, kLightRed);
    grid.Select(2, 10);
    grid.Redraw = false;
    ConMeterName_Click(form);
    EXPECT_EQ(bench.Cell(1, 9), "");
    EXPECT_THAT(grid.Colours(), IsEmpty());
    EXPECT_EQ(grid.Row, 0);
    EXPECT_EQ(grid.Col, 0);
    EXPECT_TRUE(grid.Redraw);
}

TEST_P(InstrumentSelection, SelectionEmptiesSamplesAndSentFramesAndAsksForTheFocus) {
    bench.Add(u"A表", kNative, u"1101", Parameters(3));
    form.StaticSample = u" 40";
    form.DynamicSample = u" 41";
    form.ConSendOutString[0].Add(u" 40");
    form.ConMeterName[0].Set(u"A表");
    ConMeterName_Click(form);
    EXPECT_EQ(ToUtf8(form.StaticSample + form.DynamicSample), "");
    EXPECT_THAT(form.ConSendOutString[0].Items(), IsEmpty());
    EXPECT_EQ(form.Focus.Wanted(), FocusWish::Target::ParameterGrid);
}

struct DataType {
    Text code;
    std::string type;
};

TEST_P(InstrumentSelection, ThirdAndFourthCharacterOfTheCodeChooseTheDataType) {
    for (int i = 0; i <= 11; ++i) form.ConDataTypeList.Add(u"类型" + FromUtf8(std::to_string(i)));
    for (const DataType& row :
         {DataType{u"1101", "类型1"}, DataType{u"1110", "类型10"}, DataType{u"110299", "类型2"},
          DataType{u"1100", "前"}, DataType{u"1111", "前"}, DataType{u"11", "前"}, DataType{u"11AB", "前"}}) {
        bench.store->Execute(u"Delete From 仪表_名称");
        bench.store->Execute(u"Delete From 仪表_参数");
        bench.Add(u"A表", kNative, row.code, Parameters(1));
        form.ConDataTypeList.Set(u"前");
        form.ConMeterName[0].Set(u"A表");
        ConMeterName_Click(form);
        EXPECT_EQ(ToUtf8(form.ConDataTypeList.Value()), row.type) << ToUtf8(row.code);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, InstrumentSelection, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
