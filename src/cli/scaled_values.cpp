#include "cli/scaled_values.h"

#include <algorithm>

#include "cli/table.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

int DecimalsRowOf(const RowManner& manner, const MainForm& form, int row) {
    return manner.decimalsRow == nullptr ? 0 : manner.decimalsRow(form, row);
}

}  // namespace

ScaledValues::RowState ScaledValues::StateOf(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return at < rows_.size() ? rows_[at] : RowState();
}

void ScaledValues::Note(const MainForm& form, const Outcome& outcome) {
    const RowManner& manner = form.ProtocolInUse().rows;
    for (const RowSpan& span : outcome.rows.Runs()) {
        rows_.resize(std::max(rows_.size(), static_cast<std::size_t>(span.last) + 1));
        for (int row = span.first; row <= span.last; ++row) {
            const int holder = DecimalsRowOf(manner, form, row);
            rows_[static_cast<std::size_t>(row)].isEarly = holder != 0 && !StateOf(holder).isRead;
        }
    }
    for (const RowSpan& span : outcome.rows.Runs()) {
        for (int row = span.first; row <= span.last; ++row)
            rows_[static_cast<std::size_t>(row)].isRead = true;
    }
}

Text ScaledValues::Of(const MainForm& form, int row) const {
    const Grid& grid = form.ParameterGrid();
    Text shown = grid.Cell(row, column::kScaledValue);
    if (!StateOf(row).isEarly) return shown;
    const RowManner& manner = form.ProtocolInUse().rows;
    if (!StateOf(DecimalsRowOf(manner, form, row)).isRead) return Text(kUndecided);
    PassOverError([&] { shown = manner.withDecimals(form, row, grid.Cell(row, column::kValue)); });
    return shown;
}

}  // namespace commtest
