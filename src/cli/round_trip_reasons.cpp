#include "cli/round_trip_reasons.h"

#include <algorithm>
#include <cmath>

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

constexpr TextView kSignMagnitudeRange = u"超出范围 -32767 到 32767，高位丢失";
constexpr TextView kRounded = u"没有小数位，正数四舍六入、五取偶，负数舍去小数";
constexpr TextView kFloored = u"没有小数位，取不大于它的整数";
constexpr TextView kUneven = u"格式 12 写原码、读补码，负数读不回来";
constexpr TextView kLongReading = u"读数只取前 9 个字符，后面的数位和指数丢失";
constexpr TextView kBcdBelowOne = u"0 到 1 之间的数都写成 0";
constexpr TextView kLeftAsItIs = u"格式 0 只读 2、4 或 8 个字符的代码，其他的原样输出";
constexpr TextView kWritesFour = u"写出的代码是 4 个字符";
constexpr TextView kOtherCharacters = u"代码中有十六进制数字以外的字符";

template <auto valueOf>
std::vector<Reason> ReasonsOfFloat() {
    return {{IsNoNumber, u"读数不完整，不是数值"},
            {HasLongWayBack, u"小于 0.5 的二的整次幂写成 9 个字符"},
            {HasOtherLength<8>, u"写出的代码是 8 个字符"},
            {HasOtherCharacters, kOtherCharacters},
            {IsCodeOfZero<valueOf>, u"零总是写成 00000000"},
            {IsZero, u"读数只到小数点后 8 位，截成了 0"},
            {Always, u"读数只取前 9 个字符、小数点后 8 位，写出时重新规格化"}};
}

}  // namespace

bool IsNegativeZero(const RoundTrip& trip) { return Trim(trip.value).starts_with(u'-') && IsZero(trip); }

bool HasOtherBcdDigits(const RoundTrip& trip) {
    return Mid(trip.code, 3).find_first_not_of(u"0123456789") != Text::npos;
}

std::vector<Reason> ReasonsOfCode(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
        case format::kSignMagnitude:
            return {{kLeavesSignMagnitude, kSignMagnitudeRange}, {HasFraction, kRounded}};
        case format::kUneven:
            return {
                {kLeavesSignMagnitude, kSignMagnitudeRange}, {IsNegative, kUneven}, {HasFraction, kRounded}};
        case format::kTwosComplement:
            return {{kLeavesTwoBytes, u"超出范围 -32768 到 32767，高位丢失"}, {HasFraction, kFloored}};
        case format::kOneByte:
            return {{kLeavesOneByte, u"超出范围 0 到 255，读出时没有负数"}, {HasFraction, kFloored}};
        case format::kCustomFloat:
            return {{HasLongCode, u"代码多于 8 个字符，读出时只取前 8 个"},
                    {LeavesExponent, u"超出自定义浮点数的阶码范围"},
                    {HasLongReading, kLongReading},
                    {Always, u"尾数只有 24 位，读数只取前 9 个字符、小数点后 8 位"}};
        case format::kIeeeSingle:
            return {{HasLongReading, kLongReading},
                    {Always, u"单精度只有约 7 位有效数字，读数只取前 9 个字符、小数点后 8 位"}};
        case format::kBcd:
            return {{IsBelowOne, kBcdBelowOne},
                    {HasManyDecimals, u"小数多于 7 位，小数位数占用了符号位"},
                    {IsNegativeWithDecimals, kBcdSignIsLetter},
                    {HasOtherBcdDigits, kBcdDigits},
                    {HasManyDigits, u"多于 8 位数字，前面的丢失"},
                    {Always, u"数字逐字取自输入的文字"}};
        default: return {};
    }
}

std::vector<Reason> ReasonsOfValue(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
            return {{HasLengthLeftAsItIs, kLeftAsItIs},
                    {HasOtherLength<4>, kWritesFour},
                    {HasOtherCharacters, kOtherCharacters},
                    {IsNegativeZero, kNegativeZero}};
        case format::kSignMagnitude:
            return {{HasOtherLength<4>, kWritesFour},
                    {HasOtherCharacters, kOtherCharacters},
                    {IsNegativeZero, kNegativeZero}};
        case format::kUneven:
            return {{HasOtherLength<4>, kWritesFour},
                    {HasOtherCharacters, kOtherCharacters},
                    {IsNegative, kUneven}};
        case format::kTwosComplement:
            return {{HasOtherLength<4>, kWritesFour}, {HasOtherCharacters, kOtherCharacters}};
        case format::kOneByte:
            return {{HasOtherLength<2>, u"写出的代码是 2 个字符"}, {HasOtherCharacters, kOtherCharacters}};
        case format::kCustomFloat: return ReasonsOfFloat<CustomFloatValue>();
        case format::kIeeeSingle: return ReasonsOfFloat<IeeeSingleValue>();
        case format::kBcd:
            return {{HasOtherLength<10>, u"写出的代码是 10 个字符"},
                    {HasOtherBcdDigits, kBcdDigits},
                    {IsNegativeZero, kNegativeZero},
                    {IsBelowOne, kBcdBelowOne},
                    {BeginsWithoutZero, u"第 1 个字符总是写成 0"}};
        default: return {};
    }
}

}  // namespace commtest
