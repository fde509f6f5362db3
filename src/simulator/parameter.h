#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/behaviour.h"

namespace simulator {

// One row of an instrument's parameter list.
struct Parameter {
    std::string name;
    std::string address;           // four hexadecimal digits; under code 12 the length and three digits
    int length = 0;                // bytes, 1 to 8; of a command its digit
    std::string attribute;         // letters: R read, D dynamic, W write, S goes along
    std::string decimals;          // a number of decimals or the address of the parameter that holds it
    std::optional<double> lowest;  // limits of a written value, before the decimal point
    std::optional<double> highest;
    Behaviour behaviour;  // may be empty: GiveDefaultBehaviours fills it in
};

struct InstrumentDescription {
    int code = 11;  // of its protocol: 11, 12 or 13
    std::string name;
    std::optional<unsigned> address;  // on the bus; see AssignAddresses
    std::vector<Parameter> parameters;
};

// A command has no address and is never read. Code 12 has no commands.
bool IsCommand(int code, const Parameter& parameter);

// Dynamic values swing, totals grow, states step, settings stand still within their limits, and a parameter
// that holds the decimals of others is 1. Behaviours that are there stay.
void GiveDefaultBehaviours(InstrumentDescription& description);

}  // namespace simulator
