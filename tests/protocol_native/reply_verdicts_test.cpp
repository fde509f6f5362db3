#include "protocol_native/reply_verdicts.h"

#include <gtest/gtest.h>

#include "protocol_native/native_protocols.h"
#include "support/conversation_bench.h"
#include "support/verdict_text.h"

namespace commtest {
namespace {

using testing::FrameOf;
using testing::Received;

constexpr const char* kGoodReply = "@01RDC800646E\r";
constexpr const char* kBadReply = "@01RDC800646F\r";

Protocol Row(int code = 11) { return testing::RowOf(NativeProtocols(), code); }

std::string VerdictOn(const Protocol& protocol, const Exchange& exchange) {
    return testing::TextOf(protocol.judge(exchange));
}

std::string WordsOn(const Protocol& protocol, const Exchange& exchange) {
    return ToUtf8(protocol.words(exchange, protocol.judge(exchange), kChineseTexts));
}

Exchange Reply(std::string_view characters, Ending ending = Ending::Complete) {
    return Received(FrameOf(characters), ending);
}

// --- The check word ---

TEST(NativeVerdict, CompleteReplyAndPartAreJudgedByTheirCheckWord) {
    for (const Ending ending : {Ending::Complete, Ending::Continued}) {
        const Exchange good = Reply(kGoodReply, ending);
        EXPECT_EQ(VerdictOn(Row(), good), "right data RD decodes");
        EXPECT_EQ(WordsOn(Row(), good), "CRC校验正确       读取 1# 仪表的动态数据");
        const Exchange bad = Reply(kBadReply, ending);
        EXPECT_EQ(VerdictOn(Row(), bad), "wrong data RD");
        EXPECT_EQ(WordsOn(Row(), bad), "CRC校验错误       读取 1# 仪表的动态数据");
    }
}

TEST(NativeVerdict, EachCodeHasItsCheckWord) {
    struct Case {
        int code;
        const char* good;
        const char* bad;
    };
    const Case cases[] = {{11, "@01RDC800646E\r", "@01RDC800643C\r"},
                          {12, "@01RDC800643C\r", "@01RDC800646E\r"},
                          {13, "@01RDC8006405E\r", "@01RDC8006406C\r"}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(Row(one.code), Reply(one.good)), "right data RD decodes") << one.code;
        EXPECT_EQ(VerdictOn(Row(one.code), Reply(one.bad)), "wrong data RD") << one.code;
    }
}

TEST(NativeVerdict, FillBehindTheCheckWordFailsUnderEveryCode) {
    for (const int code : {11, 13}) {
        EXPECT_EQ(VerdictOn(Row(code), Reply("@01RDC800646E00\r")), "wrong data RD") << code;
    }
}

TEST(NativeVerdict, SumThatLeaves16BitsIsAWrongCheckWord) {
    EXPECT_EQ(VerdictOn(Row(12), Reply("@01RD" + std::string(140, '\xFF') + "00\r")), "wrong data RD");
}

// --- The ending ---

TEST(NativeVerdict, WaitThatRanOutIsNamedWhateverHasCome) {
    struct Case {
        Ending ending;
        const char* reply;
        const char* words;
    };
    const Case cases[] = {
        {Ending::Silent, "", "仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
        {Ending::Silent, kGoodReply, "仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
        {Ending::Incomplete, "@01R", "数据不完整  注意：仪表无应答或返回软件无法识别的数据"},
        {Ending::Incomplete, kGoodReply, "数据不完整  注意：仪表无应答或返回软件无法识别的数据"}};
    for (const Case& one : cases) {
        const Exchange exchange = Reply(one.reply, one.ending);
        EXPECT_EQ(VerdictOn(Row(), exchange), "unjudged unknown logs ready drops") << one.reply;
        EXPECT_EQ(WordsOn(Row(), exchange), one.words);
    }
}

// No check word is looked at, and nothing goes to the grid.
TEST(NativeVerdict, UnjudgedReplyIsNamedByItsWordAlone) {
    for (const char* reply : {kGoodReply, kBadReply}) {
        EXPECT_EQ(VerdictOn(Row(), Reply(reply, Ending::Unjudged)), "unjudged data RD");
        EXPECT_EQ(WordsOn(Row(), Reply(reply, Ending::Unjudged)), "     读取 1# 仪表的动态数据");
    }
    EXPECT_EQ(VerdictOn(Row(), Reply("", Ending::Unjudged)), "unjudged unknown logs ready");
    EXPECT_EQ(WordsOn(Row(), Reply("", Ending::Unjudged)), "");
    EXPECT_EQ(VerdictOn(Row(), Reply("@01XX", Ending::Unjudged)), "unjudged unknown XX logs ready");
}

// --- The reply word ---

TEST(NativeVerdict, ReplyWordSaysWhatWasAnswered) {
    struct Case {
        const char* reply;
        const char* verdict;
        const char* words;
    };
    const Case cases[] = {{"@07RR07\r", "right data RR decodes", "     读取 7# 仪表的静态数据"},
                          {"@07RD11\r", "right data RD decodes", "     读取 7# 仪表的动态数据"},
                          {"@07RE10\r", "right data RE decodes", "     读取 7# 仪表的指定参数的数值"},
                          {"@07**07\r", "right refused ** decodes logs", "     注意： 7# 仪表的通讯出错"},
                          {"@07##07\r", "right written ## decodes", "     修改 7# 仪表的参数"},
                          {"@07rd11\r", "right unknown rd decodes logs ready", ""},
                          {"@07W262\r", "right unknown W2 decodes logs ready", ""}};
    for (const Case& one : cases) {
        Exchange exchange = Reply(one.reply);
        exchange.address = u"7";
        EXPECT_EQ(VerdictOn(Row(), exchange), one.verdict) << one.reply;
        EXPECT_EQ(WordsOn(Row(), exchange), "CRC校验正确  " + std::string(one.words)) << one.reply;
    }
}

TEST(NativeVerdict, RefusalWithAWrongCheckWordIsLoggedAndNotDecoded) {
    EXPECT_EQ(VerdictOn(Row(), Reply("@01**02\r")), "wrong refused ** logs");
    EXPECT_EQ(WordsOn(Row(), Reply("@01**02\r")), "CRC校验错误       注意： 1# 仪表的通讯出错");
}

TEST(NativeVerdict, ReplyTooShortForAWordIsUnknown) {
    struct Case {
        const char* reply;
        Ending ending;
        const char* verdict;
    };
    const Case cases[] = {{"\r", Ending::Complete, "wrong unknown logs ready"},
                          {"\n", Ending::Continued, "wrong unknown logs ready"},
                          {"@01R\r", Ending::Complete, "wrong unknown R\\0D logs ready"}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(Row(), Reply(one.reply, one.ending)), one.verdict);
        EXPECT_EQ(WordsOn(Row(), Reply(one.reply, one.ending)), "CRC校验错误  ");
    }
}

TEST(NativeVerdict, AddressIsTheOneThatTheUserReads) {
    Exchange exchange = Reply(kGoodReply);
    exchange.address = u"测试";
    exchange.addressText = u" 30 41";
    EXPECT_EQ(WordsOn(Row(), exchange), "CRC校验正确       读取 测试# 仪表的动态数据");
}

}  // namespace
}  // namespace commtest
