#pragma once

#include <optional>
#include <vector>

#include "runtime/text.h"

// Why a conversion with a register format cannot be taken back.
namespace commtest {

// A conversion there and back.
struct RoundTrip {
    Text value;
    Text code;
    std::optional<Text> back;  // what the way back gives; none where the codec refuses
};

// A reason that raises an error, as of a value that is no number, does not apply.
struct Reason {
    bool (*applies)(const RoundTrip&);
    TextView words;
};

inline constexpr TextView kNegativeZero = u"负零按 0 写出，负号丢失";
inline constexpr TextView kBcdDigits = u"后 8 个字符应是 0 到 9";
inline constexpr TextView kBcdSignIsLetter = u"负数有两位以上小数时第 2 个字符是字母，读不出";

bool IsNegativeZero(const RoundTrip& trip);
bool HasOtherBcdDigits(const RoundTrip& trip);

// By format number, the weightiest in front: the first one that applies is the one to give.
std::vector<Reason> ReasonsOfCode(int formatNumber);   // of a value that became a code
std::vector<Reason> ReasonsOfValue(int formatNumber);  // of a code that became a value

}  // namespace commtest
