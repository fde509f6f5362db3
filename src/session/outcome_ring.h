#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "session/exchange.h"

namespace commtest {

// The last thousand outcomes. Its cost per exchange does not depend on how many there are.
class OutcomeRing {
  public:
    static constexpr std::size_t kCapacity = 1000;

    void Add(OutcomePointer outcome) {
        if (ring_.size() < kCapacity) {
            ring_.push_back(std::move(outcome));
        } else {
            ring_[static_cast<std::size_t>(total_ % kCapacity)] = std::move(outcome);
        }
        ++total_;
    }

    // How many there have been, those that have left the ring among them.
    std::uint64_t Total() const { return total_; }
    std::size_t Size() const { return ring_.size(); }

    // The outcome `back` places before the last one, which is 0; none beyond the ring.
    OutcomePointer Last(std::size_t back = 0) const {
        if (back >= ring_.size()) return nullptr;
        return ring_[static_cast<std::size_t>((total_ - 1 - back) % kCapacity)];
    }

  private:
    std::vector<OutcomePointer> ring_;
    std::uint64_t total_ = 0;
};

}  // namespace commtest
