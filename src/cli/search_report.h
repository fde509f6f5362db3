#pragma once

#include <string>
#include <vector>

#include "cli/table.h"
#include "session/search_hit.h"

namespace commtest {

// What a search ends with: a row a reply, in the order in which they came. JSON names the check word right,
// wrong, none or notJudged.
std::string SearchReport(const std::vector<SearchHit>& hits, Format format);

}  // namespace commtest
