#pragma once

#include "runtime/text.h"

namespace commtest {

// The number by which an instrument gets its explainer: characters 3 and 4 of its 编号, 0 where these begin
// with no number.
int ExplainerNumberOf(const Text& meterCode);

// The number of ExplainDisplayCode.
inline constexpr int kExplainerOfDisplayCode = 4;

// Replaces the explanation by that of the explainer of the instrument with this 编号: "未编写" for number 9,
// nothing for a number without one. Errors of the explainers.
void ExplainCommCode(const Text& meterCode, const Text& code, Text& explanation);

}  // namespace commtest
