#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "runtime/text.h"

namespace commtest {

// A value of a flat object: a text, a whole number, or yes and no.
using FlatValue = std::variant<Text, std::int64_t, bool>;

struct FlatMember {
    std::string name;
    FlatValue value;
};

// The members of one JSON object without arrays, objects, nulls and fractions in it, in their order; nothing
// if the line is not that. The line is UTF-8.
std::optional<std::vector<FlatMember>> ReadFlatObject(std::string_view line);

// The same on its way out, in one line without an end.
std::string WrittenFlatObject(const std::vector<FlatMember>& members);

}  // namespace commtest
