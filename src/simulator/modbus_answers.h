#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "simulator/instrument_parts.h"

namespace simulator {

// What an instrument of the Modbus family answers: a request's function and data, in bytes, with those of the
// reply. Functions: 03 and 04 read registers, 06 and 10 write them; RTU alone knows 08, which comes back as
// it is, 09, the type of the board, and 10. Code 22 reads parameters, by the low byte of their address.
//
// A parameter begins at the register of its address, whose first digit does not count, and takes a register
// for two bytes of its length. Registers between parameters read 00 00. A write of a part of a value changes
// that part and is not held against the limits.
//
// Refusals, function and code:
//   a function that is not known          81 01
//   no register asked for                 85 03
//   no parameter at the address           RTU 83 02, 84 02, 86 03, 90 03; ASCII 82 02
//   a value that is not taken             RTU 86 02, 90 02; ASCII 87 03
//   a row named CLK holds another one
//   than 8 and is not itself written      86 01
Answer AnswerToModbus(const Model& model, std::vector<Row>& rows, std::string_view request, double seconds);

// An instrument that is asked to refuse does so with 88 02, busy, if it is told no exception. 86, 87 and 90
// are for writes alone: nothing for other requests.
std::optional<Answer> ModbusRefusalOf(std::string_view request, std::string_view exception);

}  // namespace simulator
