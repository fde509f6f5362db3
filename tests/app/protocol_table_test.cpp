#include "app/protocol_table.h"

#include <gtest/gtest.h>

#include "protocol_native/read_requests.h"
#include "protocol_native/reply_rows.h"
#include "protocol_native/reply_verdicts.h"
#include "protocol_native/write_requests.h"
#include "protocol_special/hct615d_request.h"
#include "runtime/hex_text.h"
#include "session/address.h"
#include "session/frame_end.h"
#include "support/bench_session.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using testing::FormBench;

using EndRule = bool (*)(const HexText& reply, const HexText& request);
using AddressForm = void (*)(Conversation&);
using AddressOfFrame = void (*)(Conversation&, const HexText&);

struct Row {
    int code;
    std::string name;
    EndRule endRule;
    DisplayMode displayMode;
    OperationMenu menu;
    AddressForm addressForm;
    AddressOfFrame addressOfFrame;
};

const std::vector<Row>& Rows() {
    using enum DisplayMode;
    static const std::vector<Row> rows = {
        {11, "TQ仪表协议", EndsWithLineEnd, Ascii, OperationMenu::Native, ComposeAsciiAddress,
         ShowAsciiFrameAddress},
        {12, "TQ仪表协议-定制累加和", EndsWithLineEnd, Ascii, OperationMenu::Native, ComposeAsciiAddress,
         ShowAsciiFrameAddress},
        {13, "TQ仪表协议-定制异或和", EndsWithLineEnd, Ascii, OperationMenu::Native, nullptr, nullptr},
        {21, "ModBus-Ascii协议", EndsWithLineFeed, Ascii, OperationMenu::Modbus, ComposeTwoDigitAddress,
         ShowAsciiFrameAddress},
        {22, "ModBus-Ascii协议-定制01", EndsWithLineFeed, Ascii, OperationMenu::Modbus,
         ComposeTwoDigitAddress, ShowAsciiFrameAddress},
        {23, "ModBus-Ascii协议-定制02", nullptr, Unchanged, OperationMenu::None, nullptr, nullptr},
        {31, "ModBus-RTU协议", EndsByRtuRule, Hexadecimal, OperationMenu::Modbus, ComposeTwoDigitAddress,
         ShowByteFrameAddress},
        {32, "ModBus-RTU协议-定制01", EndsByRtuRule, Hexadecimal, OperationMenu::Modbus,
         ComposeTwoDigitAddress, ShowByteFrameAddress},
        {33, "ModBus-RTU协议-KD700记录仪", EndsByRtuRule, Hexadecimal, OperationMenu::Recorder,
         ComposeTwoDigitAddress, ShowByteFrameAddress},
        {34, "ModBus-RTU协议-TQ记录仪板卡", EndsByRtuRule, Hexadecimal, OperationMenu::Modbus,
         ComposeTwoDigitAddress, ShowByteFrameAddress},
        {35, "ModBus-RTU协议-标准流量表", EndsByRtuRule, Hexadecimal, OperationMenu::Modbus,
         ComposeTwoDigitAddress, nullptr},
        {41, "TQ特殊仪表协议-NOVAX", HasTenBytes, Hexadecimal, OperationMenu::Modbus, ComposeDoubledAddress,
         ShowZeroAddress},
        {42, "TQ特殊仪表协议-HCT615D", HasSixtyFourBytes, Hexadecimal, OperationMenu::None,
         ComposeTwoDigitAddress, nullptr},
        {51, "ModBus-RTU协议-M46T", EndsByRtuRule, Hexadecimal, OperationMenu::FlowMeter,
         ComposeTwoDigitAddress, nullptr}};
    return rows;
}

TEST(ProtocolTable, HoldsTheFourteenProtocols) {
    ASSERT_EQ(Protocols().rows.size(), 14u);
    for (const Row& expected : Rows()) {
        SCOPED_TRACE(expected.code);
        const Protocol& row = Protocols().Of(expected.code);
        EXPECT_EQ(row.code, expected.code);
        EXPECT_EQ(ToUtf8(row.name), expected.name);
        EXPECT_EQ(row.replyIsComplete, expected.endRule);
        EXPECT_EQ(row.displayMode, expected.displayMode);
        EXPECT_EQ(row.menu, expected.menu);
        EXPECT_EQ(row.composeAddress, expected.addressForm);
        EXPECT_EQ(row.showFrameAddress, expected.addressOfFrame);
    }
}

TEST(ProtocolTable, ProtocolsThatComposeNoAddressNameTheFormOfTheirFamily) {
    for (const Protocol& row : Protocols().rows) {
        const AddressForm borrowed = row.code == 13   ? ComposeAsciiAddress
                                     : row.code == 23 ? ComposeTwoDigitAddress
                                                      : nullptr;
        EXPECT_EQ(row.composeBorrowedAddress, borrowed) << row.code;
    }
    EXPECT_EQ(Protocols().defaultRow.composeBorrowedAddress, nullptr);
}

// The catalogue's rows are made in this order; a name is looked up as contained in a caption.
TEST(ProtocolTable, RowsStandInTheOrderOfTheirCodesABaseNameBeforeItsVariants) {
    for (std::size_t i = 0; i < Rows().size(); ++i)
        EXPECT_EQ(Protocols().rows.at(i).code, Rows()[i].code) << i;
}

struct NativeRow {
    int code;
    void (*buildRead)(Conversation&, Clock&);
    void (*buildWrite)(Conversation&, Dialogs&);
    Verdict (*judge)(const Exchange&);
};

TEST(ProtocolTable, NativeProtocolsShareWordsAndDecoderAndDifferInTheirBuildersAndCheckWords) {
    for (const NativeRow& expected :
         {NativeRow{11, BuildTqReadRequest, BuildTqWriteRequest, JudgeTqReply},
          NativeRow{12, BuildTqGroupReadRequest, BuildTqWriteRequestTwo, JudgeTqReplyTwo},
          NativeRow{13, BuildTqReadRequest, nullptr, JudgeTqReply}}) {
        const Protocol& row = Protocols().Of(expected.code);
        EXPECT_EQ(row.buildRead, expected.buildRead) << expected.code;
        EXPECT_EQ(row.buildWrite, expected.buildWrite) << expected.code;
        EXPECT_EQ(row.judge, expected.judge) << expected.code;
        EXPECT_EQ(row.words, WordsOnTqReply) << expected.code;
        EXPECT_EQ(row.decode, DecodeTqReplyRows) << expected.code;
    }
}

TEST(ProtocolTable, OnlyNativeProtocolsContinueOnALineFeed) {
    for (const Protocol& row : Protocols().rows) {
        EXPECT_EQ(row.continuesOnLineFeed, row.code < 20) << row.code;
    }
}

TEST(ProtocolTable, EveryRowBuildsItsReads) {
    for (const Protocol& row : Protocols().rows) {
        EXPECT_NE(row.buildRead, nullptr) << row.code;
        EXPECT_NE(row.rows.firstRow, nullptr) << row.code;
        EXPECT_TRUE(row.IsKnown()) << row.code;
    }
    for (const int code : {0, 14, 99}) EXPECT_FALSE(Protocols().Of(code).IsKnown()) << code;
}

TEST(ProtocolTable, ProtocolThatWritesTellsHowItsRowsAreReadBack) {
    for (const Protocol& row : Protocols().rows) {
        if (row.buildWrite == nullptr) continue;
        EXPECT_NE(row.rows.whyUnreadable, nullptr) << row.code;
        EXPECT_NE(row.rows.decimalsRow, nullptr) << row.code;
        EXPECT_NE(row.rows.codeOf, nullptr) << row.code;
        EXPECT_NE(row.rows.valueOf, nullptr) << row.code;
        EXPECT_NE(row.rows.withDecimals, nullptr) << row.code;
    }
}

TEST(ProtocolTable, EveryOtherCodeReadsAsCode42AndHasNoEndRuleNoJudgeNoMenuAndNoAddress) {
    for (const int code : {0, -1, 10, 14, 24, 36, 52, 99}) {
        const Protocol& row = Protocols().Of(code);
        EXPECT_EQ(row.buildRead, &BuildHct615dReadRequest) << code;
        EXPECT_EQ(row.buildWrite, nullptr) << code;
        EXPECT_EQ(row.replyIsComplete, nullptr) << code;
        EXPECT_EQ(row.judge, nullptr) << code;
        EXPECT_EQ(row.displayMode, DisplayMode::Unchanged) << code;
        EXPECT_EQ(row.menu, OperationMenu::None) << code;
        EXPECT_EQ(row.composeAddress, nullptr) << code;
    }
}

// An instrument without parameters leaves the code 0 behind its first reply.
TEST(ProtocolTable, UnknownCodePollsWithTheRequestOfCode42) {
    testing::BenchSession bench;
    bench.Form().ProtocolCode = 0;
    bench.Form().AddressText = u"01";
    bench.Press(4);
    bench.line.RunUntil(300);
    ASSERT_EQ(bench.SentFrames().size(), 1U);
    EXPECT_EQ(bench.SentFrames()[0], "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05");
}

struct CheckWord {
    std::int16_t code;
    std::string frame;
};

TEST(MakeCRCWord, AppendsTheCheckWordOfTheProtocolInUse) {
    for (const CheckWord& row :
         {CheckWord{11, " 40 30 31 52 44 31 37"}, CheckWord{12, " 40 30 31 52 44 46 37"},
          CheckWord{13, " 40 30 31 52 44 31 37"}, CheckWord{22, " 40 30 31 52 44"},
          CheckWord{0, " 40 30 31 52 44"}}) {
        FormBench bench;
        bench.form.ProtocolCode = row.code;
        HexText frame = u"40 30 31 52 44";
        MakeCRCWord(bench.form, frame);
        EXPECT_EQ(ToUtf8(frame), row.frame) << row.code;
    }
}

}  // namespace
}  // namespace commtest
