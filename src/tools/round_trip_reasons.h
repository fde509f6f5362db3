#pragma once

#include <optional>

#include "runtime/text.h"

// Why a conversion with a register format cannot be taken back.
namespace commtest {

enum class LossReason {
    // The format.
    ReadsOnly,
    NotConverted,  // it leaves every text as it is
    Uneven,        // it writes sign and magnitude and reads two's complement

    // A value on its way to the code.
    BeyondSignMagnitude,   // -32767 to 32767
    BeyondTwosComplement,  // -32768 to 32767
    BeyondOneByte,         // 0 to 255
    BeyondExponent,        // of the custom float
    FractionRounded,       // half to even; of a negative value it is cut
    FractionFloored,
    NegativeZero,
    LongCode,          // more than the 8 characters that are read
    LongReading,       // its whole part does not fit into the 9 characters of a reading
    CustomFloatWidth,  // a mantissa of 24 bits, a reading of 9 characters and 8 decimals
    SingleWidth,       // about 7 digits, the same reading
    BcdBelowOne,       // written as 0
    BcdManyDecimals,   // more than the 7 that leave the bit of the sign alone
    BcdSignIsLetter,   // of a negative value with two decimals or more
    BcdOtherDigits,    // the last 8 characters are not all decimal digits
    BcdManyDigits,     // more than 8
    BcdDigitsOfText,   // taken from the text as it was typed

    // A code on its way to the value.
    LeftAsItIs,  // format 0 reads 2, 4 or 8 characters
    WrittenInTwoCharacters,
    WrittenInFourCharacters,
    WrittenInEightCharacters,
    WrittenInTenCharacters,
    OtherCharacters,      // than hexadecimal digits
    ReadingIsNoNumber,    // it was cut in its exponent
    PowerOfTwoBelowHalf,  // is written in nine characters
    ZeroHasOneCode,
    ReadAsZero,  // below the 8 decimals of a reading
    Normalised,  // a cut reading gives another code
    BcdBeginsWithZero,
};

// A conversion there and back.
struct RoundTrip {
    Text value;
    Text code;
    std::optional<Text> back;  // what the way back gives; none where the codec refuses
};

bool IsNegativeZero(const RoundTrip& trip);
bool HasOtherBcdDigits(const RoundTrip& trip);

// Why there is no way to a code at all; none where there is one.
std::optional<LossReason> ReasonOfFormat(int formatNumber);

// The weightiest reason why something else came back; none where no reason is known.
std::optional<LossReason> ReasonOfValue(const RoundTrip& trip, int formatNumber);  // of a value by its code
std::optional<LossReason> ReasonOfCode(const RoundTrip& trip, int formatNumber);   // of a code by its value

}  // namespace commtest
