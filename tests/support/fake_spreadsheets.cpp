#include "support/fake_spreadsheets.h"

#include <utility>

namespace commtest::testing {

class FakeSpreadsheetEngine::Job : public SpreadsheetJob {
  public:
    Job(FakeSpreadsheetEngine& engine, std::size_t order) : engine_(engine), order_(order) {}
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    ~Job() override { engine_.dones_.erase(order_); }

  private:
    FakeSpreadsheetEngine& engine_;
    std::size_t order_;
};

std::unique_ptr<SpreadsheetJob> FakeSpreadsheetEngine::Begin(SpreadsheetOrder order, Done done) {
    dones_[Orders.size()] = std::move(done);
    Orders.push_back(std::move(order));
    return std::make_unique<Job>(*this, Orders.size() - 1);
}

void FakeSpreadsheetEngine::End(std::size_t order, const SpreadsheetResult& result) {
    const Done done = std::exchange(dones_.at(order), {});
    dones_.erase(order);
    done(result);
}

std::vector<std::size_t> FakeSpreadsheetEngine::UnderWay() const {
    std::vector<std::size_t> orders;
    for (const auto& [order, done] : dones_) orders.push_back(order);
    return orders;
}

}  // namespace commtest::testing
