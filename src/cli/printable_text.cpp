#include "cli/printable_text.h"

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

template <std::size_t N>
bool IsIn(const std::array<Range, N>& ranges, char16_t unit) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

// Control characters, invisible marks, separators of lines, changes of direction.
constexpr std::array<Range, 6> kControls = {{{0x0000, 0x001F},
                                             {0x007F, 0x009F},
                                             {0x200B, 0x200F},
                                             {0x2028, 0x202E},
                                             {0x2060, 0x206F},
                                             {0xFEFF, 0xFEFF}}};

// Blocks of East Asian characters of full width.
constexpr std::array<Range, 6> kWide = {{{0x1100, 0x115F},
                                         {0x2E80, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF01, 0xFF60}}};

Text Escaped(char16_t unit) {
    Text digits = HexOf(static_cast<double>(unit));
    if (Len(digits) < 2) FitTextWidth(digits, 2);
    return u"\\" + digits;
}

int WidthOf(char16_t unit) { return IsIn(kWide, unit) ? 2 : 1; }

}  // namespace

// Most characters of a record are plain ones.
bool IsControl(char16_t unit) { return (unit < u' ' || unit > u'~') && IsIn(kControls, unit); }

std::string PrintableText(TextView text) {
    Text printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const bool isLineEnd = text.starts_with(kLineEnd);
        const char16_t unit = text.front();
        if (isLineEnd) {
            printable += u'\n';
        } else if (IsControl(unit)) {
            printable += Escaped(unit);
        } else {
            printable += unit;
        }
        text.remove_prefix(isLineEnd ? kLineEnd.size() : 1);
    }
    return ToUtf8(printable);
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
    for (const char16_t unit : text) width += WidthOf(unit);
    return width;
}

TextView CutToWidth(TextView text, int width) {
    std::size_t length = 0;
    for (; length < text.size() && WidthOf(text[length]) <= width; ++length) width -= WidthOf(text[length]);
    return text.substr(0, length);
}

Text ShortenedToWidth(TextView text, int width) {
    if (DisplayWidth(text) <= width) return Text(text);
    return Text(CutToWidth(text, width - 1)) + u'…';
}

}  // namespace commtest
