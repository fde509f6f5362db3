#pragma once

#include <QString>
#include <iosfwd>
#include <string>

#include "runtime/text.h"

namespace commtest {

// Where a verb reads lines, where it has none of its own.
struct ConsoleInput {
    std::istream& lines;
    bool isTyped = false;  // at a terminal, whose user wants to know what is expected
};

// The ways of a verb: lines in; out go results, problems, and on a terminal one line that changes.
class Console {
  public:
    // `liveWidth`: the columns of the terminal behind `problems`; 0 if it is none, which then gets no live
    // line.
    Console(const ConsoleInput& input, std::ostream& results, std::ostream& problems, int liveWidth = 0);
    ~Console() { HideLive(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    const ConsoleInput& Input() const { return input_; }

    // Results, printable as they are.
    void Print(const std::string& text);
    void Print(const QString& text) { Print(text.toStdString()); }

    // Hands the results on; false if they could not be written.
    bool Flush();

    // False once results could not be written.
    bool TakesResults() const;
    // Because nobody reads them any more.
    bool HasNoReader() const { return hasNoReader_; }
    // The number that the system gave for it, 0 for none.
    int SystemError() const { return systemError_; }

    // One line for the user; nothing for an empty one.
    void Tell(TextView line);
    void Tell(const QString& line) { Tell(line.toStdU16String()); }

    // Asks for a yes ("y", "yes" or "是"); anything else, and the end of the input, is none.
    bool Confirms(TextView question);

    // Replaces the live line.
    void ShowLive(TextView line);
    void HideLive();

  private:
    void NoteFailure();

    ConsoleInput input_;
    std::ostream& results_;
    std::ostream& problems_;
    int liveWidth_;
    bool hasNoReader_ = false;
    int systemError_ = 0;
    int shownWidth_ = 0;  // of the live line, 0 while there is none
};

}  // namespace commtest
