#include "protocol_special/special_protocols.h"

#include <gtest/gtest.h>

#include "protocol_special/hct615d_reply.h"
#include "protocol_special/hct615d_request.h"
#include "protocol_special/novax_reply.h"
#include "protocol_special/novax_requests.h"
#include "protocol_special/row_manner.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {
namespace {

TEST(SpecialProtocols, NovaxReadsWritesAndShowsHexadecimal) {
    const Protocol row = SpecialProtocols().front();
    EXPECT_EQ(row.code, 41);
    EXPECT_EQ(ToUtf8(row.name), "TQ特殊仪表协议-NOVAX");
    EXPECT_EQ(row.buildRead, BuildNovaxReadRequest);
    EXPECT_EQ(row.buildWrite, BuildNovaxWriteRequest);
    EXPECT_EQ(row.replyIsComplete, HasTenBytes);
    EXPECT_EQ(row.judge, JudgeNovaxReply);
    EXPECT_EQ(row.words, WordsOnNovaxReply);
    EXPECT_EQ(row.decode, TestCRCWordNOVAX);
    EXPECT_EQ(row.menu, OperationMenu::Modbus);
    EXPECT_EQ(row.composeAddress, ComposeDoubledAddress);
    EXPECT_EQ(row.showFrameAddress, ShowZeroAddress);
    EXPECT_EQ(row.rows.firstRow, kNovaxRowManner.firstRow);
}

TEST(SpecialProtocols, Hct615dIsReadOnlyWithoutAMenuAndCountsNoWrongCheckWord) {
    ASSERT_EQ(SpecialProtocols().size(), 2U);
    const Protocol row = SpecialProtocols().back();
    EXPECT_EQ(row.code, 42);
    EXPECT_EQ(ToUtf8(row.name), "TQ特殊仪表协议-HCT615D");
    EXPECT_EQ(row.buildRead, BuildHct615dReadRequest);
    EXPECT_EQ(row.buildWrite, nullptr);
    EXPECT_EQ(row.replyIsComplete, HasSixtyFourBytes);
    EXPECT_EQ(row.judge, JudgeHct615dReply);
    EXPECT_EQ(row.words, WordsOnHct615dReply);
    EXPECT_EQ(row.decode, DecodeHct615dReply);
    EXPECT_FALSE(row.countsWrongCheckWords);
    EXPECT_EQ(row.menu, OperationMenu::None);
    EXPECT_EQ(row.composeAddress, ComposeTwoDigitAddress);
    EXPECT_EQ(row.showFrameAddress, nullptr);
    EXPECT_EQ(row.rows.firstRow, kHct615dRowManner.firstRow);
}

TEST(SpecialProtocols, NeitherHasPartsACheckWordOfItsOwnOrARowSteppedOver) {
    for (const Protocol& row : SpecialProtocols()) {
        EXPECT_EQ(row.displayMode, DisplayMode::Hexadecimal) << row.code;
        EXPECT_FALSE(row.continuesOnLineFeed) << row.code;
        EXPECT_FALSE(row.stepsOverSilentRows) << row.code;
        EXPECT_FALSE(row.checkWordIsThatOfAWrite) << row.code;
        EXPECT_EQ(row.appendCheckWord, nullptr) << row.code;
        EXPECT_EQ(row.composeBorrowedAddress, nullptr) << row.code;
    }
}

}  // namespace
}  // namespace commtest
