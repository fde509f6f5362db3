#include "cli/console_dialogs.h"

#include <algorithm>

#include "cli/notice_words.h"

namespace commtest {

void ConsoleDialogs::ShowMessage(const Text& text, const Text& detail) {
    const auto beginsText = [&text](const Text& beginning) { return text.starts_with(beginning); };
    if (std::any_of(Unsaid.begin(), Unsaid.end(), beginsText)) return;
    console_.Tell(text + u" " + detail);
}

void ConsoleDialogs::ShowNotice(const Notice& notice) {
    const bool isWaitedFor = WaitsForPort && notice.kind == Notice::Kind::PortLost;
    console_.Tell(isWaitedFor ? Text(u"串口已断开，等待它重新连接") : WordsOn(notice));
}

void ConsoleDialogs::ShowError(int, const Text& standardMessage) {
    console_.Tell(standardMessage + u" " + ReasonOfError);
}

bool ConsoleDialogs::AskYesNo(const Text& text) {
    console_.Tell(text + u" 否");
    return false;
}

Text ConsoleDialogs::AskText(const Text&, const Text& prompt, const Text&) {
    console_.Tell(prompt);
    return {};
}

}  // namespace commtest
