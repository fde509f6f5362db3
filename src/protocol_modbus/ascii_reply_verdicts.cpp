#include "protocol_modbus/ascii_reply_verdicts.h"

#include "numbers/lrc.h"
#include "protocol_modbus/modbus_words.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/verdict_words.h"

namespace commtest {

namespace {

constexpr int kLineEndWidth = 2 * 3;
constexpr int kCheckWordAndLineEnd = 2 * 3 + kLineEndWidth;

constexpr TextView kRead = u"03";
constexpr TextView kWrite = u"06";

struct Exception {
    TextView function;
    TextView text;
};
constexpr Exception kExceptions[] = {{u"81", u"指令错误，指令不被识别！"},
                                     {u"82", u"指令错误，指定地址(寄存器)无法执行该指令！"},
                                     {u"83", u"指令错误，读/写数据超出上下限范围！"},
                                     {u"84", u"自诊断错误！"},
                                     {u"85", u"指令错误，读取数据长度为零！"},
                                     {u"86", u"设置错误，写入数据时CLK必须等于 8 ！"},
                                     {u"87", u"指令错误，写入的数据超出该参数的上下限范围！"},
                                     {u"88", u"仪表系统忙！"}};

const Exception* Find(TextView function) {
    for (const Exception& known : kExceptions) {
        if (known.function == function) return &known;
    }
    return nullptr;
}

// The check word is made anew and stands where it stood. A reply too short to hold one is a wrong one.
bool CheckWordIsRight(const HexText& reply, Text (*checkWord)(Text)) {
    Text frame = ReadableOf(Left(reply, Len(reply) - kCheckWordAndLineEnd));
    frame += checkWord(frame);
    return HexTextOfReadable(frame) == Left(reply, Len(reply) - kLineEndWidth);
}

// The two digits behind those of the function.
int DetailOf(const HexText& reply) { return HexParse(ReadableOf(Mid(reply, 16, 6))); }

void JudgeFunction(const HexText& reply, Verdict& verdict) {
    verdict.word = Mid(reply, 10, 6);
    PassOverError([&] { ConvertHexText(verdict.word, 0); });
    if (verdict.word == kRead) {
        verdict.answer = Answer::Data;
    } else if (verdict.word == kWrite) {
        verdict.answer = Answer::Written;
    } else if (Find(verdict.word) != nullptr) {
        verdict.answer = Answer::Refused;  // Q153: no exception stops the polling
        verdict.exception = InstrumentException{HexParse(verdict.word), 0};
        PassOverError([&] { verdict.exception->detail = DetailOf(reply); });
    } else {
        verdict.makesReady = true;
    }
}

Verdict Judge(const Exchange& exchange, Text (*checkWord)(Text)) {
    if (exchange.ending == Ending::Silent || exchange.ending == Ending::Incomplete) return VerdictOnNoReply();
    Verdict verdict;
    if (exchange.HasEnded()) {
        verdict.check = CheckWordOf([&] { return CheckWordIsRight(exchange.reply, checkWord); });
    }
    JudgeFunction(exchange.reply, verdict);
    const bool carriesData = verdict.answer == Answer::Data || verdict.answer == Answer::Written;
    // Q126: data whatever their check word. Q154: an exception with a good one, too.
    verdict.decodes = carriesData || verdict.check == CheckWord::Right;
    verdict.logsError = !carriesData;
    return verdict;
}

// Q152: the words call an LRC a CRC.
Text WordsOnCheck(CheckWord check, const Texts& texts) {
    switch (check) {
        case CheckWord::Right: return Text(texts.asciiCheckRight);
        case CheckWord::Wrong: return Text(texts.asciiCheckWrong);
        default: return {};
    }
}

Text WordsOnRead(const Exchange& exchange, const Texts& texts) {
    Text words(texts.asciiBeforeReadAddress);
    if (texts.asciiBehindReadAddress) {
        words += AddressInDecimal(exchange);
        words += *texts.asciiBehindReadAddress;
    }
    return words;
}

}  // namespace

Verdict JudgeAsciiReply(const Exchange& exchange) { return Judge(exchange, LrcOfPairs); }

Verdict JudgeAsciiReplyTwo(const Exchange& exchange) { return Judge(exchange, LrcOfChars); }

Text WordsOnAsciiReply(const Exchange& exchange, const Verdict& verdict, const Texts& texts) {
    const Text words = WordsOnCheck(verdict.check, texts);
    if (verdict.word == kRead) return words + WordsOnRead(exchange, texts);
    if (verdict.word == kWrite) return words + WordsOnWritten(exchange);
    if (const Exception* const known = Find(verdict.word)) return words + Text(known->text);
    return words +
           (exchange.ending == Ending::Silent ? Text(texts.asciiNoAnswer) : WordsOnNoReply(exchange.ending));
}

}  // namespace commtest
