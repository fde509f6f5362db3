#include "runtime/rich_text.h"

#include <cstdint>

namespace commtest {

namespace {

constexpr std::string_view kBeginning =
    "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fmodern Monospace;}}\\uc1\\f0\\fs20\n";
constexpr std::string_view kEnd = "}\n";
constexpr std::string_view kParagraph = "\\par\n";
constexpr char16_t kPictures = 0x2400;
constexpr char16_t kDelete = 0x7F;
constexpr char16_t kPictureOfDelete = 0x2421;

// A number is signed and of 16 bits; the "?" is for a reader that does not know the word.
std::string UnicodeWord(char16_t unit) {
    return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string WordOf(char16_t unit) {
    if (unit == u'\t') return "\\tab ";
    if (unit < u' ') return UnicodeWord(static_cast<char16_t>(kPictures + unit));
    if (unit == kDelete) return UnicodeWord(kPictureOfDelete);
    if (unit > kDelete) return UnicodeWord(unit);
    const char character = static_cast<char>(unit);
    const bool isSpecial = character == '\\' || character == '{' || character == '}';
    return isSpecial ? std::string{'\\', character} : std::string{character};
}

}  // namespace

std::string RichTextOf(TextView text) {
    std::string document(kBeginning);
    while (!text.empty()) {
        const bool isLineEnd = text.front() == u'\r' || text.front() == u'\n';
        document += isLineEnd ? std::string(kParagraph) : WordOf(text.front());
        text.remove_prefix(text.starts_with(kLineEnd) ? kLineEnd.size() : 1);
    }
    document += kEnd;
    return document;
}

}  // namespace commtest
