#pragma once

#include <optional>

#include "runtime/text.h"
#include "tools/round_trip_reasons.h"

namespace commtest {

enum class Direction { ToCode, ToValue };

// A conversion of numbers/register_codecs.h.
struct Conversion {
    int format;
    Direction direction;

    bool operator==(const Conversion&) const = default;
};

// Errors of the codecs.
void Convert(const Conversion& conversion, Text& text);

enum class LossKind {
    NoConversion,  // the format has none to a code
    NoWayBack,     // the codec refuses it
    OtherArrives,
    SameArrives,  // the same number without the sign of its zero, or by a BCD code with other characters
};

// What a conversion there and back does not keep.
struct Loss {
    LossKind kind;
    std::optional<LossReason> reason;
    RoundTrip trip;  // without a way back where there is no conversion
};

// What is lost of a value on its way through its code: `trip.code` goes out, `trip.back` is the value that
// arrives. Nothing where the value arrives as the number that it is. Format 0 cannot hold 203392 (31A80): the
// code is 801A, low byte first, and 6784 arrives. Errors of the codec of the code.
std::optional<Loss> LossOfValue(const Text& value, int formatNumber);

// What is lost of a code on its way through its value: `trip.back` is the code that would be written. Nothing
// where it is the same but for small letters. Errors of the codec of the value.
std::optional<Loss> LossOfCode(const Text& code, int formatNumber);

}  // namespace commtest
