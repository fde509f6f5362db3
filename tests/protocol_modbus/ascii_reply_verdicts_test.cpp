#include "protocol_modbus/ascii_reply_verdicts.h"

#include <gtest/gtest.h>

#include "support/frame_text.h"
#include "support/verdict_text.h"

namespace commtest {
namespace {

using testing::FrameOf;
using testing::Received;
using testing::TextOf;

constexpr const char* kGoodReply = ":010302006496\r\n";           // code 21
constexpr const char* kGoodReplyTwo = ":0103050200001234EB\r\n";  // code 22

const std::string kRight = "CRC校验正确  ";
const std::string kWrong = "CRC校验错误  ";

Verdict Judge(int code, const Exchange& exchange) {
    return code == 21 ? JudgeAsciiReply(exchange) : JudgeAsciiReplyTwo(exchange);
}

std::string VerdictOn(int code, const std::string& reply, Ending ending = Ending::Complete) {
    return TextOf(Judge(code, Received(FrameOf(reply), ending)));
}

std::string WordsOn(int code, const std::string& reply, Ending ending = Ending::Complete) {
    const Exchange exchange = Received(FrameOf(reply), ending);
    return ToUtf8(WordsOnAsciiReply(exchange, Judge(code, exchange), kChineseTexts));
}

bool IsRight(int code, const std::string& reply) {
    return Judge(code, Received(FrameOf(reply))).check == CheckWord::Right;
}

// --- The check word ---

TEST(AsciiVerdict, CheckWordOfEachCode) {
    struct Case {
        int code;
        const char* reply;
        bool isRight;
    };
    const Case cases[] = {{21, ":010302006496\r\n", true},   {21, ":010302006410\r\n", false},
                          {22, ":010302006410\r\n", true},   {22, ":010302006496\r\n", false},
                          {21, ":010302006497\r\n", false},  {21, ":010302006596\r\n", false},
                          {21, ":0206001003E8FD\r\n", true},  // the address is not looked at
                          {21, "x0103020102F7\r\n", false},   // one character more in the sum
                          {21, ":01030200AA50\r\n", true},   {21, ":01030200aa50\r\n", true},
                          {21, ":010302004248\r\n", false},  {21, ":010302006496xx", true}};
    for (const Case& one : cases) {
        EXPECT_EQ(IsRight(one.code, one.reply), one.isRight) << one.code << one.reply;
        const std::string words = WordsOn(one.code, one.reply);
        EXPECT_TRUE(words.starts_with(one.isRight ? kRight : kWrong)) << one.reply << words;
    }
}

TEST(AsciiVerdict, CheckWordInSmallLettersIsWrong) {
    EXPECT_FALSE(IsRight(21, ":0103020001f9\r\n"));
    EXPECT_TRUE(IsRight(21, ":0103020001F9\r\n"));
}

// The program's own word of such a sum has three digits, so that the standard's "00" never agrees.
TEST(AsciiVerdict, CheckWordOfASumOf256IsWrongInTwoDigits) {
    EXPECT_EQ(VerdictOn(21, ":01030200FA00\r\n"), "wrong data 03 decodes");
}

// A byte that is no plain character, and a line end inside the frame, come back as others from their way
// through the text.
TEST(AsciiVerdict, StrangeBytesMakeAReplyWrongThoughItsSumIsRight) {
    EXPECT_FALSE(IsRight(21,
                         ":010302\xE9\xE9"
                         "6496\r\n"));
    EXPECT_FALSE(IsRight(21, ":010302\r\r6496\r\n"));
    EXPECT_FALSE(IsRight(22,
                         ":0103020064\xE9"
                         "27\r\n"));
    EXPECT_TRUE(IsRight(21, ":010302GG6496\r\n"));  // two zeros to the sum
}

TEST(AsciiVerdict, ReplyOfFewerThanFourCharactersIsWrong) {
    for (const int code : {21, 22}) {
        for (const char* reply : {"\n", "\r\n", "6\r\n", "96\r\n"}) {
            EXPECT_FALSE(IsRight(code, reply)) << reply;
            EXPECT_EQ(WordsOn(code, reply), kWrong) << reply;
        }
    }
}

TEST(AsciiVerdict, CheckWordAloneIsRightOverNothingUnderCode22) {
    EXPECT_EQ(VerdictOn(22, "00\r\n"), "right unknown \\0A decodes logs ready");
    EXPECT_EQ(WordsOn(22, "00\r\n"), kRight);
}

// --- The ending ---

TEST(AsciiVerdict, ReplyThatHasEndedIsJudgedByItsCheckWord) {
    for (const Ending ending : {Ending::Complete, Ending::Continued}) {
        EXPECT_EQ(VerdictOn(21, kGoodReply, ending), "right data 03 decodes");
        EXPECT_EQ(VerdictOn(22, kGoodReplyTwo, ending), "right data 03 decodes");
        EXPECT_EQ(WordsOn(21, kGoodReply, ending), kRight + "成功读取 1# 仪表的静态/动态数据");
    }
}

TEST(AsciiVerdict, WaitThatRanOutIsNamedWhateverHasCome) {
    for (const int code : {21, 22}) {
        for (const char* reply : {"", ":010302", kGoodReply}) {
            EXPECT_EQ(VerdictOn(code, reply, Ending::Silent), "unjudged unknown logs ready drops");
            EXPECT_EQ(WordsOn(code, reply, Ending::Silent),
                      "仪表无应答  注意：仪表无应答或返回软件无法识别的数据");
            EXPECT_EQ(VerdictOn(code, reply, Ending::Incomplete), "unjudged unknown logs ready drops");
            EXPECT_EQ(WordsOn(code, reply, Ending::Incomplete),
                      "数据不完整  注意：仪表无应答或返回软件无法识别的数据");
        }
    }
}

// No check word is looked at; the function alone decides.
TEST(AsciiVerdict, UnjudgedReplyGoesByItsFunctionAlone) {
    struct Case {
        const char* reply;
        const char* verdict;
        const char* words;
    };
    const Case cases[] = {
        {":010302006497\r\n", "unjudged data 03 decodes", "成功读取 1# 仪表的静态/动态数据"},
        {":0106001003E8FF\r\n", "unjudged written 06 decodes", "成功修改 1# 仪表的参数"},
        {":0181027C\r\n", "unjudged refused 81 exception 81.2 logs", "指令错误，指令不被识别！"},
        {":010402006495\r\n", "unjudged unknown 04 logs ready", ""},
        {"", "unjudged unknown logs ready", ""}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(21, one.reply, Ending::Unjudged), one.verdict);
        EXPECT_EQ(WordsOn(21, one.reply, Ending::Unjudged), one.words);
    }
}

// --- The function ---

TEST(AsciiVerdict, AnswersToReadsAndWritesAreDecodedWhateverTheirCheckWord) {
    struct Case {
        const char* reply;
        const char* verdict;
        std::string words;
    };
    const Case cases[] = {
        {kGoodReply, "right data 03 decodes", kRight + "成功读取 1# 仪表的静态/动态数据"},
        {":010302006497\r\n", "wrong data 03 decodes", kWrong + "成功读取 1# 仪表的静态/动态数据"},
        {":0106001003E8FE\r\n", "right written 06 decodes", kRight + "成功修改 1# 仪表的参数"},
        {":010602006497\r\n", "wrong written 06 decodes", kWrong + "成功修改 1# 仪表的参数"}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(21, one.reply), one.verdict) << one.reply;
        EXPECT_EQ(WordsOn(21, one.reply), one.words);
    }
}

TEST(AsciiVerdict, ExceptionTellsItsTextAndStopsNothing) {
    struct Case {
        const char* reply;
        const char* verdict;
        const char* text;
    };
    const Case cases[] = {
        {":0181027C\r\n", "right refused 81 exception 81.2 decodes logs", "指令错误，指令不被识别！"},
        {":0182027B\r\n", "right refused 82 exception 82.2 decodes logs",
         "指令错误，指定地址(寄存器)无法执行该指令！"},
        {":0183027A\r\n", "right refused 83 exception 83.2 decodes logs",
         "指令错误，读/写数据超出上下限范围！"},
        {":01840279\r\n", "right refused 84 exception 84.2 decodes logs", "自诊断错误！"},
        {":01850278\r\n", "right refused 85 exception 85.2 decodes logs", "指令错误，读取数据长度为零！"},
        {":01860277\r\n", "right refused 86 exception 86.2 decodes logs",
         "设置错误，写入数据时CLK必须等于 8 ！"},
        {":01870276\r\n", "right refused 87 exception 87.2 decodes logs",
         "指令错误，写入的数据超出该参数的上下限范围！"},
        {":01880275\r\n", "right refused 88 exception 88.2 decodes logs", "仪表系统忙！"}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(21, one.reply), one.verdict);
        EXPECT_EQ(WordsOn(21, one.reply), kRight + one.text);
    }
}

TEST(AsciiVerdict, ExceptionWithAWrongCheckWordIsNotDecoded) {
    EXPECT_EQ(VerdictOn(21, ":01820100\r\n"), "wrong refused 82 exception 82.1 logs");
    EXPECT_EQ(WordsOn(21, ":01820100\r\n"), kWrong + "指令错误，指定地址(寄存器)无法执行该指令！");
}

TEST(AsciiVerdict, ExceptionWithoutItsDataByteHasTheDetail0) {
    EXPECT_EQ(VerdictOn(21, ":0181\r\n"), "wrong refused 81 exception 81.0 logs");
}

TEST(AsciiVerdict, OtherFunctionsSayNothingAndAreDecodedIfTheirCheckWordIsRight) {
    struct Case {
        const char* reply;
        const char* verdict;
    };
    const Case cases[] = {{":010402006495\r\n", "right unknown 04 decodes logs ready"},
                          {":01080010ABCD6F\r\n", "right unknown 08 decodes logs ready"},
                          {":011000100002DD\r\n", "right unknown 10 decodes logs ready"},
                          {":010900000012E4\r\n", "right unknown 09 decodes logs ready"},
                          {":01890274\r\n", "right unknown 89 decodes logs ready"}};
    for (const Case& one : cases) {
        EXPECT_EQ(VerdictOn(21, one.reply), one.verdict);
        EXPECT_EQ(WordsOn(21, one.reply), kRight);
    }
    EXPECT_EQ(VerdictOn(21, ":010402006400\r\n"), "wrong unknown 04 logs ready");
    EXPECT_EQ(WordsOn(21, ":010402006400\r\n"), kWrong);
}

// --- The words ---

TEST(AsciiVerdict, GoodAnswersNameTheInstrumentInDecimal) {
    struct Case {
        const char16_t* address;
        const char* shown;
    };
    for (const Case& one : {Case{u"0A", "10"}, Case{u"FF", "255"}, Case{u"", "0"}}) {
        const auto words = [&](const char* reply) {
            Exchange exchange = Received(FrameOf(reply));
            exchange.address = u"另一个";  // as the user reads it
            exchange.addressText = one.address;
            return ToUtf8(WordsOnAsciiReply(exchange, JudgeAsciiReply(exchange), kChineseTexts));
        };
        const std::string shown = one.shown;
        EXPECT_EQ(words(kGoodReply), kRight + "成功读取 " + shown + "# 仪表的静态/动态数据");
        EXPECT_EQ(words(":0106001003E8FE\r\n"), kRight + "成功修改 " + shown + "# 仪表的参数");
    }
}

TEST(AsciiVerdict, EnglishFaceHasItsOwnWordsForTheCheckAReadAndASilence) {
    const auto words = [](const char* reply, Ending ending) {
        const Exchange exchange = Received(FrameOf(reply), ending);
        return ToUtf8(WordsOnAsciiReply(exchange, JudgeAsciiReply(exchange), kEnglishTexts));
    };
    EXPECT_EQ(words(kGoodReply, Ending::Complete),
              "CRC correct check    successful reading  static / dynamic data of instrument");
    EXPECT_EQ(words(":010302006497\r\n", Ending::Complete),
              "CRC     successful reading  static / dynamic data of instrument");
    EXPECT_EQ(words("", Ending::Silent),
              "receive:  instrument has no answering  note: instrument has no answering or return to "
              "un-identified data");
}

TEST(AsciiVerdict, WhatElseTheEnglishFaceSaysIsChinese) {
    const auto words = [](const char* reply, Ending ending) {
        const Exchange exchange = Received(FrameOf(reply), ending);
        return ToUtf8(WordsOnAsciiReply(exchange, JudgeAsciiReply(exchange), kEnglishTexts));
    };
    EXPECT_EQ(words(":0106001003E8FE\r\n", Ending::Complete), "CRC correct check  成功修改 1# 仪表的参数");
    EXPECT_EQ(words(":018802CD\r\n", Ending::Complete), "CRC   仪表系统忙！");
    EXPECT_EQ(words(":010302", Ending::Incomplete), "数据不完整  注意：仪表无应答或返回软件无法识别的数据");
}

TEST(AsciiVerdict, FiveOfTheWordsAreThoseOfTheFace) {
    Texts face = kChineseTexts;
    face.asciiCheckRight = u"right ";
    face.asciiCheckWrong = u"wrong ";
    face.asciiBeforeReadAddress = u"read ";
    face.asciiBehindReadAddress = u"!";
    face.asciiNoAnswer = u"silent";
    const auto words = [&](const char* reply, Ending ending) {
        const Exchange exchange = Received(FrameOf(reply), ending);
        return ToUtf8(WordsOnAsciiReply(exchange, JudgeAsciiReply(exchange), face));
    };
    EXPECT_EQ(words(kGoodReply, Ending::Complete), "right read 1!");
    EXPECT_EQ(words(":010302006497\r\n", Ending::Complete), "wrong read 1!");
    EXPECT_EQ(words("", Ending::Silent), "silent");
}

}  // namespace
}  // namespace commtest
