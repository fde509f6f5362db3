#include "protocol_native/native_protocols.h"

#include <gtest/gtest.h>

#include "protocol_native/check_words.h"
#include "protocol_native/read_requests.h"
#include "protocol_native/reply_rows.h"
#include "protocol_native/reply_verdicts.h"
#include "protocol_native/row_manner.h"
#include "protocol_native/write_requests.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {
namespace {

TEST(NativeProtocols, EachCodeHasItsRoutines) {
    struct Row {
        int code;
        void (*buildRead)(Conversation&, Clock&);
        void (*buildWrite)(Conversation&, Dialogs&);
        void (*appendCheckWord)(HexText&);
        Verdict (*judge)(const Exchange&);
        void (*composeAddress)(Conversation&);
        void (*showFrameAddress)(Conversation&, const HexText&);
    };
    const Row rows[] = {{11, BuildTqReadRequest, BuildTqWriteRequest, MakeCRCWordTq, JudgeTqReply,
                         ComposeAsciiAddress, ShowAsciiFrameAddress},
                        {12, BuildTqGroupReadRequest, BuildTqWriteRequestTwo, MakeCRCWordTqTwo,
                         JudgeTqReplyTwo, ComposeAsciiAddress, ShowAsciiFrameAddress},
                        {13, BuildTqReadRequest, nullptr, MakeCRCWordTq, JudgeTqReply, nullptr, nullptr}};
    const std::vector<Protocol> family = NativeProtocols();
    ASSERT_EQ(family.size(), std::size(rows));
    for (std::size_t i = 0; i < family.size(); ++i) {
        EXPECT_EQ(family[i].code, rows[i].code);
        EXPECT_EQ(family[i].buildRead, rows[i].buildRead) << rows[i].code;
        EXPECT_EQ(family[i].buildWrite, rows[i].buildWrite) << rows[i].code;
        EXPECT_EQ(family[i].appendCheckWord, rows[i].appendCheckWord) << rows[i].code;
        EXPECT_EQ(family[i].judge, rows[i].judge) << rows[i].code;
        EXPECT_EQ(family[i].composeAddress, rows[i].composeAddress) << rows[i].code;
        EXPECT_EQ(family[i].showFrameAddress, rows[i].showFrameAddress) << rows[i].code;
    }
}

TEST(NativeProtocols, AllSpeakInCharactersAndContinueOnALineFeed) {
    for (const Protocol& row : NativeProtocols()) {
        EXPECT_EQ(row.replyIsComplete, EndsWithLineEnd) << row.code;
        EXPECT_TRUE(row.continuesOnLineFeed) << row.code;
        EXPECT_EQ(row.words, WordsOnTqReply) << row.code;
        EXPECT_EQ(row.decode, DecodeTqReplyRows) << row.code;
        EXPECT_TRUE(row.countsWrongCheckWords) << row.code;
        EXPECT_FALSE(row.stepsOverSilentRows) << row.code;
        EXPECT_EQ(row.displayMode, DisplayMode::Ascii) << row.code;
        EXPECT_EQ(row.menu, OperationMenu::Native) << row.code;
        EXPECT_EQ(row.rows.firstRow, kNativeRowManner.firstRow) << row.code;
        EXPECT_TRUE(row.IsKnown()) << row.code;
    }
}

}  // namespace
}  // namespace commtest
