#pragma once

#include "session/exchange.h"

namespace commtest {

// What the record says alike of the replies of both framings.

// The exchange's AddressText, hexadecimal, in decimal.
Text AddressInDecimal(const Exchange& exchange);

Text WordsOnWritten(const Exchange& exchange);

}  // namespace commtest
