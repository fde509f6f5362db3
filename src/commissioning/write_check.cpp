#include "commissioning/write_check.h"

#include <algorithm>
#include <cmath>

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/instrument_codec.h"
#include "session/main_form.h"
#include "tools/round_trip.h"

namespace commtest {

namespace {

// A float of four bytes holds 23 bits and is shown in nine characters.
constexpr double kPrecisionOfFloat = 1e-6;

const Text& CellOf(const MainForm& form, int row, int col) { return form.ParameterGrid().Cell(row, col); }

double NumberIn(Text text) {
    std::erase(text, u',');
    return ToNumber(text);
}

std::optional<WriteObjection> ObjectionToRow(const MainForm& form, int row) {
    if (form.ProtocolInUse().buildWrite == nullptr) return WriteObjection::ProtocolWritesNothing;
    const bool isThere = row >= 1 && row <= LastRow(form.ParameterGrid());
    if (!isThere || CellOf(form, row, column::kName).empty()) return WriteObjection::NoSuchRow;
    if (!Contains(CellOf(form, row, column::kAttribute), u"W")) return WriteObjection::NoWriteAttribute;
    return std::nullopt;
}

std::optional<Text> ShownLimit(const MainForm& form, int row, const Text& limit) {
    if (Trim(limit).empty()) return std::nullopt;
    std::optional<Text> shown;
    PassOverError([&] {
        const Text withDecimals = form.ProtocolInUse().rows.withDecimals(form, row, Trim(limit));
        NumberIn(withDecimals);
        shown = withDecimals;
    });
    return shown;
}

bool LeavesLimits(const MainForm& form, int row, const Text& value, WriteCheck& check) {
    const ShownLimits limits = LimitsOf(form, row);
    const double number = ToNumber(value);
    if (limits.upper && number > NumberIn(*limits.upper)) {
        check.objection = WriteObjection::AboveLimit;
        check.limit = *limits.upper;
    } else if (limits.lower && number < NumberIn(*limits.lower)) {
        check.objection = WriteObjection::BelowLimit;
        check.limit = *limits.lower;
    }
    return check.objection.has_value();
}

bool HasValue(const MainForm& form, int row) {
    return CellOf(form, row, column::kAddress) != kCommandAddress;
}

// What a code would be read as; nothing where that cannot be told, as of a phase instrument's constant.
Text ValueOfCode(const MainForm& form, int row, const Text& code) {
    const RowManner& rows = form.ProtocolInUse().rows;
    Text value;
    PassOverError([&] { value = rows.valueOf(form, row, code); });
    return value;
}

std::optional<LossReason> ReasonOf(const MainForm& form, int row, const Text& value) {
    const RowManner& rows = form.ProtocolInUse().rows;
    if (rows.formatOf == nullptr) return std::nullopt;
    const auto loss = LossOfValue(rows.digitsOf(form, row, value), rows.formatOf(form, row));
    return loss ? loss->reason : std::nullopt;
}

}  // namespace

WriteCheck CheckWrite(const MainForm& form, int row, const Text& value) {
    WriteCheck check;
    check.objection = ObjectionToRow(form, row);
    if (check.objection) return check;
    if (!IsMet([&] { return std::isfinite(ToNumber(value)); })) {
        check.objection = WriteObjection::NoNumber;
        return check;
    }
    try {
        check.code = form.ProtocolInUse().rows.codeOf(form, row, value);
    } catch (const RuntimeError& error) {
        check.objection = WriteObjection::Uncodable;
        check.error = error.Number();
        return check;
    }
    if (!HasValue(form, row)) {
        LeavesLimits(form, row, value, check);
        return check;
    }
    const RowManner& rows = form.ProtocolInUse().rows;
    const bool isShown = rows.showsConstant == nullptr || !rows.showsConstant(form, row);
    if (isShown) check.arrives = ValueOfCode(form, row, check.code);
    check.fits = !isShown || ShowSameNumber(value, check.arrives, CellOf(form, row, column::kLength));
    if (!check.fits) PassOverError([&] { check.reason = ReasonOf(form, row, value); });
    if (!LeavesLimits(form, row, value, check) && !check.fits) check.objection = WriteObjection::DoesNotFit;
    return check;
}

bool KnowsDecimals(const MainForm& form, int row) {
    const int holder = DecimalsRowOf(form, row);
    return holder == 0 || !CellOf(form, holder, column::kValue).empty();
}

std::optional<WriteCheck> ObjectionToEntry(const MainForm& form, int row, const Text& entry) {
    WriteCheck check = CheckWrite(form, row, entry);
    if (!check.objection || *check.objection <= WriteObjection::NoWriteAttribute) return std::nullopt;
    if (*check.objection != WriteObjection::NoNumber && !KnowsDecimals(form, row)) return std::nullopt;
    return check;
}

ShownLimits LimitsOf(const MainForm& form, int row) {
    const auto index = static_cast<std::size_t>(row);
    if (row < 1 || index >= form.Limits.size() || form.ProtocolInUse().rows.withDecimals == nullptr)
        return {};
    const ParameterLimits& limits = form.Limits[index];
    return {ShownLimit(form, row, limits.lower), ShownLimit(form, row, limits.upper)};
}

int DecimalsRowOf(const MainForm& form, int row) { return form.ProtocolInUse().rows.decimalsRow(form, row); }

Unreadable WhyUnreadable(const MainForm& form, int row) {
    return form.ProtocolInUse().rows.whyUnreadable(form, row);
}

bool ShowSameNumber(const Text& one, const Text& other, const Text& length) {
    const double precision = WriteFormatOfLength(length) == WriteFormatOfLength(u"4") ? kPrecisionOfFloat : 0;
    return IsMet([&] {
        const double number = NumberIn(one);
        return std::abs(NumberIn(other) - number) <= std::abs(number) * precision;
    });
}

}  // namespace commtest
