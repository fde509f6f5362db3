#include <gtest/gtest.h>

#include "protocol_modbus/ascii_reply_rows.h"
#include "protocol_modbus/ascii_reply_verdicts.h"
#include "protocol_modbus/modbus_protocols.h"
#include "protocol_modbus/row_manner.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {
namespace {

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
        EXPECT_TRUE(Row(code).IsKnown());
    }
}

TEST(AsciiProtocols, OnlyCode21IsWritten) {
    EXPECT_NE(Row(21).buildWrite, nullptr);
    EXPECT_EQ(Row(22).buildWrite, nullptr);
    EXPECT_EQ(Row(23).buildWrite, nullptr);
}

TEST(AsciiProtocols, Code23KnowsNoReplyAndNoMenu) {
    EXPECT_EQ(Row(23).replyIsComplete, nullptr);
    EXPECT_EQ(Row(23).judge, nullptr);
    EXPECT_EQ(Row(23).words, nullptr);
    EXPECT_EQ(Row(23).decode, nullptr);
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

}  // namespace
}  // namespace commtest
