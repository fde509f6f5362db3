#include "protocol_native/row_manner.h"

#include <algorithm>

#include "numbers/register_codecs.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/instrument_codec.h"

namespace commtest {

namespace {

// Row 0 holds the headings.
std::int16_t FirstRow(const Conversation& talk) { return std::max<std::int16_t>(talk.FirstDataRow, 1); }

Unreadable WhyUnreadable(const Conversation& talk, int row) {
    const Grid& grid = talk.ParameterGrid();
    if (grid.Cell(row, column::kAddress) == kCommandAddress) return Unreadable::Command;
    if (row < talk.FirstDataRow) return Unreadable::BeforeFirstRow;
    const Text& attribute = grid.Cell(row, column::kAttribute);
    const bool isRead = Contains(attribute, u"R") || Contains(attribute, u"S");
    return isRead ? Unreadable::No : Unreadable::NoReadAttribute;
}

int DecimalsRow(const Conversation& talk, int row) { return NamedDecimalsRow(talk.ParameterGrid(), row); }

int FormatOf(const Conversation& talk, int row) {
    return WriteFormatOfLength(talk.ParameterGrid().Cell(row, column::kLength));
}

Text CodeOf(const Conversation& talk, int row, const Text& entry) {
    Text code = EntryInDigits(talk, row, entry);
    ValueToCommCode(code, FormatOf(talk, row));
    return code;
}

Text ValueOf(const Conversation& talk, int row, const Text& code) {
    Text value = code;
    CommCodeToValue(value, ReadFormatOfLength(talk.ParameterGrid().Cell(row, column::kLength)));
    return DigitsInShownDecimals(talk, row, value);
}

}  // namespace

const RowManner kNativeRowManner = {.firstRow = FirstRow,
                                    .whyUnreadable = WhyUnreadable,
                                    .decimalsRow = DecimalsRow,
                                    .codeOf = CodeOf,
                                    .valueOf = ValueOf,
                                    .withDecimals = DigitsInShownDecimals,
                                    .formatOf = FormatOf,
                                    .digitsOf = EntryInDigits};

}  // namespace commtest
