#pragma once

#include <string>
#include <vector>

#include "simulator/bus.h"

namespace simulator {

inline Parameter Fixed(const std::string& address, const std::string& length, const std::string& attribute,
                       double value, std::optional<double> lowest = {}, std::optional<double> highest = {}) {
    return {"at " + address, address, length, attribute, "0", lowest, highest, Behaviour::Constant(value)};
}

// Commands, values that stand still, and after the static run one more dynamic value. Codes in comments.
inline std::vector<Parameter> SampleParameters() {
    return {
        Fixed("0000", "3", "W", 0),
        Fixed("0000", "4", "W", 0),
        Fixed("0000", "5", "W", 0),
        Fixed("0001", "2", "R", 1010),
        Fixed("0003", "2", "R", 107),
        Fixed("0010", "2", "D", 1234),                // D204
        Fixed("0012", "2", "D", -1234),               // D284
        Fixed("0014", "1", "S", 3),                   // 03
        Fixed("0020", "1", "RW", 1, 0, 3),            // 01
        Fixed("0021", "2", "RW", -200, -1999, 9999),  // C880
        Fixed("0023", "4", "RW", 10),                 // 04A00000
        Fixed("0027", "8", "R", 1100.5),              // 04B0000000800000
        Fixed("002F", "1", "S", 2),                   // 02
        Fixed("0030", "2", "D", 5),
    };
}

// Under this protocol the first digit of an address is the length.
inline std::vector<Parameter> SampleParametersOfCode12() {
    return {
        Fixed("2001", "2", "R", 1),
        Fixed("2003", "2", "R", 2),
        Fixed("2005", "2", "R", 3),
        Fixed("2007", "2", "R", 4),
        Fixed("2009", "2", "R", 5),
        Fixed("2010", "2", "D", 1234),           // D204
        Fixed("1012", "1", "S", 3),              // 03
        Fixed("2020", "2", "RW", 500, 0, 9999),  // F401
        Fixed("1022", "1", "RW", 7),             // 07
        Fixed("4023", "4", "RW", 100.5),         // 07C90000
    };
}

// Answers RD with the data of two values alone: @01RD00C800646E.
inline Instrument TwoValues(int code = 11, int address = 1) {
    std::vector<Parameter> parameters(5, Fixed("0000", "3", "W", 0));
    parameters.push_back(Fixed("0010", "2", "D", -18432));  // 00C8
    parameters.push_back(Fixed("0012", "2", "D", 25600));   // 0064
    return Instrument(code, address, "two values", parameters);
}

inline std::string BytesOf(const std::vector<Chunk>& chunks) {
    std::string bytes;
    for (const Chunk& chunk : chunks) bytes += chunk.bytes;
    return bytes;
}

}  // namespace simulator
