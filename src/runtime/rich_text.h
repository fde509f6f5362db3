#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace commtest {

// A rich-text document of this text, in one fixed-width font. It is plain ASCII: other characters are written
// by their Unicode number, which any word processor reads. A line end (CR LF, or one of them alone) becomes a
// paragraph; a control character that a document cannot hold becomes its picture (U+2400 and on).
std::string RichTextOf(TextView text);

// Whether the bytes of a file are a rich-text document.
bool IsRichText(std::string_view bytes);

// The text of a rich-text document, paragraphs ended by CR LF; characters that are not written by their
// Unicode number are of code page 936. Fonts, colours, styles, pictures and what the document says about
// itself are left out. Of a broken document what can be read: nothing raises an error.
Text PlainTextOf(std::string_view richText);

}  // namespace commtest
