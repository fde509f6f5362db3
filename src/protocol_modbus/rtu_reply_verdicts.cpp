#include "protocol_modbus/rtu_reply_verdicts.h"

#include <algorithm>
#include <array>

#include "protocol_modbus/modbus_words.h"
#include "protocol_modbus/rtu_frame.h"
#include "runtime/number.h"
#include "session/verdict_words.h"

namespace commtest {

namespace {

enum class Decoding { AsChecked, Always, Never };

struct Row {
    TextView function;
    Answer answer;
    Decoding decoding;
    bool stopsSession;
    Text (*words)(const Exchange&, const Verdict&, const Row&);
    TextView text;
};

// Function and first data byte of an exception, the first match counts; 0 matches every byte.
struct ExceptionDetail {
    InstrumentException exception;
    TextView text;
};
constexpr std::array<ExceptionDetail, 6> kExceptionDetails = {
    {{{0x83, 2}, u"注意：读写指令中含有非法参数地址/长度超出范围"},
     {{0x83, 3}, u"注意：非法的参数地址！该指令无效"},
     {{0x83, 0}, u"注意：指令错误！无效指令"},
     {{0x86, 2}, u"注意：写入非法数值！ 该指令无效"},
     {{0x86, 3}, u"注意：非法的参数地址！该指令无效"},
     {{0x86, 0}, u"注意：指令错误或多路表修改参数时,CLK = 8 "}}};

struct Card {
    int first;
    int last;
    TextView text;
};
// Q131: 30, 50 and 70 have none.
constexpr std::array<Card, 4> kCards = {{{0x11, 0x2F, u"  单显表板卡 "},
                                         {0x31, 0x4F, u"  PID板卡 "},
                                         {0x51, 0x6F, u"  流量板卡 "},
                                         {0x71, 0x8F, u"  PV板卡 "}}};

Text WordsOfRow(const Exchange&, const Verdict&, const Row& row) { return Text(row.text); }

Text WordsOnException(const Exchange&, const Verdict& verdict, const Row& row) {
    const auto detail =
        std::find_if(kExceptionDetails.begin(), kExceptionDetails.end(), [&](const ExceptionDetail& known) {
            const auto& [function, byte] = known.exception;
            return function == verdict.exception->function &&
                   (byte == 0 || byte == verdict.exception->detail);
        });
    return (detail != kExceptionDetails.end() ? Text(detail->text) : Text()) + Text(row.text);
}

Text WordsOnRead(const Exchange& exchange, const Verdict&, const Row&) {
    return u"成功读取 " + AddressInDecimal(exchange) + u"# 仪表的静态/动态数据";
}

Text WordsOnWrite(const Exchange& exchange, const Verdict&, const Row&) { return WordsOnWritten(exchange); }

Text WordsOnBoard(const Exchange& exchange, const Verdict& verdict, const Row&) {
    const Text words = u"成功读取 " + AddressInDecimal(exchange) + u"# 板卡的类型";
    const auto card = std::find_if(kCards.begin(), kCards.end(), [&](const Card& known) {
        return verdict.board >= known.first && verdict.board <= known.last;
    });
    return card != kCards.end() ? words + Text(card->text) : words;
}

constexpr bool kStops = true;
constexpr bool kGoesOn = false;

// Q126: answers to reads and writes are decoded even where their check word is wrong. Q127: those to tests
// and board type never, so that they go to the error file.
constexpr std::array<Row, 13> kRows = {
    {{u"81", Answer::Refused, Decoding::AsChecked, kGoesOn, WordsOfRow, u"指令错误，指令不被识别！"},
     {u"82", Answer::Refused, Decoding::AsChecked, kGoesOn, WordsOfRow,
      u"指令错误，指定地址(寄存器)无法执行该指令！"},
     {u"83", Answer::Refused, Decoding::AsChecked, kStops, WordsOnException, u"    指令错误！"},
     {u"84", Answer::Refused, Decoding::AsChecked, kGoesOn, WordsOfRow, u"自诊断错误！"},
     {u"85", Answer::Refused, Decoding::AsChecked, kGoesOn, WordsOfRow, u"指令错误，读取数据长度为零！"},
     {u"86", Answer::Refused, Decoding::AsChecked, kStops, WordsOnException, u""},
     {u"87", Answer::Refused, Decoding::AsChecked, kGoesOn, WordsOfRow,
      u"指令错误，写入的数据超出该参数的上下限范围！"},
     {u"88", Answer::Refused, Decoding::Never, kGoesOn, WordsOfRow, u" 板卡返回错误信息！"},
     {u"03", Answer::Data, Decoding::Always, kGoesOn, WordsOnRead, u""},
     {u"06", Answer::Written, Decoding::Always, kGoesOn, WordsOnWrite, u""},
     {u"10", Answer::Written, Decoding::Always, kGoesOn, WordsOnWrite, u""},
     {u"08", Answer::Test, Decoding::Never, kGoesOn, WordsOfRow, u"通讯测试成功"},
     {u"09", Answer::Board, Decoding::Never, kGoesOn, WordsOnBoard, u""}}};

const Row* Find(TextView function) {
    const auto* const found =
        std::find_if(kRows.begin(), kRows.end(), [&](const Row& row) { return row.function == function; });
    return found != kRows.end() ? found : nullptr;
}

// Q125: a board's exception of five bytes comes without a check word.
bool IsBoardException(const HexText& reply) { return Len(reply) == 15 && Mid(reply, 4, 3) == u" 88"; }

CheckWord CheckWordOfReply(const Exchange& exchange) {
    if (!exchange.HasEnded()) return CheckWord::NotJudged;
    if (IsBoardException(exchange.reply)) return CheckWord::None;
    return CheckWordOf([&] { return TestRtuCrc(exchange.reply); });
}

bool Decodes(CheckWord check, Decoding decoding) {
    const bool mayDecode = check == CheckWord::Right || check == CheckWord::None;
    return decoding == Decoding::AsChecked ? mayDecode : decoding == Decoding::Always;
}

void JudgeByRow(const Row& row, const HexText& reply, Verdict& verdict) {
    verdict.answer = row.answer;
    verdict.stopsSession = row.stopsSession;
    verdict.decodes = Decodes(verdict.check, row.decoding);
    if (row.answer == Answer::Refused) {
        verdict.exception = InstrumentException{HexParse(verdict.word), HexParse(Mid(reply, 8, 2))};
    }
    if (row.answer == Answer::Board) verdict.board = HexParse(Mid(reply, 17, 2));
}

// Q129: function 04 has no row; its answers are decoded only if their check word is right.
void JudgeOther(Verdict& verdict) {
    verdict.decodes = Decodes(verdict.check, Decoding::AsChecked);
    if (verdict.word == u"04") verdict.answer = Answer::Data;
    verdict.makesReady = true;
}

}  // namespace

Verdict JudgeRtuReply(const Exchange& exchange) {
    if (exchange.ending == Ending::Silent || exchange.ending == Ending::Incomplete) return VerdictOnNoReply();
    Verdict verdict;
    verdict.check = CheckWordOfReply(exchange);
    verdict.word = Mid(exchange.reply, 5, 2);
    if (const Row* const row = Find(verdict.word)) {
        JudgeByRow(*row, exchange.reply, verdict);
    } else {
        JudgeOther(verdict);
    }
    verdict.logsError = !verdict.decodes;  // Q128: an exception with a good check word is none
    return verdict;
}

Text WordsOnRtuReply(const Exchange& exchange, const Verdict& verdict, const Texts&) {
    const Text words =
        verdict.check == CheckWord::None ? Text(u"注意:该数据没有校验码 ") : WordsOnCheckWord(verdict.check);
    if (const Row* const row = Find(verdict.word)) return words + row->words(exchange, verdict, *row);
    return words + WordsOnNoReply(exchange.ending);
}

}  // namespace commtest
