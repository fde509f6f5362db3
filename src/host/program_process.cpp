#include "host/program_process.h"

#include <cstdio>

namespace commtest {

Text VersionText(const ProgramVersion& version) {
    char text[48];
    std::snprintf(text, sizeof text, "%d.%02d.%02d", version.major, version.minor, version.revision);
    return FromUtf8(text);
}

}  // namespace commtest
