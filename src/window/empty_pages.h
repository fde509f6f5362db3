#pragma once

#include "window/binder.h"
#include "window/empty_state.h"
#include "window/grid_view.h"
#include "window/record_view.h"
#include "window/theme.h"

namespace commtest {

// The lists of instruments and of recordings of an open catalogue say what to do while they are empty.
struct WaysToFillLists {
    std::function<void()> importInstruments;
    std::function<void()> restoreInstruments;
    std::function<void()> importRecording;
};
void AddEmptyStates(Binder& binder, const Theme& theme, GridView& catalogue, GridView& recordings,
                    const WaysToFillLists& ways);

// The record of a session that stands still, and the explanation of a value, say how they come to be while
// they are empty; their keys and clicks stay theirs.
void AddEmptyRecordState(Binder& binder, const Theme& theme, RecordView& record);
void AddEmptyExplanationState(Binder& binder, const Theme& theme, RecordView& explanation);

// Says that the machine has no port, as long as it has none: looked up when the page is shown, and on demand.
EmptyState* MakeNoPortState(Binder& binder, const Theme& theme, QWidget* parent);

}  // namespace commtest
