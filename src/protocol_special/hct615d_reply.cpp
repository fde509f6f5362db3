#include "protocol_special/hct615d_reply.h"

#include "protocol_special/hct615d_checks.h"
#include "session/conversation.h"
#include "session/grid_rows.h"
#include "session/verdict_words.h"

namespace commtest {

namespace {

// The digits of `count` value bytes from `first` on, counted from 1.
Text Digits(const HexText& values, int first, int count) {
    Text digits;
    for (int byte = first; byte < first + count; ++byte) digits += Mid(values, 3 * byte - 1, 2);
    return digits;
}

void FillRow(Conversation& talk, int row, const Text& digits, const Text& shown) {
    talk.ParameterGrid().SetCell(row, column::kGroupRead, digits);
    talk.ParameterGrid().SetCell(row, column::kScaledValue, shown);
    talk.FilledRows.Add(row);
}

}  // namespace

Verdict JudgeHct615dReply(const Exchange& exchange) {
    Verdict verdict;
    verdict.decodes = true;
    if (exchange.HasEnded()) {
        verdict.check = CheckWordOf([&] { return CheckHct615dFrame(exchange.reply); });
        verdict.answer = Answer::Data;
    }
    const bool hasFailed = exchange.ending == Ending::Silent || exchange.ending == Ending::Incomplete;
    verdict.dropsReply = hasFailed || verdict.check == CheckWord::Wrong;
    return verdict;
}

Text WordsOnHct615dReply(const Exchange& exchange, const Verdict& verdict, const Texts&) {
    return WordsOnCheckWord(verdict.check) + u"     读取 " + exchange.address + u"# 仪表的动态数据";
}

void DecodeHct615dReply(Conversation& talk, const HexText& reply) {
    constexpr int kFirstValue = 142;  // byte 48
    constexpr int kValueBytes = 11;
    const HexText values = Mid(reply, kFirstValue, 3 * kValueBytes);
    talk.ParameterGrid().Redraw = false;
    FillRow(talk, 6, Digits(values, 1, 2), Digits(values, 1, 2));
    FillRow(talk, 7, Digits(values, 3, 2), Digits(values, 3, 1) + u"." + Digits(values, 4, 1));  // Q202
    FillRow(talk, 8, Digits(values, 5, 3), Digits(values, 5, 2) + u"." + Digits(values, 7, 1));
    FillRow(talk, 9, Digits(values, 8, 4), Digits(values, 8, 4));
    talk.ParameterGrid().Redraw = true;
}

}  // namespace commtest
