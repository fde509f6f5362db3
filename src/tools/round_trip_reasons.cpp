#include "tools/round_trip_reasons.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numbers/custom_float.h"
#include "numbers/ieee_single.h"
#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

namespace format = register_format;

double Number(const RoundTrip& trip) { return ToNumber(trip.value); }

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool Always(const RoundTrip&) { return true; }

// --- Of the value ---

bool IsNoNumber(const RoundTrip& trip) {
    return !IsMet([&] {
        Number(trip);
        return true;
    });
}

bool IsNegative(const RoundTrip& trip) { return Number(trip) < 0; }

bool IsBelowOne(const RoundTrip& trip) { return Number(trip) >= 0 && Number(trip) < 1; }

bool IsZero(const RoundTrip& trip) { return Number(trip) == 0; }

bool HasFraction(const RoundTrip& trip) { return Number(trip) != std::floor(Number(trip)); }

// As numbers/two_byte_code.h writes them.
double WholeOfSignMagnitude(double value) { return value < 0 ? std::trunc(value) : RoundHalfEven(value); }
double WholeOfTwosComplement(double value) { return std::floor(value); }

template <double (*wholeOf)(double value), int lowest, int highest>
bool LeavesRange(const RoundTrip& trip) {
    const double written = wholeOf(Number(trip));
    return written < lowest || written > highest;
}

bool LeavesExponent(const RoundTrip& trip) {
    const double magnitude = std::fabs(Number(trip));
    return magnitude >= std::ldexp(1, 63) || magnitude < std::ldexp(1, -64);
}

bool HasLongReading(const RoundTrip& trip) { return Number(trip) >= 1E9 || Number(trip) <= -1E8; }

int Decimals(const RoundTrip& trip) { return Len(Behind(trip.value, u'.')); }

bool HasManyDecimals(const RoundTrip& trip) { return Decimals(trip) > 7; }

bool IsNegativeWithDecimals(const RoundTrip& trip) { return IsNegative(trip) && Decimals(trip) >= 2; }

bool HasManyDigits(const RoundTrip& trip) {
    return std::count_if(trip.value.begin(), trip.value.end(), IsDigit) > 8;
}

// --- Of the code ---

template <int length>
bool HasOtherLength(const RoundTrip& trip) {
    return Len(trip.code) != length;
}

bool HasLongCode(const RoundTrip& trip) { return Len(trip.code) > 8; }

bool HasLongWayBack(const RoundTrip& trip) { return trip.back && Len(*trip.back) > 8; }

bool HasLengthLeftAsItIs(const RoundTrip& trip) {
    return HasOtherLength<2>(trip) && HasOtherLength<4>(trip) && HasOtherLength<8>(trip);
}

bool HasOtherCharacters(const RoundTrip& trip) {
    return trip.code.find_first_not_of(u"0123456789ABCDEFabcdef") != Text::npos;
}

bool BeginsWithoutZero(const RoundTrip& trip) { return !trip.code.starts_with(u"0"); }

template <auto valueOf>
bool IsCodeOfZero(const RoundTrip& trip) {
    return valueOf(trip.code) == 0;
}

constexpr auto kLeavesSignMagnitude = LeavesRange<WholeOfSignMagnitude, -32767, 32767>;
constexpr auto kLeavesTwoBytes = LeavesRange<WholeOfTwosComplement, -32768, 32767>;
constexpr auto kLeavesOneByte = LeavesRange<WholeOfTwosComplement, 0, 255>;

// A condition that raises an error, as of a value that is no number, is not met.
struct Rule {
    bool (*applies)(const RoundTrip&);
    LossReason reason;
};
using Rules = std::vector<Rule>;  // the weightiest in front

std::optional<LossReason> FirstThatApplies(const Rules& rules, const RoundTrip& trip) {
    for (const Rule& rule : rules) {
        if (IsMet([&] { return rule.applies(trip); })) return rule.reason;
    }
    return std::nullopt;
}

Rules RulesOfValue(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
        case format::kSignMagnitude:
            return {{kLeavesSignMagnitude, LossReason::BeyondSignMagnitude},
                    {HasFraction, LossReason::FractionRounded}};
        case format::kUneven:
            return {{kLeavesSignMagnitude, LossReason::BeyondSignMagnitude},
                    {IsNegative, LossReason::Uneven},
                    {HasFraction, LossReason::FractionRounded}};
        case format::kTwosComplement:
            return {{kLeavesTwoBytes, LossReason::BeyondTwosComplement},
                    {HasFraction, LossReason::FractionFloored}};
        case format::kOneByte:
            return {{kLeavesOneByte, LossReason::BeyondOneByte}, {HasFraction, LossReason::FractionFloored}};
        case format::kCustomFloat:
            return {{HasLongCode, LossReason::LongCode},
                    {LeavesExponent, LossReason::BeyondExponent},
                    {HasLongReading, LossReason::LongReading},
                    {Always, LossReason::CustomFloatWidth}};
        case format::kIeeeSingle:
            return {{HasLongReading, LossReason::LongReading}, {Always, LossReason::SingleWidth}};
        case format::kBcd:
            return {{IsBelowOne, LossReason::BcdBelowOne},
                    {HasManyDecimals, LossReason::BcdManyDecimals},
                    {IsNegativeWithDecimals, LossReason::BcdSignIsLetter},
                    {HasOtherBcdDigits, LossReason::BcdOtherDigits},
                    {HasManyDigits, LossReason::BcdManyDigits},
                    {Always, LossReason::BcdDigitsOfText}};
        default: return {};
    }
}

template <auto valueOf>
Rules RulesOfFloatCode() {
    return {{IsNoNumber, LossReason::ReadingIsNoNumber},
            {HasLongWayBack, LossReason::PowerOfTwoBelowHalf},
            {HasOtherLength<8>, LossReason::WrittenInEightCharacters},
            {HasOtherCharacters, LossReason::OtherCharacters},
            {IsCodeOfZero<valueOf>, LossReason::ZeroHasOneCode},
            {IsZero, LossReason::ReadAsZero},
            {Always, LossReason::Normalised}};
}

Rules RulesOfCode(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
            return {{HasLengthLeftAsItIs, LossReason::LeftAsItIs},
                    {HasOtherLength<4>, LossReason::WrittenInFourCharacters},
                    {HasOtherCharacters, LossReason::OtherCharacters},
                    {IsNegativeZero, LossReason::NegativeZero}};
        case format::kSignMagnitude:
            return {{HasOtherLength<4>, LossReason::WrittenInFourCharacters},
                    {HasOtherCharacters, LossReason::OtherCharacters},
                    {IsNegativeZero, LossReason::NegativeZero}};
        case format::kUneven:
            return {{HasOtherLength<4>, LossReason::WrittenInFourCharacters},
                    {HasOtherCharacters, LossReason::OtherCharacters},
                    {IsNegative, LossReason::Uneven}};
        case format::kTwosComplement:
            return {{HasOtherLength<4>, LossReason::WrittenInFourCharacters},
                    {HasOtherCharacters, LossReason::OtherCharacters}};
        case format::kOneByte:
            return {{HasOtherLength<2>, LossReason::WrittenInTwoCharacters},
                    {HasOtherCharacters, LossReason::OtherCharacters}};
        case format::kCustomFloat: return RulesOfFloatCode<CustomFloatValue>();
        case format::kIeeeSingle: return RulesOfFloatCode<IeeeSingleValue>();
        case format::kBcd:
            return {{HasOtherLength<10>, LossReason::WrittenInTenCharacters},
                    {HasOtherBcdDigits, LossReason::BcdOtherDigits},
                    {IsNegativeZero, LossReason::NegativeZero},
                    {IsBelowOne, LossReason::BcdBelowOne},
                    {BeginsWithoutZero, LossReason::BcdBeginsWithZero}};
        default: return {};
    }
}

}  // namespace

bool IsNegativeZero(const RoundTrip& trip) { return Trim(trip.value).starts_with(u'-') && IsZero(trip); }

bool HasOtherBcdDigits(const RoundTrip& trip) {
    return Mid(trip.code, 3).find_first_not_of(u"0123456789") != Text::npos;
}

std::optional<LossReason> ReasonOfFormat(int formatNumber) {
    switch (formatNumber) {
        case format::kAccumulated:
        case format::kPlainHex:
        case format::kIeeeSingleReadOnly: return LossReason::ReadsOnly;
        case format::kSignMagnitudeSwapped:
        case format::kTwosComplement:
        case format::kCustomFloat:
        case format::kIeeeSingle:
        case format::kBcd:
        case format::kSignMagnitude:
        case format::kOneByte:
        case format::kUneven: return std::nullopt;
        default: return LossReason::NotConverted;
    }
}

std::optional<LossReason> ReasonOfValue(const RoundTrip& trip, int formatNumber) {
    return FirstThatApplies(RulesOfValue(formatNumber), trip);
}

std::optional<LossReason> ReasonOfCode(const RoundTrip& trip, int formatNumber) {
    return FirstThatApplies(RulesOfCode(formatNumber), trip);
}

}  // namespace commtest
