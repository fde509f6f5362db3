#pragma once

#include <array>
#include <cstddef>

namespace commtest {

// Where a number stands in a caption of the statistics, from 0. A failure is a counter of failures above 0,
// or the rate while one of them is; the rate has its sign with it.
struct StatisticsNumber {
    std::size_t position = 0;
    std::size_t length = 0;
    bool isFailure = false;
};

// The numbers of a caption, in their order.
class StatisticsNumbers {
  public:
    void Add(const StatisticsNumber& number) { numbers_[count_++] = number; }

    const StatisticsNumber* begin() const { return numbers_.data(); }
    const StatisticsNumber* end() const { return numbers_.data() + count_; }
    std::size_t size() const { return count_; }
    const StatisticsNumber& operator[](std::size_t index) const { return numbers_[index]; }

  private:
    std::array<StatisticsNumber, 5> numbers_;  // total, three counters, rate
    std::size_t count_ = 0;
};

}  // namespace commtest
