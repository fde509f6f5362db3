#pragma once

#include <string>
#include <vector>

#include "catalogue/statements.h"

namespace commtest::testing {

// A statement of the catalogue by its name, how many values are joined into it, and what may be the first.
struct NamedStatement {
    std::string name;
    Text Statements::*text;
    int values;
    Text first = u"仪表甲";
};

// All of them.
const std::vector<NamedStatement>& AllStatements();

// A statement of a page with arbitrary values joined in.
Text WithArbitraryValues(const Statements& page, const NamedStatement& statement);

// A recorded exchange; its other columns are arbitrary.
void AddRecording(Store& store, const Text& name, const Text& note, const Text& reply);

}  // namespace commtest::testing
