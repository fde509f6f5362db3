#pragma once

#include <string>
#include <string_view>

namespace commtest {

// Text of the instruments' world: frames, grid cells, names. One unit a character, so that positions
// count the same everywhere.
using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr TextView kLineEnd = u"\r\n";

// The position words. Positions are 1-based. Beyond the end they clamp; a start below 1 or a negative
// length raises error 5.
Text Mid(TextView text, int start);
Text Mid(TextView text, int start, int length);
Text Left(TextView text, int length);
Text Right(TextView text, int length);
int Len(TextView text);

// Position of the first `wanted` in `text`, 0 if there is none. An empty text is contained in every text.
int InStr(TextView text, TextView wanted);
bool Contains(TextView text, TextView wanted);

// Takes the blanks (only these) off both ends.
TextView Trimmed(TextView text);
inline Text Trim(TextView text) { return Text(Trimmed(text)); }

// Upper case of the letters a to z; every other character stays.
Text UCase(TextView text);

// What stands before the first `separator`, or the whole text if there is none.
Text Before(TextView text, char16_t separator);

// What stands behind the first `separator`, or nothing if there is none.
Text Behind(TextView text, char16_t separator);

// Conversions for the edge of the program; what is ill-formed becomes U+FFFD.
std::string ToUtf8(TextView text);
void AppendUtf8(std::string& out, TextView text);
Text FromUtf8(std::string_view utf8);

}  // namespace commtest
