#pragma once

#include <optional>
#include <vector>

#include "runtime/text.h"

// Why a conversion with a register format cannot be taken back.
namespace commtest {

// A conversion there and back, which did not end where it began.
struct RoundTrip {
    Text input;
    Text result;
    std::optional<Text> back;  // none where the codec refuses the result
};

struct Reason {
    bool (*applies)(const RoundTrip&);
    TextView words;
};

// By format number, the weightiest in front: the first one that applies is the one to give.
std::vector<Reason> ReasonsOfCode(int formatNumber);   // of a value that became a code
std::vector<Reason> ReasonsOfValue(int formatNumber);  // of a code that became a value

}  // namespace commtest
