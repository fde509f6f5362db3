#pragma once

#include <vector>

#include "cli/console.h"
#include "cli/line_session.h"
#include "cli/problem.h"
#include "cli/table.h"
#include "commissioning/parameter_write.h"

namespace commtest {

// Writes parameters one after the other and proves each by reading it back. Decimals that other rows hold are
// read first, and every value is judged before the first one leaves. The first that ends neither equal nor
// sent ends the run; what stands behind it is held.
class ParameterWrites {
  public:
    // `isForced`: values leave although they lie outside the limits or do not fit. `retries`: a read that
    // fails is sent again so many times, and a write that nobody confirmed where its row was read before, and
    // read back still shows what it showed; each row is then read in front of its write. Each is told.
    ParameterWrites(LineSession& line, std::vector<ParameterWrite> writes, bool isForced, int retries,
                    Console& console);

    // A Problem where the port or the user ends it.
    void Run();

    ExitStatus Status() const { return status_; }

    // One line for each value: what became of it to the results, if they are told, problems to the problems.
    void Tell(Console& console, bool tellsResults);

    // The same as a table.
    Table Results();

  private:
    struct Item {
        ParameterWrite write;
        QString held;  // why nothing has left
    };

    enum class Look { Rows, Values };
    bool ObjectToAny(Look look);
    bool HasAllDecimals();
    bool ReadRow(int row, ParameterWrite* write);
    void SendAndReadBack(ParameterWrite& write);
    void Write(ParameterWrite& write);
    void RunExchange(ParameterWrite* write);
    QString WordsOn(const Item& item);
    QString WordsOnReason(const Item& item);

    LineSession& line_;
    std::vector<Item> items_;
    bool isForced_;
    int retries_;
    Console& console_;
    ExitStatus status_ = ExitStatus::Good;
};

}  // namespace commtest
