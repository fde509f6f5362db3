#include "protocol_special/row_manner.h"

#include "protocol_special/novax_requests.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"

namespace commtest {

namespace {

constexpr std::int16_t kFirstStatusRow = 6;

std::int16_t FirstNovaxRow(const Conversation&) { return kFirstNovaxRow; }
std::int16_t FirstHct615dRow(const Conversation&) { return kFirstStatusRow; }

Unreadable WhyUnreadable(const Conversation& talk, int row) {
    if (row < kFirstStatusRow) return Unreadable::Fixed;
    const bool hasValue = talk.ParameterGrid().Cell(row, column::kAttribute) != u"S";
    return hasValue ? Unreadable::No : Unreadable::NoReadAttribute;
}

int DecimalsRow(const Conversation& talk, int row) { return NamedDecimalsRow(talk.ParameterGrid(), row); }

Text ValueOfCode(const Conversation& talk, int row, const Text& code) {
    return DigitsInShownDecimals(talk, row, WholeText(HexParse(code)));
}

int FormatOf(const Conversation& talk, int) { return FormatOfInstrument(talk); }

Text CodeOnTheLine(const Conversation& talk, int row, const Text& entry) {
    return Left(NovaxCodeOf(talk, EntryInDigits(talk, row, entry)), 4);
}

}  // namespace

const RowManner kNovaxRowManner = {.firstRow = FirstNovaxRow,
                                   .whyUnreadable = WhyUnreadable,
                                   .decimalsRow = DecimalsRow,
                                   .codeOf = CodeOnTheLine,
                                   .valueOf = ValueOfCode,
                                   .withDecimals = DigitsInShownDecimals,
                                   .formatOf = FormatOf,
                                   .digitsOf = EntryInDigits};

const RowManner kHct615dRowManner = {.firstRow = FirstHct615dRow};

}  // namespace commtest
