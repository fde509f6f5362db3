#include "protocol_native/reply_verdicts.h"

#include "protocol_native/check_words.h"
#include "runtime/hex_text.h"
#include "runtime/runtime_error.h"
#include "session/verdict_words.h"

namespace commtest {

namespace {

struct ReplyWord {
    TextView word;
    Answer answer;
    bool logsError;
    TextView before;  // the words around the address
    TextView behind;
};

constexpr ReplyWord kReplyWords[] = {
    {u"RR", Answer::Data, false, u"     读取 ", u"# 仪表的静态数据"},
    {u"RD", Answer::Data, false, u"     读取 ", u"# 仪表的动态数据"},
    {u"RE", Answer::Data, false, u"     读取 ", u"# 仪表的指定参数的数值"},
    {u"**", Answer::Refused, true, u"     注意： ", u"# 仪表的通讯出错"},
    {u"##", Answer::Written, false, u"     修改 ", u"# 仪表的参数"},
};

const ReplyWord* Find(TextView word) {
    for (const ReplyWord& row : kReplyWords) {
        if (row.word == word) return &row;
    }
    return nullptr;
}

Verdict Judge(const Exchange& exchange, bool (*testCheckWord)(const HexText&)) {
    if (exchange.ending == Ending::Silent || exchange.ending == Ending::Incomplete) return VerdictOnNoReply();
    Verdict verdict;
    if (exchange.HasEnded()) verdict.check = CheckWordOf([&] { return testCheckWord(exchange.reply); });
    verdict.decodes = verdict.check == CheckWord::Right;
    verdict.word = Mid(exchange.reply, 10, 6);
    PassOverError([&] { ConvertHexText(verdict.word, 0); });
    const ReplyWord* const known = Find(verdict.word);
    verdict.answer = known != nullptr ? known->answer : Answer::Unknown;
    verdict.logsError = known == nullptr || known->logsError;
    verdict.makesReady = known == nullptr;  // Q106: so that a part is not continued
    return verdict;
}

}  // namespace

Verdict JudgeTqReply(const Exchange& exchange) { return Judge(exchange, TestCRCWordTq); }

Verdict JudgeTqReplyTwo(const Exchange& exchange) { return Judge(exchange, TestCRCWordTqTwo); }

Text WordsOnTqReply(const Exchange& exchange, const Verdict& verdict, const Texts&) {
    Text words = WordsOnCheckWord(verdict.check);
    if (const ReplyWord* const known = Find(verdict.word)) {
        return words + Text(known->before) + exchange.address + Text(known->behind);
    }
    return words + WordsOnNoReply(exchange.ending);
}

}  // namespace commtest
