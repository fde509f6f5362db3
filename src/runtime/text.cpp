#include "runtime/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "runtime/runtime_error.h"

namespace commtest {

namespace {

std::size_t Count(int length) {
    if (length < 0) throw RuntimeError(RuntimeError::kInvalidArgument);
    return static_cast<std::size_t>(length);
}

// Writes a character behind those in front and gives the place behind it.
char* PutUtf8(char* to, char32_t c) {
    const auto put = [&to](char32_t byte) { *to++ = static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
    return to;
}

// What a processor looks at in one go.
constexpr std::size_t kLump = 16;

// Whether so many units are a byte each.
bool IsPlainLump(const char16_t* units) {
    char16_t bits = 0;
    for (std::size_t i = 0; i < kLump; ++i) bits |= units[i];
    return bits < 0x80;
}

// Of the characters in front that are a byte each.
std::size_t PlainLength(TextView text) {
    std::size_t length = 0;
    while (length + kLump <= text.size() && IsPlainLump(text.data() + length)) length += kLump;
    while (length < text.size() && text[length] < 0x80) ++length;
    return length;
}

void AppendUtf16(Text& out, char32_t c) {
    if (c < 0x10000) {
        out += static_cast<char16_t>(c);
    } else {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

constexpr char32_t kReplacement = 0xFFFD;

// Takes one character off the front of `rest`.
char32_t TakeUtf8(std::string_view& rest) {
    const auto byteAt = [&rest](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
    const unsigned char lead = byteAt(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > rest.size()) {
        rest.remove_prefix(1);
        return kReplacement;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) {
            rest.remove_prefix(i);
            return kReplacement;
        }
        c = (c << 6) | (byteAt(i) & 0x3F);
    }
    rest.remove_prefix(length);
    const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
    return overlong || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000) ? kReplacement : c;
}

// Takes the two halves of a character off the front of `rest`, or one that stands alone.
char32_t TakeHalves(TextView& rest) {
    const char32_t high = rest.front();
    rest.remove_prefix(1);
    const bool isPaired = high < 0xDC00 && !rest.empty() && rest.front() >= 0xDC00 && rest.front() < 0xE000;
    if (!isPaired) return kReplacement;
    const char32_t low = rest.front();
    rest.remove_prefix(1);
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// The same as TakeUtf8 of UTF-16.
char32_t TakeUtf16(TextView& rest) {
    const char32_t unit = rest.front();
    if (unit >= 0xD800 && unit < 0xE000) return TakeHalves(rest);
    rest.remove_prefix(1);
    return unit;
}

}  // namespace

Text Mid(TextView text, int start) {
    if (start < 1) throw RuntimeError(RuntimeError::kInvalidArgument);
    const auto from = std::min(static_cast<std::size_t>(start) - 1, text.size());
    return Text(text.substr(from));
}

Text Mid(TextView text, int start, int length) {
    const auto count = Count(length);
    if (start < 1) throw RuntimeError(RuntimeError::kInvalidArgument);
    const auto from = std::min(static_cast<std::size_t>(start) - 1, text.size());
    return Text(text.substr(from, count));
}

Text Left(TextView text, int length) { return Text(text.substr(0, Count(length))); }

Text Right(TextView text, int length) {
    const auto count = std::min(Count(length), text.size());
    return Text(text.substr(text.size() - count));
}

int Len(TextView text) { return static_cast<int>(text.size()); }

int InStr(TextView text, TextView wanted) {
    const auto at = text.find(wanted);
    return at == TextView::npos ? 0 : static_cast<int>(at) + 1;
}

bool Contains(TextView text, TextView wanted) { return InStr(text, wanted) > 0; }

TextView Trimmed(TextView text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == TextView::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Text UCase(TextView text) {
    Text upper(text);
    for (char16_t& c : upper) {
        if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
    }
    return upper;
}

Text Before(TextView text, char16_t separator) { return Text(text.substr(0, text.find(separator))); }

Text Behind(TextView text, char16_t separator) {
    const auto at = text.find(separator);
    return at == TextView::npos ? Text() : Text(text.substr(at + 1));
}

void AppendUtf8(std::string& out, TextView text) {
    constexpr std::size_t kMostBytes = 3;  // of a unit
    const std::size_t former = out.size();
    const std::size_t plain = PlainLength(text);
    out.resize(former + plain + kMostBytes * (text.size() - plain));
    char* to = out.data() + former;
    for (const char16_t unit : text.substr(0, plain)) *to++ = static_cast<char>(unit);
    text.remove_prefix(plain);
    while (!text.empty()) {
        const char16_t unit = text.front();
        if (unit >= 0x80) {
            to = PutUtf8(to, TakeUtf16(text));
        } else if (text.size() >= kLump && IsPlainLump(text.data())) {
            for (std::size_t i = 0; i < kLump; ++i) *to++ = static_cast<char>(text[i]);
            text.remove_prefix(kLump);
        } else {
            *to++ = static_cast<char>(unit);
            text.remove_prefix(1);
        }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
}

std::string ToUtf8(TextView text) {
    std::string out;
    AppendUtf8(out, text);
    return out;
}

Text FromUtf8(std::string_view utf8) {
    Text out;
    out.reserve(utf8.size());
    while (!utf8.empty()) AppendUtf16(out, TakeUtf8(utf8));
    return out;
}

}  // namespace commtest
