#include "runtime/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <locale>
#include <sstream>
#include <string>

#include "runtime/runtime_error.h"

namespace commtest {

namespace {

constexpr std::array<std::int8_t, 128> kHexDigitValues = [] {
    std::array<std::int8_t, 128> values{};
    values.fill(-1);
    for (std::size_t digit = 0; digit < 10; ++digit) values[u'0' + digit] = static_cast<std::int8_t>(digit);
    for (std::size_t digit = 10; digit < 16; ++digit) {
        values[u'A' + digit - 10] = static_cast<std::int8_t>(digit);
        values[u'a' + digit - 10] = static_cast<std::int8_t>(digit);
    }
    return values;
}();

int HexDigitValue(char16_t c) { return c < kHexDigitValues.size() ? kHexDigitValues[c] : -1; }

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;

// --- Short decimals: what most values of instruments are ---

constexpr int kMostDecimals = 4;

constexpr std::array<std::int64_t, kDoubleDigits + 1> kPowersOfTen = [] {
    std::array<std::int64_t, kDoubleDigits + 1> powers{};
    std::int64_t power = 1;
    for (std::int64_t& each : powers) {
        each = power;
        power *= 10;
    }
    return powers;
}();

std::int64_t PowerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

// digits / 10^decimals, of at most 15 digits. Its double is the quotient of two exact numbers, and no other
// decimal of 15 digits has the same one.
struct ShortDecimal {
    bool negative = false;
    std::int64_t digits = 0;
    int decimals = 0;

    double Magnitude() const {
        return static_cast<double>(digits) / static_cast<double>(PowerOfTen(decimals));
    }
};

std::optional<ShortDecimal> ReadShortDecimal(TextView text) {
    text = Trimmed(text);
    ShortDecimal decimal;
    decimal.negative = text.starts_with(u'-');
    if (decimal.negative || text.starts_with(u'+')) text.remove_prefix(1);
    if (text.empty() || text.size() > kDoubleDigits || text.back() == u'.') return std::nullopt;
    const char16_t* behindPoint = nullptr;
    for (const char16_t& unit : text) {
        if (IsDigit(unit)) {
            decimal.digits = decimal.digits * 10 + (unit - u'0');
        } else if (unit == u'.' && behindPoint == nullptr) {
            behindPoint = &unit + 1;
        } else {
            return std::nullopt;
        }
    }
    if (behindPoint != nullptr) decimal.decimals = static_cast<int>(text.data() + text.size() - behindPoint);
    return decimal;
}

// The one with the fewest decimals that is the value.
std::optional<ShortDecimal> AsShortDecimal(double value, int significant) {
    const double magnitude = std::fabs(value);
    for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
        const double scaled = magnitude * static_cast<double>(PowerOfTen(decimals));
        if (!(scaled < static_cast<double>(PowerOfTen(significant) - 1))) return std::nullopt;
        const ShortDecimal decimal = {std::signbit(value), static_cast<std::int64_t>(scaled + 0.5), decimals};
        if (decimal.Magnitude() == magnitude) return decimal;
    }
    return std::nullopt;
}

// Q6: no zero before the point.
Text TextOf(const ShortDecimal& decimal) {
    std::array<char16_t, 24> units;
    char16_t* const end = units.data() + units.size();
    char16_t* first = end;
    std::int64_t rest = decimal.digits;
    const auto put = [&first, &rest] {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    };
    for (int i = 0; i < decimal.decimals; ++i) put();
    if (decimal.decimals > 0) *--first = u'.';
    while (rest > 0) put();
    if (decimal.negative) *--first = u'-';
    return {first, end};
}

// Q5: half away from zero, unlike RoundHalfEven. None where the digits have no room.
std::optional<ShortDecimal> Fixed(ShortDecimal decimal, int decimals) {
    if (decimals > kMostDecimals || decimal.digits >= PowerOfTen(kDoubleDigits - kMostDecimals))
        return std::nullopt;
    decimal.negative = decimal.negative && decimal.digits != 0;
    if (decimal.decimals > decimals) {
        const std::int64_t power = PowerOfTen(decimal.decimals - decimals);
        decimal.digits = decimal.digits / power + (decimal.digits % power >= power / 2 ? 1 : 0);
    } else {
        decimal.digits *= PowerOfTen(decimals - decimal.decimals);
    }
    decimal.decimals = decimals;
    return decimal;
}

// --- Any number ---

std::string ScientificForm(double value, int significant) {
    char printed[40];
    const auto end = std::to_chars(std::begin(printed), std::end(printed), value,
                                   std::chars_format::scientific, significant - 1);
    return {std::begin(printed), end.ptr};
}

// A number in decimal: 0.d1d2d3... times 10 to the power of `point`, rounded to its significant digits.
struct Decimal {
    bool negative = false;
    std::string digits;  // no zeros at the end; empty for zero
    int point = 0;       // position of the decimal point in `digits`
};

Decimal DecimalOf(double value, int significant) {
    const std::string text = ScientificForm(std::fabs(value), significant);
    const auto e = text.find('e');
    Decimal decimal;
    decimal.negative = std::signbit(value);
    decimal.point = std::atoi(text.c_str() + e + 1) + 1;
    for (char c : text.substr(0, e)) {
        if (IsDigit(static_cast<unsigned char>(c))) decimal.digits += c;
    }
    const auto last = decimal.digits.find_last_not_of('0');
    decimal.digits.resize(last == std::string::npos ? 0 : last + 1);
    if (decimal.digits.empty()) decimal.point = 0;  // a zero, too, has no digit before the point
    return decimal;
}

std::string ExponentForm(const Decimal& decimal) {
    const int exponent = decimal.point - 1;
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1) text += '.' + decimal.digits.substr(1);
    const std::string magnitude = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (magnitude.size() < 2 ? "0" : "") + magnitude;
}

std::string PlainForm(const Decimal& decimal) {
    const int count = static_cast<int>(decimal.digits.size());
    if (decimal.point <= 0)  // Q6: no zero before the point
        return '.' + std::string(static_cast<std::size_t>(-decimal.point), '0') + decimal.digits;
    if (decimal.point >= count) {
        return decimal.digits + std::string(static_cast<std::size_t>(decimal.point - count), '0');
    }
    const auto whole = static_cast<std::size_t>(decimal.point);
    return decimal.digits.substr(0, whole) + '.' + decimal.digits.substr(whole);
}

Text NumberTextOf(double value, int significant) {
    if (const auto shortDecimal = AsShortDecimal(value, significant))
        return shortDecimal->digits == 0 ? u"0" : TextOf(*shortDecimal);
    const Decimal decimal = DecimalOf(value, significant);
    if (decimal.digits.empty()) return u"0";
    const bool plain = decimal.point <= significant && decimal.point >= -3;
    const std::string text = plain ? PlainForm(decimal) : ExponentForm(decimal);
    return FromUtf8(decimal.negative ? '-' + text : text);
}

// Adds one to the last of the digits; a carry out of the first one makes the text longer.
void RoundUp(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

struct FixedParts {
    bool negative;
    std::string whole;  // empty below 1
    std::string fraction;
};

FixedParts FixedPartsOf(double value, int decimals) {
    const Decimal decimal = DecimalOf(value, kDoubleDigits);
    // All digits from the first whole one to the last decimal wanted, and the one behind it that decides.
    std::string digits = decimal.point < 0 ? std::string(static_cast<std::size_t>(-decimal.point), '0') : "";
    digits += decimal.digits;
    const auto whole = static_cast<std::size_t>(decimal.point > 0 ? decimal.point : 0);
    const auto wanted = whole + static_cast<std::size_t>(decimals);
    digits.resize(std::max(digits.size(), wanted + 1), '0');
    const bool up = digits[wanted] >= '5';
    digits.resize(wanted);
    if (up) RoundUp(digits);
    const auto point = digits.size() - static_cast<std::size_t>(decimals);
    return {decimal.negative && !decimal.digits.empty(), digits.substr(0, point), digits.substr(point)};
}

Text Joined(const FixedParts& parts, const std::string& whole) {
    std::string text = parts.negative ? "-" + whole : whole;
    if (!parts.fraction.empty()) text += '.' + parts.fraction;
    return FromUtf8(text);
}

// A number too small for a double is 0, one too large an error. The point is a point in every locale.
double NumberBeyondRange(const std::string& text) {
    std::istringstream reader(text);
    reader.imbue(std::locale::classic());
    double value = 0;
    if (!(reader >> value)) throw RuntimeError(RuntimeError::kOverflow);
    return value;
}

}  // namespace

double ToNumber(TextView text) {
    if (const auto decimal = ReadShortDecimal(text))
        return decimal->negative ? -decimal->Magnitude() : decimal->Magnitude();
    const std::string trimmed = ToUtf8(Trim(text));
    const char* begin = trimmed.data();
    const char* const end = begin + trimmed.size();
    if (begin != end && *begin == '+') ++begin;
    const char* const first = begin != end && begin == trimmed.data() && *begin == '-' ? begin + 1 : begin;
    // The number reader would also take "inf" and "nan".
    const bool startsLikeNumber =
        first != end && (IsDigit(static_cast<unsigned char>(*first)) || *first == '.');
    double value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (!startsLikeNumber || stop != end || error == std::errc::invalid_argument) {
        throw RuntimeError(RuntimeError::kTypeMismatch);
    }
    return error == std::errc::result_out_of_range ? NumberBeyondRange({begin, stop}) : value;
}

int LeadingWholeNumber(TextView text) {
    const std::string trimmed = ToUtf8(Trim(text));
    int value = 0;
    std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    return value;
}

std::int16_t ToWhole16(TextView text) { return Whole16(ToNumber(text)); }
std::int32_t ToWhole32(TextView text) { return Whole32(ToNumber(text)); }

std::int32_t HexParse(TextView text) {
    std::uint32_t value = 0;
    int digits = 0;
    for (const char16_t unit : text) {
        const int digit = HexDigitValue(unit);
        if (digit < 0) break;
        value = (value << 4) | static_cast<std::uint32_t>(digit);
        ++digits;
    }
    if (digits <= 4) return static_cast<std::int16_t>(value);  // Q4: signed
    return static_cast<std::int32_t>(value);
}

std::optional<int> HexPairValue(TextView pair) {
    int value = 0;
    std::size_t digits = 0;
    for (; digits < pair.size() && HexDigitValue(pair[digits]) >= 0; ++digits) {
        value = value * 16 + HexDigitValue(pair[digits]);
    }
    // Q3: one digit is enough.
    if (digits == 0 || pair.find_first_not_of(u' ', digits) != TextView::npos) return std::nullopt;
    return value;
}

Text NumberText(double value) { return NumberTextOf(value, kDoubleDigits); }
Text SingleText(float value) { return NumberTextOf(static_cast<double>(value), kSingleDigits); }

Text WholeText(std::int64_t value) {
    if (value >= 0 && value < 10) return Text(1, static_cast<char16_t>(u'0' + value));
    std::array<char, 20> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

double RoundedToText(double value) {
    const std::string digits = ScientificForm(value, kDoubleDigits);
    double rounded = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
    return read.ec == std::errc::result_out_of_range ? NumberBeyondRange(digits) : rounded;
}

Text HexOf(double value) {
    auto rest = static_cast<std::uint32_t>(Whole32(value));
    Text digits;
    do {
        digits.insert(digits.begin(), u"0123456789ABCDEF"[rest % 16]);
        rest /= 16;
    } while (rest != 0);
    return digits;
}

Text HexOf(TextView text) { return HexOf(ToNumber(text)); }

Text FixedText(double value, int decimals) {
    if (const auto shortDecimal = AsShortDecimal(value, kDoubleDigits)) {
        if (const auto fixed = Fixed(*shortDecimal, decimals)) return TextOf(*fixed);
    }
    const FixedParts parts = FixedPartsOf(value, decimals);
    return Joined(parts, parts.whole);
}

Text FixedTextWithZero(double value, int decimals) {
    const FixedParts parts = FixedPartsOf(value, decimals);
    return Joined(parts, parts.whole.empty() ? "0" : parts.whole);
}

Text GroupedText(double value, int decimals) {
    const FixedParts parts = FixedPartsOf(value, decimals);
    std::string whole = parts.whole.empty() ? "0" : parts.whole;
    for (auto at = whole.size(); at > 3; at -= 3) whole.insert(at - 3, ",");
    return Joined(parts, whole);
}

// Q5: to even, unlike shown decimals.
double RoundHalfEven(double value) {
    const bool isSmall = value > -1e9 && value < 1e9;
    if (isSmall && static_cast<double>(static_cast<std::int32_t>(value)) == value) return value;
    return std::nearbyint(value);
}

std::int16_t Whole16(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) throw RuntimeError(RuntimeError::kOverflow);
    return static_cast<std::int16_t>(rounded);
}

std::int32_t Whole32(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw RuntimeError(RuntimeError::kOverflow);
    return static_cast<std::int32_t>(rounded);
}

std::int16_t Add16(std::int16_t a, int b) { return Whole16(static_cast<double>(a) + b); }
std::int32_t Add32(std::int32_t a, std::int32_t b) { return Whole32(static_cast<double>(a) + b); }
std::int32_t Multiply32(std::int32_t a, std::int32_t b) { return Whole32(static_cast<double>(a) * b); }

double Finite(double value) {
    if (!std::isfinite(value)) throw RuntimeError(RuntimeError::kOverflow);
    return value;
}

}  // namespace commtest
