#pragma once

#include <cstddef>
#include <optional>

#include "runtime/text.h"
#include "tools/round_trip.h"

namespace commtest {

// Why an explanation does not lead to the result.
enum class ExplanationNote { IsOfCustomFloat, ReadsOtherwise };

// A mode of the tool window that shows another result.
struct ToolNote {
    std::size_t mode;  // of kToolModes
    Text shown;
};

// What the user of a conversion has to know of its result, as far as there is something.
struct ConversionNotes {
    std::optional<Loss> loss;
    std::optional<ExplanationNote> explanation;
    std::optional<ToolNote> tool;
};

// Of a conversion that has led from the input to the result.
ConversionNotes NotesOf(const Conversion& conversion, const Text& input, const Text& result);

}  // namespace commtest
