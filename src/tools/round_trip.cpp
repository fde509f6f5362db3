#include "tools/round_trip.h"

#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

Text Converted(const Conversion& conversion, Text text) {
    Convert(conversion, text);
    return text;
}

std::optional<Text> ConvertedIfItCanBe(const Conversion& conversion, const Text& text) {
    try {
        return Converted(conversion, text);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

bool IsSameNumber(const Text& one, const Text& other) {
    return IsMet([&] { return ToNumber(one) == ToNumber(other); });
}

}  // namespace

void Convert(const Conversion& conversion, Text& text) {
    if (conversion.direction == Direction::ToCode) {
        ValueToCommCode(text, conversion.format);
    } else {
        CommCodeToValue(text, conversion.format);
    }
}

std::optional<Loss> LossOfValue(const Text& value, int formatNumber) {
    RoundTrip trip = {value, Converted({formatNumber, Direction::ToCode}, value), std::nullopt};
    if (const auto reason = ReasonOfFormat(formatNumber)) return Loss{LossKind::NoConversion, reason, trip};
    trip.back = ConvertedIfItCanBe({formatNumber, Direction::ToValue}, trip.code);
    const auto reason = ReasonOfValue(trip, formatNumber);
    if (!trip.back) return Loss{LossKind::NoWayBack, reason, trip};
    if (!IsSameNumber(trip.value, *trip.back)) return Loss{LossKind::OtherArrives, reason, trip};
    if (IsNegativeZero(trip)) return Loss{LossKind::SameArrives, LossReason::NegativeZero, trip};
    if (formatNumber == register_format::kBcd && HasOtherBcdDigits(trip)) {
        return Loss{LossKind::SameArrives, LossReason::BcdOtherDigits, trip};
    }
    return std::nullopt;
}

std::optional<Loss> LossOfCode(const Text& code, int formatNumber) {
    RoundTrip trip = {Converted({formatNumber, Direction::ToValue}, code), code, std::nullopt};
    if (const auto reason = ReasonOfFormat(formatNumber)) return Loss{LossKind::NoConversion, reason, trip};
    trip.back = ConvertedIfItCanBe({formatNumber, Direction::ToCode}, trip.value);
    const auto reason = ReasonOfCode(trip, formatNumber);
    if (!trip.back) return Loss{LossKind::NoWayBack, reason, trip};
    if (*trip.back == UCase(trip.code)) return std::nullopt;
    return Loss{LossKind::OtherArrives, reason, trip};
}

}  // namespace commtest
