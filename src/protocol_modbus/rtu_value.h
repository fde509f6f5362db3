#pragma once

#include "runtime/text.h"

namespace commtest {

struct InstrumentInUse;

// An RTU instrument has one number format (numbers/register_codecs.h) for all its values: characters 3 and 4
// of MeterCodeText. Errors of the codecs, and 13 if these characters are no number.

// That format.
int FormatOfInstrument(const InstrumentInUse& instrument);

// Number text to code text.
void EncodeRtuValue(const InstrumentInUse& instrument, Text& value);

// Whether the value shown for a code is a constant: on an instrument named with "相" that of every code of
// eight characters.
bool ShowsConstant(const InstrumentInUse& instrument, const Text& code);

// Code text to number text. On an instrument named with "相" every code of eight characters reads 49.5.
void DecodeRtuValue(const InstrumentInUse& instrument, Text& value);

}  // namespace commtest
