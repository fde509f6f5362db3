#pragma once

#include "host/notice.h"

namespace commtest {

// How the command line puts a notice, in one line.
Text WordsOn(const Notice& notice);

}  // namespace commtest
