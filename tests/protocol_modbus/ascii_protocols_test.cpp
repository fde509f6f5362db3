#include <gtest/gtest.h>

#include "protocol_modbus/ascii_bench.h"
#include "protocol_modbus/modbus_protocols.h"
#include "session/address.h"
#include "session/frame_end.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using testing::AsciiBench;

const Protocol& Row(int code) {
    static const std::vector<Protocol> rows = AsciiProtocols();
    return rows.at(static_cast<std::size_t>(code - 21));
}

TEST(AsciiProtocols, EachHasItsCodeAndItsNameOfTheCatalogue) {
    EXPECT_EQ(AsciiProtocols().size(), 3U);
    const char* names[] = {"ModBus-Ascii协议", "ModBus-Ascii协议-定制01", "ModBus-Ascii协议-定制02"};
    for (const int code : {21, 22, 23}) {
        EXPECT_EQ(Row(code).code, code);
        EXPECT_EQ(ToUtf8(Row(code).name), names[code - 21]);
        EXPECT_TRUE(Row(code).IsBuilt());
    }
}

TEST(AsciiProtocols, OnlyCode21IsWritten) {
    EXPECT_NE(Row(21).buildWrite, nullptr);
    EXPECT_EQ(Row(22).buildWrite, nullptr);
    EXPECT_EQ(Row(23).buildWrite, nullptr);
}

TEST(AsciiProtocols, Code23KnowsNoReplyAndNoMenu) {
    EXPECT_EQ(Row(23).replyIsComplete, nullptr);
    EXPECT_EQ(Row(23).parseReply, nullptr);
    EXPECT_EQ(Row(23).displayMode, DisplayMode::Unchanged);
    EXPECT_EQ(Row(23).menu, OperationMenu::None);
}

TEST(AsciiProtocols, TheOthersEndAtALineFeedAndShowCharacters) {
    for (const int code : {21, 22}) {
        EXPECT_EQ(Row(code).replyIsComplete, EndsWithLineFeed);
        EXPECT_EQ(Row(code).displayMode, DisplayMode::Ascii);
        EXPECT_EQ(Row(code).menu, OperationMenu::Modbus);
        EXPECT_EQ(Row(code).showFrameAddress, ShowAsciiFrameAddress);
        EXPECT_FALSE(Row(code).continuesOnLineFeed);
    }
}

TEST(AsciiProtocols, AddressHasTwoDigitsAndStaysUnderCode23) {
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

TEST(AsciiProtocols, CheckWordOfCode21IsAWriteOfTheCurrentRow) {
    AsciiBench bench(21, {{u"上限", u"0010", u"2", u"RW", u"0"}});
    bench.Rows().Select(6, column::kNewValue);
    bench.Form().InputText.Set(u"1000");
    HexText frame = u"3A 30";
    MakeCRCWord(bench.Form(), frame);
    EXPECT_EQ(ToUtf8(frame), " 3A 30");
    EXPECT_EQ(bench.Frame(), ":0106001003E8FE\r");
}

TEST(AsciiProtocols, CheckWordOfTheCustomFormsIsNone) {
    for (const int code : {22, 23}) {
        AsciiBench bench(code, {});
        bench.Form().SendText = u" 41";
        HexText frame = u"3A 30";
        MakeCRCWord(bench.Form(), frame);
        EXPECT_EQ(ToUtf8(frame), " 3A 30");
        EXPECT_EQ(ToUtf8(bench.Form().SendText), " 41");
    }
}

}  // namespace
}  // namespace commtest
