#include "cli/console_dialogs.h"

#include "cli/notice_words.h"

namespace commtest {

void ConsoleDialogs::ShowMessage(const Text& text, const Text& detail) {
    console_.Tell(text + u" " + detail);
}

void ConsoleDialogs::ShowNotice(const Notice& notice) { console_.Tell(WordsOn(notice)); }

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
