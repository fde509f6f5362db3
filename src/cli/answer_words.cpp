#include "cli/answer_words.h"

#include "session/answer_words.h"
#include "session/exchange.h"

namespace commtest {

using namespace Qt::StringLiterals;

QString WordsOnAnswer(const MainForm& form, const Outcome& outcome) {
    return QString::fromStdU16String(AnswerWords(form, outcome));
}

QString NumbersOfException(const Outcome& outcome) {
    const auto& exception = outcome.verdict.exception;
    if (!exception) return {};
    const auto byte = [](int value) { return u"%1"_s.arg(value, 2, 16, QChar(u'0')).toUpper(); };
    return byte(exception->function) + u' ' + byte(exception->detail);
}

}  // namespace commtest
