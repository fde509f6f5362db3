#pragma once

#include <cstdint>

#include "runtime/hex_text.h"

namespace commtest {

class Grid;
struct Conversation;

// Walk the data digits of a reply over the grid's rows from CurrentRow, two digits for each
// byte of a row's length: column 6 takes the digits, 7 what counts of them, 8 the value, 9 the value with its
// decimals. Of a row with attribute "RW" the low byte counts, of a ratio the low byte of each word. The walk
// ends at the row that leaves so few digits that no further one can follow; CurrentRow is then the next row.
// Errors: 5 for a reply without room for data or a negative length, 13 for a length that is no number.

// Code 21: signed hexadecimal; column 5 holds the decimals, of which three at most are shown. Ends with nine
// digits left. Error 13 for decimals that are no number, 5 for negative ones.
void DecodeAsciiRows(Conversation& talk, const HexText& reply);

// Code 22: a decimal number behind two digits, the second of which holds the sign (8) and the decimals, so
// that 02001234 is 12.34 and 0A001234 -12.34. Ends with four digits left. Error 13 where the digits are no
// decimal number, as in every row of which only one byte counts.
void DecodeAsciiRowsTwo(Conversation& talk, const HexText& reply);

// Of the digits that a row takes, those that count; and the value shown for them under code 21. Errors as
// above.
Text CountingDigits(const Grid& grid, int row, const Text& digits);
Text ShownAsciiValue(const Grid& grid, int row, std::int32_t value);

}  // namespace commtest
