#pragma once

#include "host/store.h"

namespace commtest {

// True for a column of the catalogue that holds numbers.
bool IsNumberColumn(TextView column);

// The digits of a whole number of 32 bits; nothing for any other text.
StoreValue WholeNumberOf(const Text& text);

// A value as a column of the engine takes it. The embedded engine takes any; in a number column of a server a
// text that is no whole number of 32 bits is a null.
StoreValue ValueFor(StoreEngine engine, TextView column, const StoreValue& value);

}  // namespace commtest
