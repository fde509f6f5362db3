#include "simulator/parameter.h"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

bool HoldsDecimals(const InstrumentDescription& description, const Parameter& parameter) {
    return std::ranges::find(description.parameters, parameter.address, &Parameter::decimals) !=
           description.parameters.end();
}

// Neighbours differ in height and period, so that a value in the wrong row is seen at once.
Behaviour Moving(int length, double place) {
    switch (length) {
        case 1: return Ramp(0, 16, 20 + place);
        case 2: return Sine(500 + 10 * place, 400, 20 + place);
        case 8: return Counter(100000 + place, 1, 1);
        default: return Sine(50 + place, 25, 20 + place);
    }
}

Behaviour Standing(const Parameter& parameter, double place) {
    const double lowest = parameter.lowest.value_or(0);
    if (!parameter.highest) return Constant(std::max(lowest, 100 + place));
    return Constant(std::floor(lowest + (*parameter.highest - lowest) / 4));
}

Behaviour DefaultOf(const InstrumentDescription& description, const Parameter& parameter, double place) {
    if (IsCommand(description.code, parameter)) return Constant(0);
    if (HoldsDecimals(description, parameter)) return Constant(1);
    if (parameter.attribute.find('D') != std::string::npos) return Moving(parameter.length, place);
    if (parameter.attribute == "S") return Ramp(0, 4, 20 + place);
    return Standing(parameter, place);
}

}  // namespace

bool IsCommand(int code, const Parameter& parameter) { return code != 12 && parameter.address == "0000"; }

void GiveDefaultBehaviours(InstrumentDescription& description) {
    double place = 1;
    for (Parameter& parameter : description.parameters) {
        if (!parameter.behaviour) parameter.behaviour = DefaultOf(description, parameter, place);
        ++place;
    }
}

}  // namespace simulator
