#include "cli/console.h"

#include <cerrno>
#include <istream>
#include <ostream>

#include "cli/printable_text.h"

namespace commtest {

Console::Console(const ConsoleInput& input, std::ostream& results, std::ostream& problems, int liveWidth)
    : input_(input), results_(results), problems_(problems), liveWidth_(liveWidth) {}

void Console::Print(const std::string& text) {
    HideLive();
    if (!TakesResults()) return;
    errno = 0;
    results_ << text;
    NoteFailure();
}

void Console::NoteFailure() {
    if (TakesResults()) return;
    systemError_ = errno;
    hasNoReader_ = hasNoReader_ || errno == EPIPE;
}

bool Console::Flush() {
    if (!TakesResults()) return false;
    errno = 0;
    results_.flush();
    NoteFailure();
    return TakesResults();
}

bool Console::TakesResults() const { return static_cast<bool>(results_); }

void Console::Tell(TextView line) {
    if (line.empty()) return;
    HideLive();
    Flush();
    if (hasNoReader_) return;
    problems_ << PrintableLine(line) + "\n" << std::flush;
}

bool Console::Confirms(TextView question) {
    HideLive();
    results_.flush();
    problems_ << PrintableLine(question) + " [y/N] " << std::flush;
    std::string answer;
    std::getline(input_.lines, answer);
    const QString word = QString::fromStdString(answer).trimmed().toLower();
    return word == u"y" || word == u"yes" || word == u"是";
}

void Console::ShowLive(TextView line) {
    if (liveWidth_ == 0) return;
    // A line that fills the last column would wrap.
    const Text printable = FromUtf8(PrintableLine(line));
    const TextView shown = CutToWidth(printable, liveWidth_ - 1);
    HideLive();
    problems_ << ToUtf8(shown) << std::flush;
    shownWidth_ = DisplayWidth(shown);
}

void Console::HideLive() {
    if (shownWidth_ == 0) return;
    problems_ << '\r' << std::string(static_cast<std::size_t>(shownWidth_), ' ') << '\r' << std::flush;
    shownWidth_ = 0;
}

}  // namespace commtest
