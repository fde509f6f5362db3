#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/behaviour.h"

// What instruments of every family are made of.
namespace simulator {

// A parameter of a simulated instrument, as its row of the parameter list says.
struct Parameter {
    std::string name;
    std::string
        address;  // four hexadecimal characters; "0000" a command; code 12: length and three of address
    std::string length;     // "1", "2", "4", "5", "8"; of a command its digit
    std::string attribute;  // R, D, W, S
    std::string decimals;
    std::optional<double> lowest;  // limits of a write, of the number on the line
    std::optional<double> highest;
    std::optional<Behaviour> behaviour;  // none: one that suits attribute and name
    bool isVolatile = false;             // a written value goes with the power
};

// The protocol, and the number format of the values of a Modbus instrument: the first and the second two
// digits of its code.
struct Model {
    int code;
    int format = 0;
};

// How an instrument stands on its line.
struct LineManner {
    int rate = 0;     // in baud, 0 for any
    int delayMs = 0;  // of each reply, beside the turnaround of the line
    bool garbles = false;
};

struct Row {
    Parameter parameter;
    Behaviour behaviour;
    bool isCommand;
    int address;
    int size;                            // bytes
    std::optional<double> written = {};  // in place of its life

    double ValueAt(double seconds) const { return written.value_or(behaviour.ValueAt(seconds)); }
};

bool IsWritable(const Row& row);

// Whether a row takes a value: it can be written, and the value is inside its limits.
bool Accepts(const Row& row, std::optional<double> value);

// What a request is answered with: one content (a word and its data, function and data, or values), or the
// parts of a static reply.
struct Answer {
    std::vector<std::string> parts;
    bool isWrite = false;
    bool isRefused = false;
};

}  // namespace simulator
