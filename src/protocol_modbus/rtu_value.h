#pragma once

#include "runtime/text.h"

namespace commtest {

struct InstrumentInUse;

// An RTU instrument has one number format (session/instrument_codec.h) for all its values. Errors of the
// codecs, and of the format.

// Number text to code text.
void EncodeRtuValue(const InstrumentInUse& instrument, Text& value);

// Whether the value shown for a code is a constant: on an instrument named with "相" that of every code of
// eight characters.
bool ShowsConstant(const InstrumentInUse& instrument, const Text& code);

// Code text to number text. On an instrument named with "相" every code of eight characters reads 49.5.
void DecodeRtuValue(const InstrumentInUse& instrument, Text& value);

}  // namespace commtest
