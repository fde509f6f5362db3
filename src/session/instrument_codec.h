#pragma once

#include "runtime/text.h"

namespace commtest {

struct InstrumentInUse;

// Format numbers of the register codecs by the length column of a native instrument's row; a length without
// one gives a number that leaves a text unchanged.
int ReadFormatOfLength(TextView length);   // 1, 2, 4, 8
int WriteFormatOfLength(TextView length);  // 1, 2, 4

// The one format number of an instrument that has a single one for all its values: characters 3 and 4 of
// MeterCodeText. Error 13 if they are no number.
int FormatOfInstrument(const InstrumentInUse& instrument);

}  // namespace commtest
