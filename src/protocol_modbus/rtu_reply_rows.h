#pragma once

#include "runtime/hex_text.h"

namespace commtest {

struct Conversation;

// Walks the data of a reply over the grid's rows from CurrentRow: raw text (column 6, of a
// read of several rows column 7), value, value with decimals. What stands behind the third byte counts as
// data, so the echo of a write lands in the grid too. The walk ends at the row that leaves fewer than three
// bytes; CurrentRow then stands behind it. An ending less than that, at the grid's last row, leaves
// CurrentRow. A value that cannot be decoded ends it with the codec's error.
void DecodeRtuRows(Conversation& talk, const HexText& reply);

}  // namespace commtest
