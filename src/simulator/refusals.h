#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/behaviour.h"
#include "simulator/instrument.h"

namespace simulator {

// How often requests are refused, 0 to 1, and how: the two bytes of a Modbus exception, empty for the usual
// refusal of the framing.
struct RefusalRate {
    double rate = 0;
    std::string exception;
};

// Raises DescriptionError for instruments that cannot refuse like this.
void RefuseStrangeRefusals(const std::vector<RefusalRate>& rates, const Instrument& instrument);

// Refuses what an instrument would have taken; the same seed refuses the same requests again.
class Refusals {
  public:
    Refusals() = default;
    Refusals(std::vector<RefusalRate> rates, std::uint64_t seed) : rates_(std::move(rates)), random_(~seed) {}

    // Nothing for a request that is not refused.
    std::optional<Answer> Of(const Instrument& instrument, std::string_view content, double seconds);

  private:
    std::vector<RefusalRate> rates_;
    RandomStream random_{0};
};

}  // namespace simulator
