#pragma once

#include <string>

#include "runtime/text.h"

namespace commtest {

// A rich-text document of this text, in one fixed-width font. It is plain ASCII: other characters are written
// by their Unicode number, which any word processor reads. A line end (CR LF, or one of them alone) becomes a
// paragraph; a control character that a document cannot hold becomes its picture (U+2400 and on).
std::string RichTextOf(TextView text);

}  // namespace commtest
