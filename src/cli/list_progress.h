#pragma once

#include <cstdint>
#include <functional>

#include "cli/console.h"
#include "cli/interrupt.h"

namespace commtest {

// How far a walk through a list has come.
struct ListPlace {
    std::int64_t rows = 0;
    int instruments = 0;
    std::uint64_t bytesRead = 0;
    std::uint64_t size = 0;  // 0 where nobody knows
};

// Rows, instruments, share and the time left, of a walk that began so many milliseconds ago.
Text WordsOn(const ListPlace& place, std::int64_t milliseconds);

// Long work on a list: a live line on a terminal, and the user who ends it (Ctrl-C).
class ListProgress {
  public:
    explicit ListProgress(Console& console);

    // Takes steps until one is false; false if the user has ended them.
    bool Run(const std::function<bool()>& step, const std::function<ListPlace()>& look);

    // What has come meanwhile counts, too.
    bool IsEnded();

  private:
    Console& console_;
    bool isEnded_ = false;
    Interrupt interrupt_;
};

}  // namespace commtest
