#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "host/spreadsheet.h"

namespace commtest::testing {

// Keeps the orders; a test ends them when it likes.
class FakeSpreadsheetEngine : public SpreadsheetEngine {
  public:
    int AtATime = 2;
    std::vector<SpreadsheetOrder> Orders;  // all that were begun, in order

    int JobsAtATime() const override { return AtATime; }
    std::unique_ptr<SpreadsheetJob> Begin(SpreadsheetOrder order, Done done) override;

    // Ends the order of that index, as the event loop would.
    void End(std::size_t order, const SpreadsheetResult& result = {});

    // By their indexes.
    std::vector<std::size_t> UnderWay() const;

  private:
    class Job;

    std::map<std::size_t, Done> dones_;
};

}  // namespace commtest::testing
