#include <gtest/gtest.h>

#include "protocol_modbus/modbus_protocols.h"
#include "protocol_modbus/rtu_bench.h"
#include "protocol_modbus/rtu_read_requests.h"
#include "protocol_modbus/rtu_reply_parser.h"
#include "protocol_modbus/rtu_write_requests.h"
#include "session/frame_end.h"
#include "session/operation_menus.h"

namespace commtest {
namespace {

using testing::RtuBench;

TEST(RtuProtocols, EachCodeHasItsNameAndItsRoutines) {
    struct Row {
        int code;
        const char* name;
        void (*buildRead)(MainForm&);
        void (*buildWrite)(MainForm&);
    };
    const Row rows[] = {{31, "ModBus-RTU协议", BuildRtuReadFormA, BuildRtuWrite},
                        {32, "ModBus-RTU协议-定制01", BuildRtuReadFormB, BuildRtuWrite},
                        {33, "ModBus-RTU协议-KD700记录仪", BuildRtuReadFormC, nullptr},
                        {34, "ModBus-RTU协议-TQ记录仪板卡", BuildRtuReadFormA, BuildRtuWrite},
                        {35, "ModBus-RTU协议-标准流量表", BuildRtuReadFormD, BuildRtuWriteFlow},
                        {51, "ModBus-RTU协议-M46T", BuildRtuReadFormD, nullptr}};
    const std::vector<Protocol> family = RtuProtocols();
    ASSERT_EQ(family.size(), std::size(rows));
    for (std::size_t i = 0; i < family.size(); ++i) {
        EXPECT_EQ(family[i].code, rows[i].code);
        EXPECT_EQ(ToUtf8(family[i].name), rows[i].name);
        EXPECT_EQ(family[i].buildRead, rows[i].buildRead) << rows[i].code;
        EXPECT_EQ(family[i].buildWrite, rows[i].buildWrite) << rows[i].code;
        EXPECT_EQ(family[i].parseReply, ParseRtuReply) << rows[i].code;
        EXPECT_EQ(family[i].replyIsComplete, EndsByRtuRule) << rows[i].code;
        EXPECT_FALSE(family[i].continuesOnLineFeed) << rows[i].code;
        EXPECT_EQ(family[i].appendCheckWord, nullptr) << rows[i].code;
        EXPECT_TRUE(family[i].IsBuilt()) << rows[i].code;
    }
}

TEST(RtuProtocols, ChoosingOneShowsFramesInHexadecimalAndBringsItsMenu) {
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

TEST(RtuProtocols, AddressTextHasTwoDigitsOrMore) {
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

TEST(RtuProtocols, ReplayShowsTheAddressOfARecordedFrameExceptOfFlowMeters) {
    for (const int code : {31, 32, 33, 34, 35, 51}) {
        RtuBench bench(code);
        bench.Form().DemoFrames = {u" 0A 03 00 10 00 01 84 B4"};
        EXPECT_EQ(bench.Request(10050), " 0A 03 00 10 00 01 84 B4");
        EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), code < 35 ? "10" : "1") << code;
    }
}

}  // namespace
}  // namespace commtest
