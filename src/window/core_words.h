#pragma once

#include <QString>

#include "runtime/text.h"

namespace commtest {

// What the core says of lists and recording files, in the language of the face.
QString Translated(TextView words);

}  // namespace commtest
