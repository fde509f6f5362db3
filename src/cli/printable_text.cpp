#include "cli/printable_text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

struct Range {
    char16_t first;
    char16_t last;
};

// Control characters, invisible marks, separators of lines, changes of direction.
constexpr std::array<Range, 5> kControls = {
    {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}}};
constexpr char16_t kByteOrderMark = 0xFEFF;

bool IsPlainAscii(char16_t unit) { return unit >= u' ' && unit <= u'~'; }

Text Escaped(char16_t unit) {
    Text digits = HexOf(static_cast<double>(unit));
    if (Len(digits) < 2) FitTextWidth(digits, 2);
    return u"\\" + digits;
}

// A control character counts, although it is not shown as it is: a text of nothing else has a length.
int CellsOf(char32_t code) {
    if (code <= 0xFFFF && IsControl(static_cast<char16_t>(code))) return 1;
    return utf8proc_charwidth(static_cast<utf8proc_int32_t>(code));
}

// Hands over the units and the cells of one character after the other until one is not taken.
template <typename Takes>
void WalkCharacters(TextView text, Takes takes) {
    const std::string utf8 = ToUtf8(text);
    const auto* rest = reinterpret_cast<const utf8proc_uint8_t*>(utf8.data());
    const auto* const end = rest + utf8.size();
    while (rest != end) {
        utf8proc_int32_t code = 0;
        rest += utf8proc_iterate(rest, end - rest, &code);
        const std::size_t units = code > 0xFFFF ? 2 : 1;
        if (!takes(units, CellsOf(static_cast<char32_t>(code)))) return;
    }
}

}  // namespace

bool IsControl(char16_t unit) {
    if (IsPlainAscii(unit) || unit > kControls.back().last) return unit == kByteOrderMark;
    return std::any_of(kControls.begin(), kControls.end(),
                       [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

std::string PrintableText(TextView text) {
    constexpr std::size_t kMostBytes = 3;  // of a unit
    std::string printable;
    printable.reserve(kMostBytes * text.size());
    while (!text.empty()) {
        const auto control = std::find_if(
            text.begin(), text.end(), [](char16_t unit) { return !IsPlainAscii(unit) && IsControl(unit); });
        const auto plain = static_cast<std::size_t>(control - text.begin());
        AppendUtf8(printable, text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) break;
        const bool isLineEnd = text.starts_with(kLineEnd);
        printable += isLineEnd ? "\n" : ToUtf8(Escaped(text.front()));
        text.remove_prefix(isLineEnd ? kLineEnd.size() : 1);
    }
    return printable;
}

std::string PrintableLine(TextView text) {
    Text line;
    for (const char16_t unit : text) {
        const bool isLineEnd = unit == u'\r' || unit == u'\n';
        if (!isLineEnd) {
            line += unit;
        } else if (!line.ends_with(u' ')) {
            line += u' ';
        }
    }
    return PrintableText(Trim(line));
}

int DisplayWidth(TextView text) {
    int width = 0;
    WalkCharacters(text, [&width](std::size_t, int cells) {
        width += cells;
        return true;
    });
    return width;
}

TextView CutToWidth(TextView text, int width) {
    std::size_t length = 0;
    WalkCharacters(text, [&](std::size_t units, int cells) {
        if (cells > width) return false;
        width -= cells;
        length += units;
        return true;
    });
    return text.substr(0, length);
}

Text ShortenedToWidth(TextView text, int width) {
    if (DisplayWidth(text) <= width) return Text(text);
    return Text(CutToWidth(text, width - 1)) + u'…';
}

}  // namespace commtest
