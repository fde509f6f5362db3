#include "cli/round_trip_reasons.h"

#include <algorithm>
#include <cmath>

#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

namespace format = register_format;

// 0 for a text that is no number.
double NumberIn(const Text& text) {
    double number = 0;
    PassOverError([&] { number = ToNumber(text); });
    return number;
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool Always(const RoundTrip&) { return true; }

// --- Of a value that became a code ---

template <int lowest, int highest>
bool LeavesRange(const RoundTrip& trip) {
    return NumberIn(trip.input) < lowest || NumberIn(trip.input) > highest;
}

bool HasFraction(const RoundTrip& trip) { return NumberIn(trip.input) != std::floor(NumberIn(trip.input)); }

bool IsNegative(const RoundTrip& trip) { return NumberIn(trip.input) < 0; }

bool IsBelowOne(const RoundTrip& trip) { return NumberIn(trip.input) >= 0 && NumberIn(trip.input) < 1; }

bool HasLongCode(const RoundTrip& trip) { return Len(trip.result) > 8; }

bool LeavesExponent(const RoundTrip& trip) {
    const double magnitude = std::fabs(NumberIn(trip.input));
    return magnitude >= std::ldexp(1, 63) || magnitude < std::ldexp(1, -64);
}

bool HasLongReading(const RoundTrip& trip) {
    return NumberIn(trip.input) >= 1E9 || NumberIn(trip.input) <= -1E8;
}

int Decimals(const RoundTrip& trip) { return Len(Behind(trip.input, u'.')); }

bool HasManyDecimals(const RoundTrip& trip) { return Decimals(trip) > 7; }

bool IsNegativeWithDecimals(const RoundTrip& trip) { return IsNegative(trip) && Decimals(trip) >= 2; }

bool HasManyDigits(const RoundTrip& trip) {
    return std::count_if(trip.input.begin(), trip.input.end(), IsDigit) > 8;
}

constexpr TextView kTwoByteRange = u"超出范围 -32767 到 32767，高位丢失";
constexpr TextView kRounded = u"没有小数位，正数四舍六入、五取偶，负数舍去小数";
constexpr TextView kFloored = u"没有小数位，取不大于它的整数";
constexpr TextView kUneven = u"格式 12 写原码、读补码，负数读不回来";
constexpr TextView kLongReading = u"读数只取前 9 个字符，后面的数位和指数丢失";
constexpr TextView kBcdBelowOne = u"0 到 1 之间的数都写成 0";

// --- Of a code that became a value ---

template <int length>
bool HasOtherLength(const RoundTrip& trip) {
    return Len(trip.input) != length;
}

bool HasLengthLeftAsItIs(const RoundTrip& trip) {
    return HasOtherLength<2>(trip) && HasOtherLength<4>(trip) && HasOtherLength<8>(trip);
}

bool HasOtherCharacters(const RoundTrip& trip) {
    return trip.input.find_first_not_of(u"0123456789ABCDEFabcdef") != Text::npos;
}

bool IsNegativeZero(const RoundTrip& trip) {
    return trip.result.starts_with(u"-") && NumberIn(trip.result) == 0;
}

bool IsZero(const RoundTrip& trip) { return NumberIn(trip.result) == 0; }

bool IsNegativeReading(const RoundTrip& trip) { return NumberIn(trip.result) < 0; }

bool IsReadingBelowOne(const RoundTrip& trip) {
    return NumberIn(trip.result) >= 0 && NumberIn(trip.result) < 1;
}

bool HasLongWayBack(const RoundTrip& trip) { return trip.back && Len(*trip.back) > 8; }

bool BeginsWithoutZero(const RoundTrip& trip) { return !trip.input.starts_with(u"0"); }

constexpr TextView kLeftAsItIs = u"格式 0 只读 2、4 或 8 个字符的代码，其他的原样输出";
constexpr TextView kWritesFour = u"写出的代码是 4 个字符";
constexpr TextView kWritesEight = u"写出的代码是 8 个字符";
constexpr TextView kOtherCharacters = u"代码中有十六进制数字以外的字符";
constexpr TextView kNegativeZero = u"负零没有自己的代码，按 0 写出";
constexpr TextView kOneZero = u"零总是写成 00000000";
constexpr TextView kCutReading = u"读数只取前 9 个字符、小数点后 8 位，写出时重新规格化";

}  // namespace

std::vector<Reason> ReasonsOfCode(int formatNumber) {
    switch (formatNumber) {
        case format::kSignMagnitudeSwapped:
        case format::kSignMagnitude:
            return {{LeavesRange<-32767, 32767>, kTwoByteRange}, {HasFraction, kRounded}};
        case format::kUneven:
            return {
                {LeavesRange<-32767, 32767>, kTwoByteRange}, {IsNegative, kUneven}, {HasFraction, kRounded}};
        case format::kTwosComplement:
            return {{LeavesRange<-32768, 32767>, u"超出范围 -32768 到 32767，高位丢失"},
                    {HasFraction, kFloored}};
        case format::kOneByte:
            return {{LeavesRange<0, 255>, u"超出范围 0 到 255，读出时没有负数"}, {HasFraction, kFloored}};
        case format::kCustomFloat:
            return {{HasLongCode, u"代码多于 8 个字符，读出时只取前 8 个"},
                    {LeavesExponent, u"超出自定义浮点数的阶码范围"},
                    {HasLongReading, kLongReading},
                    {Always, u"尾数只有 24 位，读数只取前 9 个字符、小数点后 8 位"}};
        case format::kIeeeSingle:
            return {{HasLongReading, kLongReading},
                    {Always, u"单精度只有约 7 位有效数字，读数只取前 9 个字符、小数点后 8 位"}};
        case format::kBcd:
            return {{HasManyDecimals, u"小数多于 7 位，小数位数占用了符号位"},
                    {IsBelowOne, kBcdBelowOne},
                    {IsNegativeWithDecimals, u"负数有两位以上小数时第 2 个字符是字母，读不出"},
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
                    {IsNegativeReading, kUneven}};
        case format::kTwosComplement:
            return {{HasOtherLength<4>, kWritesFour}, {HasOtherCharacters, kOtherCharacters}};
        case format::kOneByte:
            return {{HasOtherLength<2>, u"写出的代码是 2 个字符"}, {HasOtherCharacters, kOtherCharacters}};
        case format::kCustomFloat:
        case format::kIeeeSingle:
            return {{HasLongWayBack, u"小于 0.5 的二的整次幂写成 9 个字符"},
                    {HasOtherLength<8>, kWritesEight},
                    {HasOtherCharacters, kOtherCharacters},
                    {IsZero, kOneZero},
                    {Always, kCutReading}};
        case format::kBcd:
            return {{HasOtherLength<10>, u"写出的代码是 10 个字符"},
                    {HasOtherCharacters, kOtherCharacters},
                    {IsNegativeZero, kNegativeZero},
                    {IsReadingBelowOne, kBcdBelowOne},
                    {BeginsWithoutZero, u"第 1 个字符总是写成 0"}};
        default: return {};
    }
}

}  // namespace commtest
