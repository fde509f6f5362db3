#include <gtest/gtest.h>

#include "protocol_modbus/modbus_protocols.h"
#include "protocol_modbus/row_manner.h"
#include "protocol_modbus/rtu_read_requests.h"
#include "protocol_modbus/rtu_reply_rows.h"
#include "protocol_modbus/rtu_reply_verdicts.h"
#include "protocol_modbus/rtu_write_requests.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {
namespace {

TEST(RtuProtocols, EachCodeHasItsNameAndItsRoutines) {
    struct Row {
        int code;
        const char* name;
        void (*buildRead)(Conversation&, Clock&);
        void (*buildWrite)(Conversation&, Dialogs&);
        OperationMenu menu;
        void (*showFrameAddress)(Conversation&, const HexText&);
    };
    const Row rows[] = {
        {31, "ModBus-RTU协议", BuildRtuReadFormA, BuildRtuWrite, OperationMenu::Modbus, ShowByteFrameAddress},
        {32, "ModBus-RTU协议-定制01", BuildRtuReadFormB, BuildRtuWrite, OperationMenu::Modbus,
         ShowByteFrameAddress},
        {33, "ModBus-RTU协议-KD700记录仪", BuildRtuReadFormC, nullptr, OperationMenu::Recorder,
         ShowByteFrameAddress},
        {34, "ModBus-RTU协议-TQ记录仪板卡", BuildRtuReadFormA, BuildRtuWrite, OperationMenu::Modbus,
         ShowByteFrameAddress},
        {35, "ModBus-RTU协议-标准流量表", BuildRtuReadFormD, BuildRtuWriteFlow, OperationMenu::Modbus,
         nullptr},
        {51, "ModBus-RTU协议-M46T", BuildRtuReadFormD, nullptr, OperationMenu::FlowMeter, nullptr}};
    const std::vector<Protocol> family = RtuProtocols();
    ASSERT_EQ(family.size(), std::size(rows));
    for (std::size_t i = 0; i < family.size(); ++i) {
        EXPECT_EQ(family[i].code, rows[i].code);
        EXPECT_EQ(ToUtf8(family[i].name), rows[i].name);
        EXPECT_EQ(family[i].buildRead, rows[i].buildRead) << rows[i].code;
        EXPECT_EQ(family[i].buildWrite, rows[i].buildWrite) << rows[i].code;
        EXPECT_EQ(family[i].menu, rows[i].menu) << rows[i].code;
        EXPECT_EQ(family[i].showFrameAddress, rows[i].showFrameAddress) << rows[i].code;
    }
}

TEST(RtuProtocols, AllEndByOneRuleAndShowHexadecimal) {
    for (const Protocol& row : RtuProtocols()) {
        EXPECT_EQ(row.replyIsComplete, EndsByRtuRule) << row.code;
        EXPECT_EQ(row.judge, JudgeRtuReply) << row.code;
        EXPECT_EQ(row.words, WordsOnRtuReply) << row.code;
        EXPECT_EQ(row.decode, DecodeRtuRows) << row.code;
        EXPECT_TRUE(row.countsWrongCheckWords) << row.code;
        EXPECT_EQ(row.stepsOverSilentRows, row.code == 51) << row.code;
        EXPECT_EQ(row.checkWordIsThatOfAWrite, row.code == 31) << row.code;
        EXPECT_EQ(row.displayMode, DisplayMode::Hexadecimal) << row.code;
        EXPECT_EQ(row.composeAddress, ComposeTwoDigitAddress) << row.code;
        EXPECT_EQ(row.rows.firstRow, kRtuRowManner.firstRow) << row.code;
        EXPECT_FALSE(row.continuesOnLineFeed) << row.code;
        EXPECT_EQ(row.appendCheckWord, nullptr) << row.code;
        EXPECT_TRUE(row.IsKnown()) << row.code;
    }
}

}  // namespace
}  // namespace commtest
