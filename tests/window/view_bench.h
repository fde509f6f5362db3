#pragma once

#include "support/native_instrument.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest::testing {

// A session on the virtual line (a native instrument is chosen, see native_instrument.h) with what every view
// needs: the binder, whose looks a test asks for by binder.Look(), and the light theme.
struct ViewBench {
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    Binder binder{session.Form()};

    explicit ViewBench(const Face& face = kChineseFace) : session(face) {}

    MainForm& Form() { return session.Form(); }
};

}  // namespace commtest::testing
