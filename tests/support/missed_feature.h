#pragma once

#include <optional>

#include "session/main_form.h"

namespace commtest::testing {

// The feature that the session says it cannot do yet; none where its note says something else.
inline std::optional<Feature> MissedFeature(const MainForm& form) {
    const Notice& notice = form.StatusNote.Value();
    if (notice.kind != Notice::Kind::NotThereYet) return std::nullopt;
    return notice.feature;
}

}  // namespace commtest::testing
