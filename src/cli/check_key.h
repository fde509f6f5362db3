#pragma once

#include "session/exchange.h"

namespace commtest {

// How machines read the state of a check word.
inline TextView KeyOf(CheckWord check) {
    switch (check) {
        case CheckWord::Right: return u"right";
        case CheckWord::Wrong: return u"wrong";
        case CheckWord::None: return u"none";
        default: return u"notJudged";
    }
}

}  // namespace commtest
