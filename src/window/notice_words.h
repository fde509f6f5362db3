#pragma once

#include <QString>

#include "host/notice.h"

namespace commtest {

// How the window puts a notice: what has happened, and behind it, where there is more to say, why and what to
// do.
QString WordsOn(const Notice& notice);
QString RemedyOf(const Notice& notice);

}  // namespace commtest
