#include "simulator/instrument_parts.h"

namespace simulator {

bool IsWritable(const Row& row) { return row.parameter.attribute.find('W') != std::string::npos; }

bool Accepts(const Row& row, std::optional<double> value) {
    return value && IsWritable(row) && *value >= row.parameter.lowest.value_or(*value) &&
           *value <= row.parameter.highest.value_or(*value);
}

}  // namespace simulator
