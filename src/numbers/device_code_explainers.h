#pragma once

#include "runtime/text.h"

// The codes that only one kind of instrument has. The explanation is replaced.
namespace commtest {

// 电量集中显示仪: plain hexadecimal of any length.
void ExplainDisplayCode(const Text& code, Text& explanation);

// HCT615D: decimal digits as they stand.
void ExplainFlowMeterBcd(const Text& code, Text& explanation);

// TQ flow meters: the text says that it is not written yet, whatever the code.
void ExplainTqCode(const Text& code, Text& explanation);

}  // namespace commtest
