#include "cli/scaled_values.h"

#include "cli/table.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

int DecimalsRowOf(const MainForm& form, int row) {
    const RowManner& rows = form.ProtocolInUse().rows;
    return rows.decimalsRow == nullptr ? 0 : rows.decimalsRow(form, row);
}

}  // namespace

void ScaledValues::NoteRow(const MainForm& form, int row) {
    const int holder = DecimalsRowOf(form, row);
    if (holder == 0 || read_.contains(holder)) {
        early_.erase(row);
    } else {
        early_.insert(row);
    }
}

void ScaledValues::Note(const MainForm& form, const Outcome& outcome) {
    for (const RowSpan& span : outcome.rows.Runs()) {
        for (int row = span.first; row <= span.last; ++row) NoteRow(form, row);
    }
    for (const RowSpan& span : outcome.rows.Runs()) {
        for (int row = span.first; row <= span.last; ++row) read_.insert(row);
    }
}

Text ScaledValues::Of(const MainForm& form, int row) const {
    const Grid& grid = form.ParameterGrid();
    Text shown = grid.Cell(row, column::kScaledValue);
    if (!early_.contains(row)) return shown;
    if (!read_.contains(DecimalsRowOf(form, row))) return Text(kUndecided);
    PassOverError(
        [&] { shown = form.ProtocolInUse().rows.withDecimals(form, row, grid.Cell(row, column::kValue)); });
    return shown;
}

}  // namespace commtest
