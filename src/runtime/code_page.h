#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

// Code page 936, the code page of the instruments' world: text files and the codes of characters in frames.
namespace commtest {

// The code of a character: 0 to 255 of a single byte, above that of a double byte (first byte high). A
// character outside the code page has the code of "?".
int CharacterCode(char16_t character);

// The bytes of a text; what the code page cannot hold is written "?".
std::string ToCodePage(TextView text);

// The text of bytes; a byte that is no character becomes U+FFFD.
Text FromCodePage(std::string_view bytes);

// The mark that a file of UTF-8 may begin with.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// No character of UTF-8, nor of the code page, has a line end within it: what each line is, the file is.
bool IsUtf8(std::string_view bytes);

// The text of a file: UTF-8 (with or without its mark) where the bytes are that, else code page 936; a byte
// that is neither becomes U+FFFD.
Text FromFileBytes(std::string_view bytes);

}  // namespace commtest
