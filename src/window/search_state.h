#pragma once

#include <optional>

#include "session/main_form.h"

namespace commtest {

enum class SearchState {
    None,
    UnderWay,
    BrokenOff,  // the session stands still in the operation of a search
};

SearchState StateOfSearch(const MainForm& form);

// The way back from a search that was broken off, which leaves address, interval, port and operation as they
// were at that moment.
class SearchReturn {
  public:
    explicit SearchReturn(MainForm& form) : form_(form) {}

    // In front of a search. What stood before one that was broken off stays noted.
    void NoteBefore();

    bool IsOffered() const { return before_ && StateOfSearch(form_) == SearchState::BrokenOff; }

    // Address, interval, port and operation are as before the search.
    void GoBack();

  private:
    struct Before {
        Text address;
        Text interval;
        std::int16_t port;
        Text settings;
        std::int32_t commandCode;
    };

    MainForm& form_;
    std::optional<Before> before_;
};

}  // namespace commtest
