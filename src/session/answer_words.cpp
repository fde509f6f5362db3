#include "session/answer_words.h"

#include "session/main_form.h"

namespace commtest {

namespace {

constexpr TextView kSpaces = u" \t\r\n\u3000";

Text InOneLine(TextView text) {
    Text line;
    for (std::size_t at = text.find_first_not_of(kSpaces); at != TextView::npos;) {
        const std::size_t end = text.find_first_of(kSpaces, at);
        if (!line.empty()) line += u' ';
        line += text.substr(at, end - at);
        at = text.find_first_not_of(kSpaces, end);
    }
    return line;
}

}  // namespace

Text AnswerWords(const MainForm& form, const Outcome& outcome) {
    Verdict verdict = outcome.verdict;
    verdict.check = CheckWord::NotJudged;
    return InOneLine(form.ProtocolInUse().words(outcome.exchange, verdict, form.texts));
}

}  // namespace commtest
