#include "version/build_facts.h"

namespace commtest {

const char* VersionOfBuild() { return COMMTEST_VERSION; }

}  // namespace commtest
