#pragma once

#include <QStringView>
#include <vector>

#include "runtime/text.h"

namespace commtest {

// Why a text is no frame of its family, in words.
struct FrameRefusal {
    Text reason;
};

// What stands in a frame where its check word should, and the check word. Bytes are pairs of digits with a
// blank between them, in their order on the wire.
struct CheckFinding {
    Text found;
    Text expected;

    bool IsRight() const { return found == expected; }
};

// A way to check frames. A frame of characters may end in its line end, also written \0D and \0A; one of
// bytes is given as hexadecimal digits, with or without blanks between the pairs.
struct CheckFamily {
    QStringView name;
    Text (*wordOf)(const Text& frame);             // of a frame without it; raises FrameRefusal
    CheckFinding (*findingIn)(const Text& frame);  // in a whole frame; raises FrameRefusal
};

const std::vector<CheckFamily>& CheckFamilies();

// Nothing for a name that no family has.
const CheckFamily* CheckFamilyNamed(QStringView name);

}  // namespace commtest
