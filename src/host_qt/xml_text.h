#pragma once

#include <QString>

#include "runtime/text.h"

namespace commtest {

// A text as XML can hold it: "?" for each character that it cannot.
QString XmlText(TextView text);

}  // namespace commtest
