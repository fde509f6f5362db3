#pragma once

#include <QString>
#include <iosfwd>
#include <string>

#include "runtime/text.h"

namespace commtest {

// Where a verb writes: results, problems, and on a terminal one line that changes.
class Console {
  public:
    // `liveWidth`: the columns of the terminal behind `problems`; 0 if it is none, which then gets no live
    // line.
    Console(std::ostream& results, std::ostream& problems, int liveWidth = 0);
    ~Console() { HideLive(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // Results, printable as they are.
    void Print(const std::string& text);
    void Print(const QString& text) { Print(text.toStdString()); }

    // Hands the results on; false if they could not be written.
    bool Flush();

    // One line for the user; nothing for an empty one.
    void Tell(TextView line);
    void Tell(const QString& line) { Tell(line.toStdU16String()); }

    // Replaces the live line.
    void ShowLive(TextView line);
    void HideLive();

  private:
    std::ostream& results_;
    std::ostream& problems_;
    int liveWidth_;
    int shownWidth_ = 0;  // of the live line, 0 while there is none
};

}  // namespace commtest
