#include "runtime/hex_text.h"

#include <algorithm>

#include "runtime/code_page.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

void ReplaceFirst(Text& text, char16_t wanted, TextView replacement) {
    const auto at = text.find(wanted);
    if (at != Text::npos) text.replace(at, 1, replacement);
}

void ToReadable(Text& text) {
    if (text.empty()) return;
    EnsureLeadingBlank(text);
    Text readable;
    readable.reserve(text.size() / 3);
    for (std::size_t blank = 0; blank < text.size(); blank += 3) {
        const auto value = HexPairValue(TextView(text).substr(blank + 1, 2));
        if (!value) throw RuntimeError(RuntimeError::kTypeMismatch);
        readable += static_cast<char16_t>(*value);
    }
    text = std::move(readable);
    // Q1: the first line end of a frame counts as three characters from here on.
    ReplaceFirst(text, u'\n', u"\\0A");
    ReplaceFirst(text, u'\r', u"\\0D");
}

void FromReadable(Text& text) {
    HexText frame;
    frame.reserve(text.size() * 3);
    for (char16_t character : text) {
        const int code = CharacterCode(character);
        if (code > 0xFF) {  // Q2: one blank
            frame += u' ';
            frame += FittedToWidth(HexOf(code), 4);
        } else {
            AppendHexByte(frame, code);
        }
    }
    text = std::move(frame);
}

}  // namespace

void FitTextWidth(Text& text, int width) {
    const auto wanted = static_cast<std::size_t>(std::max(width, 0));
    if (text.size() > wanted) {
        text.erase(0, text.size() - wanted);
    } else {
        text.insert(0, wanted - text.size(), u'0');
    }
}

Text FittedToWidth(Text text, int width) {
    FitTextWidth(text, width);
    return text;
}

void ConvertHexText(Text& text, int mode) {
    if (mode == 0) ToReadable(text);
    if (mode == 1 || mode == 2) FromReadable(text);
}

Text ReadableOf(HexText frame) {
    ToReadable(frame);
    return frame;
}

HexText HexTextOfReadable(Text text) {
    FromReadable(text);
    return text;
}

void EnsureLeadingBlank(Text& text) {
    if (text.empty() || text.front() != u' ') text.insert(text.begin(), u' ');
}

void AppendHexByte(HexText& frame, int byte) {
    const char character = static_cast<char>(byte);
    AppendHexBytes(frame, {&character, 1});
}

void AppendHexBytes(HexText& frame, std::string_view bytes) {
    constexpr TextView kDigits = u"0123456789ABCDEF";
    const std::size_t before = frame.size();
    frame.resize(before + 3 * bytes.size());
    char16_t* place = frame.data() + before;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        *place++ = u' ';
        *place++ = kDigits[byte >> 4];
        *place++ = kDigits[byte & 0xF];
    }
}

}  // namespace commtest
