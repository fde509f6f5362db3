#include "protocol_modbus/rtu_reply_verdicts.h"

#include <gtest/gtest.h>

#include "support/verdict_text.h"

namespace commtest {
namespace {

using testing::Received;

const HexText kGoodReply = u" 01 03 02 00 64 B9 AF";
const HexText kBadReply = u" 01 03 02 00 64 B9 AE";

const std::string kRight = "CRC校验正确  ";
const std::string kWrong = "CRC校验错误  ";

std::string VerdictOn(const HexText& reply, Ending ending = Ending::Complete) {
    return testing::TextOf(JudgeRtuReply(Received(reply, ending)));
}

std::string WordsOn(const Exchange& exchange) {
    return ToUtf8(WordsOnRtuReply(exchange, JudgeRtuReply(exchange), kChineseTexts));
}
std::string WordsOn(const HexText& reply, Ending ending = Ending::Complete) {
    return WordsOn(Received(reply, ending));
}

// --- The face ---

TEST(RtuVerdict, EnglishFaceSaysTheSameOfAReplyAlsoToFunction10) {
    const auto words = [](const HexText& reply) {
        const Exchange exchange = Received(reply);
        return ToUtf8(WordsOnRtuReply(exchange, JudgeRtuReply(exchange), kEnglishTexts));
    };
    EXPECT_EQ(words(kGoodReply), kRight + "成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(words(kBadReply), kWrong + "成功读取 1# 仪表的静态/动态数据");
    EXPECT_EQ(words(u" 01 10 00 10 00 02 40 0D"), kRight + "成功修改 1# 仪表的参数");
}

// --- The function ---

TEST(RtuVerdict, FunctionChoosesWordsAndWhereTheReplyGoes) {
    struct Case {
        const char16_t* function;
        const char16_t* check;
        const char* words;
        const char* right;
        const char* wrong;
    };
    const Case cases[] = {
        {u" 81", u" 91 D7", "指令错误，指令不被识别！", "right refused 81 exception 81.2 decodes",
         "wrong refused 81 exception 81.2 logs"},
        {u" 82", u" 91 93", "指令错误，指定地址(寄存器)无法执行该指令！",
         "right refused 82 exception 82.2 decodes", "wrong refused 82 exception 82.2 logs"},
        {u" 83", u" 90 6F", "注意：读写指令中含有非法参数地址/长度超出范围    指令错误！",
         "right refused 83 exception 83.2 decodes stops", "wrong refused 83 exception 83.2 logs stops"},
        {u" 84", u" 91 1B", "自诊断错误！", "right refused 84 exception 84.2 decodes",
         "wrong refused 84 exception 84.2 logs"},
        {u" 85", u" 90 E7", "指令错误，读取数据长度为零！", "right refused 85 exception 85.2 decodes",
         "wrong refused 85 exception 85.2 logs"},
        {u" 86", u" 90 A3", "注意：写入非法数值！ 该指令无效",
         "right refused 86 exception 86.2 decodes stops", "wrong refused 86 exception 86.2 logs stops"},
        {u" 87", u" 91 5F", "指令错误，写入的数据超出该参数的上下限范围！",
         "right refused 87 exception 87.2 decodes", "wrong refused 87 exception 87.2 logs"},
        {u" 88", u" 92 4B", " 板卡返回错误信息！", "right refused 88 exception 88.2 logs",
         "wrong refused 88 exception 88.2 logs"},
        {u" 03", u" B9 AF", "成功读取 1# 仪表的静态/动态数据", "right data 03 decodes",
         "wrong data 03 decodes"},
        {u" 06", u" B9 63", "成功修改 1# 仪表的参数", "right written 06 decodes", "wrong written 06 decodes"},
        {u" 10", u" BD 2B", "成功修改 1# 仪表的参数", "right written 10 decodes", "wrong written 10 decodes"},
        {u" 08", u" BB 8B", "通讯测试成功", "right test 08 logs", "wrong test 08 logs"},
        {u" 09", u" BA 77", "成功读取 1# 板卡的类型", "right board 09 card 186 logs", "wrong board 09 logs"},
        {u" 04", u" B8 DB", "", "right data 04 decodes ready", "wrong data 04 logs ready"},
        {u" 00", u" B9 EB", "", "right unknown 00 decodes ready", "wrong unknown 00 logs ready"},
        {u" 07", u" B8 9F", "", "right unknown 07 decodes ready", "wrong unknown 07 logs ready"},
        {u" 8F", u" 93 3F", "", "right unknown 8F decodes ready", "wrong unknown 8F logs ready"}};
    for (const Case& one : cases) {
        SCOPED_TRACE(ToUtf8(one.function));
        const HexText content = Text(u" 01") + one.function + u" 02 00 64";
        EXPECT_EQ(VerdictOn(content + one.check), one.right);
        EXPECT_EQ(WordsOn(content + one.check), kRight + one.words);
        EXPECT_EQ(VerdictOn(content + u" 00 00"), one.wrong);
        EXPECT_EQ(WordsOn(content + u" 00 00"), kWrong + one.words);
    }
}

TEST(RtuVerdict, FewerThanThreeBytesFailTheirCheck) {
    struct Case {
        const char16_t* reply;
        const char* verdict;
    };
    for (const Case& one : {Case{u"", "wrong unknown logs ready"}, Case{u" 01", "wrong unknown logs ready"},
                            Case{u" FF FF", "wrong unknown FF logs ready"}}) {
        EXPECT_EQ(VerdictOn(one.reply), one.verdict) << ToUtf8(one.reply);
        EXPECT_EQ(WordsOn(one.reply), kWrong);
    }
}

// --- The ending ---

TEST(RtuVerdict, ReplyThatHasEndedIsJudgedByItsCheckBytes) {
    for (const Ending ending : {Ending::Complete, Ending::Continued}) {
        EXPECT_EQ(VerdictOn(kGoodReply, ending), "right data 03 decodes");
        EXPECT_EQ(VerdictOn(kBadReply, ending), "wrong data 03 decodes");
    }
}

TEST(RtuVerdict, WaitThatRanOutIsNamedWhateverHasCome) {
    struct Case {
        Ending ending;
        const char* words;
    };
    for (const Case& one :
         {Case{Ending::Silent, "仪表无应答  注意：仪表无应答或返回软件无法识别的数据"},
          Case{Ending::Incomplete, "数据不完整  注意：仪表无应答或返回软件无法识别的数据"}}) {
        for (const HexText& reply :
             {HexText(), HexText(u" 01 03"), kGoodReply, HexText(u" 01 83 02 C0 F1")}) {
            EXPECT_EQ(VerdictOn(reply, one.ending), "unjudged unknown logs ready drops") << ToUtf8(reply);
            EXPECT_EQ(WordsOn(reply, one.ending), one.words);
        }
    }
}

// No check word is looked at; the function alone decides.
TEST(RtuVerdict, UnjudgedReplyGoesByItsFunctionAlone) {
    struct Case {
        HexText reply;
        const char* verdict;
        const char* words;
    };
    const Case cases[] = {
        {kBadReply, "unjudged data 03 decodes", "成功读取 1# 仪表的静态/动态数据"},
        {u" 01 04 02 00 64 B8 DB", "unjudged data 04 logs ready", ""},
        {u" 01 81 02 C1 91", "unjudged refused 81 exception 81.2 logs", "指令错误，指令不被识别！"},
        {u" 01 83 02 C0 F1", "unjudged refused 83 exception 83.2 logs stops",
         "注意：读写指令中含有非法参数地址/长度超出范围    指令错误！"},
        {u" 01 88 02 C7 C1", "unjudged refused 88 exception 88.2 logs", " 板卡返回错误信息！"},
        {u"", "unjudged unknown logs ready", ""}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(one.reply, Ending::Unjudged), one.verdict) << ToUtf8(one.reply);
        EXPECT_EQ(WordsOn(one.reply, Ending::Unjudged), one.words);
    }
}

// --- Exceptions ---

TEST(RtuVerdict, DataByteOfAnExceptionChoosesTheDetail) {
    struct Case {
        const char16_t* reply;
        InstrumentException exception;
        const char* words;
    };
    const Case cases[] = {
        {u" 01 83 02 C0 F1", {0x83, 2}, "注意：读写指令中含有非法参数地址/长度超出范围    指令错误！"},
        {u" 01 83 03 01 31", {0x83, 3}, "注意：非法的参数地址！该指令无效    指令错误！"},
        {u" 01 83 01 80 F0", {0x83, 1}, "注意：指令错误！无效指令    指令错误！"},
        {u" 01 83 20 40 E8", {0x83, 0x20}, "注意：指令错误！无效指令    指令错误！"},
        {u" 01 86 02 C3 A1", {0x86, 2}, "注意：写入非法数值！ 该指令无效"},
        {u" 01 86 03 02 61", {0x86, 3}, "注意：非法的参数地址！该指令无效"},
        {u" 01 86 01 83 A0", {0x86, 1}, "注意：指令错误或多路表修改参数时,CLK = 8 "}};
    for (const Case& one : cases) {
        const Verdict verdict = JudgeRtuReply(Received(one.reply));
        EXPECT_EQ(verdict.exception, one.exception) << ToUtf8(one.reply);
        EXPECT_TRUE(verdict.stopsSession);
        EXPECT_FALSE(verdict.makesReady) << "the caption alone stops";
        EXPECT_EQ(WordsOn(one.reply), kRight + one.words);
    }
}

TEST(RtuVerdict, ExceptionWithoutItsDataByteIsAnyOtherOfItsKind) {
    EXPECT_EQ(VerdictOn(u" 01 83"), "wrong refused 83 exception 83.0 logs stops");
    EXPECT_EQ(WordsOn(u" 01 83"), kWrong + "注意：指令错误！无效指令    指令错误！");
    EXPECT_EQ(VerdictOn(u" 01 86"), "wrong refused 86 exception 86.0 logs stops");
    EXPECT_EQ(WordsOn(u" 01 86"), kWrong + "注意：指令错误或多路表修改参数时,CLK = 8 ");
}

// Five bytes of function 88 have no check word, whatever their last two are.
TEST(RtuVerdict, BoardExceptionOfFiveBytesIsNotChecked) {
    struct Case {
        const char16_t* reply;
        const char* verdict;
    };
    for (const Case& one : {Case{u" 01 88 02 C7 C1", "none refused 88 exception 88.2 logs"},
                            Case{u" 01 88 02 11 22", "none refused 88 exception 88.2 logs"},
                            Case{u" 01 88 00 00 00", "none refused 88 exception 88.0 logs"}}) {
        EXPECT_EQ(VerdictOn(one.reply), one.verdict);
        EXPECT_EQ(WordsOn(one.reply), "注意:该数据没有校验码  板卡返回错误信息！");
    }
}

TEST(RtuVerdict, BoardExceptionOfAnotherLengthIsChecked) {
    EXPECT_EQ(VerdictOn(u" 01 88 02 11"), "wrong refused 88 exception 88.2 logs");
    EXPECT_EQ(WordsOn(u" 01 88 02 11"), kWrong + " 板卡返回错误信息！");
    EXPECT_EQ(WordsOn(u" 01 88 02 11 22 33"), kWrong + " 板卡返回错误信息！");
    EXPECT_EQ(VerdictOn(u" 88 01 02 11 22"), "wrong unknown 01 logs ready");
    EXPECT_EQ(WordsOn(u" 88 01 02 11 22"), kWrong);
}

// --- The board type ---

TEST(RtuVerdict, BoardTypeIsNamedByTheLastDataByte) {
    struct Case {
        const char16_t* reply;
        int board;
        const char* card;
    };
    const Case cases[] = {{u" 01 09 00 00 00 00 DD CB", 0x00, ""},
                          {u" 01 09 00 00 00 10 DC 07", 0x10, ""},
                          {u" 01 09 00 00 00 11 1D C7", 0x11, "  单显表板卡 "},
                          {u" 01 09 00 00 00 12 5D C6", 0x12, "  单显表板卡 "},
                          {u" 01 09 00 00 00 2F 9C 17", 0x2F, "  单显表板卡 "},
                          {u" 01 09 00 00 00 30 DD DF", 0x30, ""},
                          {u" 01 09 00 00 00 31 1C 1F", 0x31, "  PID板卡 "},
                          {u" 01 09 00 00 00 4F 9C 3F", 0x4F, "  PID板卡 "},
                          {u" 01 09 00 00 00 50 DD F7", 0x50, ""},
                          {u" 01 09 00 00 00 51 1C 37", 0x51, "  流量板卡 "},
                          {u" 01 09 00 00 00 6F 9D E7", 0x6F, "  流量板卡 "},
                          {u" 01 09 00 00 00 70 DC 2F", 0x70, ""},
                          {u" 01 09 00 00 00 71 1D EF", 0x71, "  PV板卡 "},
                          {u" 01 09 00 00 00 8F 9C 6F", 0x8F, "  PV板卡 "},
                          {u" 01 09 00 00 00 90 DD A7", 0x90, ""},
                          {u" 01 09 00 00 00 FF 9D 8B", 0xFF, ""}};
    for (const Case& one : cases) {
        const Verdict verdict = JudgeRtuReply(Received(one.reply));
        EXPECT_EQ(verdict.answer, Answer::Board);
        EXPECT_EQ(verdict.board, one.board) << ToUtf8(one.reply);
        EXPECT_FALSE(verdict.decodes);
        EXPECT_EQ(WordsOn(one.reply), kRight + "成功读取 1# 板卡的类型" + one.card);
    }
}

// --- The address ---

TEST(RtuVerdict, AddressIsShownInDecimal) {
    struct Case {
        const char16_t* address;
        const char* shown;
    };
    for (const Case& one :
         {Case{u"01", "1"}, Case{u"0A", "10"}, Case{u"FF", "255"}, Case{u"100", "256"}, Case{u"", "0"}}) {
        const auto words = [&](const HexText& reply) {
            Exchange exchange = Received(reply);
            exchange.address = u"另一个";  // as the user reads it
            exchange.addressText = one.address;
            return WordsOn(exchange);
        };
        const std::string shown = one.shown;
        EXPECT_EQ(words(kGoodReply), kRight + "成功读取 " + shown + "# 仪表的静态/动态数据");
        EXPECT_EQ(words(u" 01 06 00 10 03 E8 88 B1"), kRight + "成功修改 " + shown + "# 仪表的参数");
        EXPECT_EQ(words(u" 01 10 00 10 00 02 40 0D"), kRight + "成功修改 " + shown + "# 仪表的参数");
        EXPECT_EQ(words(u" 01 09 00 00 00 00 DD CB"), kRight + "成功读取 " + shown + "# 板卡的类型");
    }
}

}  // namespace
}  // namespace commtest
