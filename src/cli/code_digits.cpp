#include "cli/code_digits.h"

#include "numbers/register_codecs.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kConvertsNothing = 4;
constexpr int kConvertsNothingEither = 10;
constexpr std::size_t kHeadOfBcd = 2;  // sign and number of decimals; decimal digits stand behind

bool IsHexDigit(char16_t character) { return HexPairValue(Text(1, character)).has_value(); }

bool IsDecimalDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

}  // namespace

Text WhyNoCode(const Text& text, int formatNumber) {
    if (formatNumber == kConvertsNothing || formatNumber == kConvertsNothingEither) return {};
    if (text.empty()) return u"没有数字";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDecimal = formatNumber == register_format::kBcd && i >= kHeadOfBcd;
        if (isDecimal ? IsDecimalDigit(text[i]) : IsHexDigit(text[i])) continue;
        Text what = u"第 ";
        what += WholeText(static_cast<int>(i + 1));
        what += u" 个字符 \"";
        what += text[i];
        what += isDecimal ? u"\" 不是十进制数字" : u"\" 不是十六进制数字";
        return what;
    }
    return {};
}

}  // namespace commtest
