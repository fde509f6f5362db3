#pragma once

#include <functional>

#include "catalogue/parameter_list_export.h"
#include "cli/json_text.h"
#include "cli/list_output.h"
#include "cli/list_progress.h"

namespace commtest {

// What an export has written.
struct ExportedList {
    int instruments = 0;
    int parameters = 0;
    std::vector<LossyRow> lossyRows;
};

// Writes the instruments wanted, all without `wanted`, to the output and finishes it. A Problem where that
// fails or the user ends it.
ExportedList ExportList(Store& store, ListOutput& output, const std::function<bool(const Text&)>& wanted,
                        ListProgress& progress);

// One line for each row that has lost a character.
void TellLossyRows(const std::vector<LossyRow>& rows, Console& console);

void PutExport(const ExportedList& list, const ListOutput& output, JsonWriter& json);

}  // namespace commtest
