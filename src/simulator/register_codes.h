#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/instrument_parts.h"

// Values as the bytes that an instrument of the Modbus family holds in its registers, high byte first unless
// the form says otherwise.
namespace simulator {

enum class RegisterForm {
    TwosComplement,        //                                        -1234 in two bytes FB 2E
    SignMagnitude,         //                                        -1234 84 D2
    SwappedSignMagnitude,  // low byte first                         -1234 D2 84
    OneByte,               // in the high byte of a register           200 C8 00
    IeeeSingle,            //                                          100 42 C8 00 00
    SwappedIeeeSingle,     // low word first                           100 00 00 42 C8
    HouseFloat,            // as in native replies                   100.5 07 C9 00 00
    LowBytes,              // a byte in the low one of each register  4660 00 12 00 34
    PackedDecimal          // sign (8) and decimals, decimal digits  12.34 02 00 00 12 34
};

// Whether values of that format can be played: 00, 01, 02, 03, 06, 07 and 11 of RTU, all of the other
// protocols, whose forms do not depend on it.
bool IsKnownFormat(const Model& model);

// Parameters of code 21 that can be written hold LowBytes, those of code 22 PackedDecimal; under RTU length
// and format decide.
RegisterForm FormOf(const Model& model, const Parameter& parameter);

// A value beyond the range of its form is held at the end of the range; bytes that the form does not fill are
// 00.
std::string BytesOfValue(double value, RegisterForm form, int size);

// Nothing for bytes that are no value of the form.
std::optional<double> ValueOfBytes(std::string_view bytes, RegisterForm form);

}  // namespace simulator
