#pragma once

#include <string>

#include "runtime/number.h"
#include "session/exchange.h"

namespace commtest::testing {

// What has come behind a request, from the instrument at address 1.
inline Exchange Received(const HexText& reply, Ending ending = Ending::Complete) {
    Exchange exchange;
    exchange.reply = reply;
    exchange.ending = ending;
    exchange.address = u"1";
    exchange.addressText = u"01";
    return exchange;
}

// A verdict in words: check, answer, the reply's word, exception and board if there is one, and what is to
// happen: "right data RD decodes", "wrong refused 83 exception 83.2 logs stops".
inline std::string TextOf(const Verdict& verdict) {
    constexpr const char* kChecks[] = {"right", "wrong", "none", "unjudged"};
    constexpr const char* kAnswers[] = {"unknown", "data", "written", "refused", "test", "board"};
    std::string text = kChecks[static_cast<int>(verdict.check)];
    const auto add = [&](const std::string& word) {
        if (!word.empty()) text += " " + word;
    };
    add(kAnswers[static_cast<int>(verdict.answer)]);
    add(ToUtf8(verdict.word));
    if (const auto& exception = verdict.exception) {
        add("exception " + ToUtf8(HexOf(exception->function)) + "." + std::to_string(exception->detail));
    }
    if (verdict.board != 0) add("card " + std::to_string(verdict.board));
    if (verdict.decodes) add("decodes");
    if (verdict.logsError) add("logs");
    if (verdict.stopsSession) add("stops");
    if (verdict.makesReady) add("ready");
    if (verdict.dropsReply) add("drops");
    return text;
}

}  // namespace commtest::testing
