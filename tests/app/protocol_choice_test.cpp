#include <gtest/gtest.h>

#include "app/ascii_bench.h"
#include "app/rtu_bench.h"
#include "commands/operation_menus.h"
#include "session/address.h"

namespace commtest {
namespace {

using testing::AsciiBench;
using testing::InstrumentBench;
using testing::RtuBench;
using testing::TestParameter;

const std::vector<TestParameter> kArbitraryParameters = {{u"上限", u"0020", u"2", u"RW", u"0"}};

TEST(ChoiceOfAProtocol, OfTheNativeFamilyShowsFramesAsCharactersAndBringsMenu1) {
    for (const int code : {11, 12, 13}) {
        InstrumentBench bench(code, kArbitraryParameters);
        bench.Form().ShowMode.Show(1);
        bench.Choose(Text(bench.Form().protocols.Of(code).name), u"仪表");
        EXPECT_TRUE(bench.Form().ShowMode.IsChosen(0)) << code;
        EXPECT_EQ(bench.Form().ProtocolCode, code);
        EXPECT_EQ(MenuOfProtocol(bench.Form()), 1) << code;
    }
}

TEST(ChoiceOfAProtocol, ReplayShowsTheAddressOfANativeFrameExceptUnderCode13) {
    struct Row {
        int code;
        const char* address;
    };
    for (const Row& row : {Row{11, "10"}, Row{12, "10"}, Row{13, "1"}}) {
        InstrumentBench bench(row.code, kArbitraryParameters);
        bench.Form().DemoFrames = {u" 40 30 41 52 44 36 37 0D"};
        EXPECT_EQ(bench.Poll(10031), "@0ARD67\r");
        EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), row.address) << row.code;
    }
}

TEST(ChoiceOfAProtocol, OfAsciiDigitsComposesTwoDigitsOfAddressAndNoneUnderCode23) {
    for (const int code : {21, 22}) {
        AsciiBench bench(code, {});
        bench.Form().ConMeterAddr.Set(u"10");
        ConMeterAddr_Change(bench.Form());
        EXPECT_EQ(ToUtf8(bench.Form().AddressText), "0A");
    }
    AsciiBench bench(23, {});
    bench.Form().ConMeterAddr.Set(u"10");
    ConMeterAddr_Change(bench.Form());
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), "01");
}

TEST(ChoiceOfAProtocol, OfRtuShowsFramesInHexadecimalAndBringsItsMenu) {
    struct Row {
        int code;
        int menu;
    };
    for (const Row& row : {Row{31, 2}, Row{32, 2}, Row{33, 3}, Row{34, 2}, Row{35, 2}, Row{51, 4}}) {
        RtuBench bench(row.code);
        bench.Form().ShowMode.Show(0);
        bench.Choose(Text(bench.Form().protocols.Of(row.code).name), u"仪表");
        EXPECT_TRUE(bench.Form().ShowMode.IsChosen(1)) << row.code;
        EXPECT_EQ(bench.Form().ProtocolCode, row.code);
        EXPECT_EQ(MenuOfProtocol(bench.Form()), row.menu) << row.code;
    }
}

TEST(ChoiceOfAProtocol, OfRtuComposesTwoDigitsOfAddressOrMore) {
    struct Row {
        const char16_t* address;
        const char* text;
    };
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        for (const Row& row : {Row{u"2", "02"}, Row{u"10", "0A"}, Row{u"255", "FF"}}) {
            RtuBench bench(code);
            bench.Form().ConMeterAddr.Set(row.address);
            EXPECT_EQ(ToUtf8(bench.Form().AddressText), row.text) << code;
        }
    }
}

TEST(ChoiceOfAProtocol, ReplayShowsTheAddressOfAnRtuFrameExceptOfFlowMeters) {
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        RtuBench bench(code);
        bench.Form().DemoFrames = {u" 0A 03 00 10 00 01 84 B4"};
        EXPECT_EQ(bench.Request(10050), " 0A 03 00 10 00 01 84 B4");
        EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), code < 35 ? "10" : "1") << code;
    }
}

}  // namespace
}  // namespace commtest
