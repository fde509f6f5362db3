#pragma once

#include "window/binder.h"
#include "window/empty_state.h"
#include "window/grid_view.h"
#include "window/record_view.h"
#include "window/theme.h"

namespace commtest {

// The lists of instruments and of recordings of an open catalogue say what to do while they are empty.
struct WaysToFillCatalogue {
    std::function<void()> import;
    std::function<void()> restore;
};
void AddEmptyCatalogueState(Binder& binder, const Theme& theme, GridView& list,
                            const WaysToFillCatalogue& ways);
void AddEmptyRecordingsState(Binder& binder, const Theme& theme, GridView& list,
                             std::function<void()> import);

// The record of a session that stands still, and the explanation of a value, say how they come to be while
// they are empty; their keys and clicks stay theirs.
void AddEmptyRecordState(Binder& binder, const Theme& theme, RecordView& record);
void AddEmptyExplanationState(Binder& binder, const Theme& theme, RecordView& explanation);

// Says that the machine has no port, as long as it has none: looked up when the page is shown, and on demand.
EmptyState* MakeNoPortState(Binder& binder, const Theme& theme, QWidget* parent);

}  // namespace commtest
