#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "commissioning/parameter_write.h"

namespace commtest {

// The writes that the user has made in the parameter grid, one a row: each stays until its cell of column 10
// changes or another instrument comes. It sends nothing; whatever the polling brings decides.
class WriteWatch {
  public:
    explicit WriteWatch(const MainForm& form) : form_(form) {}

    // The entry in column 10 of a row has become the frame to send. An instrument that takes no writes has
    // none to watch.
    void Begin(int row);

    // Takes in the outcomes since the last call. Gives the rows of which there is something new to say, those
    // of which there is nothing to say any more among them.
    std::vector<int> Follow();

    // The last write to a row; none where there is nothing to say.
    const ParameterWrite* Of(int row) const;

  private:
    void TakeIn();
    void DropWhatIsVoid();
    void TakeOutcomes();
    void Settle();
    void NoteChanges();

    struct Watched {
        ParameterWrite write;
        WriteOutcome told = WriteOutcome::Held;
        Text toldReadBack = {};
    };

    const MainForm& form_;
    std::map<int, Watched> writes_;  // by row
    std::set<int> changed_;
    std::uint64_t outcomes_ = 0;  // taken in so far
    std::uint64_t epoch_ = 0;     // of the grid, at the last entry
    int protocol_ = 0;
};

}  // namespace commtest
