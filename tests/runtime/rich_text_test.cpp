#include "runtime/rich_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace commtest {

namespace {

// What stands between the heading and the closing brace of the document.
std::string Body(TextView text) {
    const std::string document = RichTextOf(text);
    const auto begin = document.find('\n') + 1;
    return document.substr(begin, document.size() - begin - 2);
}

TEST(RichTextOf, DocumentBeginsAndEndsAsAWordProcessorExpects) {
    EXPECT_EQ(RichTextOf(u"A"),
              "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fmodern Monospace;}}\\uc1\\f0\\fs20\nA}\n");
}

struct Case {
    const char* what;
    Text text;
    const char* body;
};

TEST(RichTextOf, TextStandsInTheBody) {
    const Case cases[] = {
        {"nothing", u"", ""},
        {"plain characters", u"@01RD17", "@01RD17"},
        {"the marks of the format", u"\\0D {x}", "\\\\0D \\{x\\}"},
        {"Chinese by number", u"第 1 次", "\\u31532? 1 \\u27425?"},
        {"a number beyond 32767 is negative", u"：", "\\u-230?"},
        {"a byte above 7F", u"\u009B\u00FF", "\\u155?\\u255?"},
        {"a pair of surrogates", u"\U00020BB7", "\\u-10174?\\u-8265?"},
        {"a tabulator", u"a\tb", "a\\tab b"},
    };
    for (const Case& row : cases) EXPECT_EQ(Body(row.text), row.body) << row.what;
}

TEST(RichTextOf, LineEndBecomesAParagraph) {
    EXPECT_EQ(Body(u"a\r\nb\r\n\r\n"), "a\\par\nb\\par\n\\par\n");
    EXPECT_EQ(Body(u"a\rb\nc"), "a\\par\nb\\par\nc");
}

TEST(RichTextOf, ControlCharacterBecomesItsPicture) {
    EXPECT_EQ(Body(Text{u'\0', u'\x1B', u'\x7F'}), "\\u9216?\\u9243?\\u9249?");
}

TEST(IsRichText, TellsByTheBeginning) {
    EXPECT_TRUE(IsRichText("{\\rtf1\\ansi x}"));
    EXPECT_TRUE(IsRichText("{\\rtf"));
    for (const char* other : {"", "{\\rt", " {\\rtf1 x}", "{rtf1 x}", "plain"}) {
        EXPECT_FALSE(IsRichText(other)) << other;
    }
}

struct Document {
    const char* what;
    std::string richText;
    std::string text;
};

void ExpectTexts(const std::vector<Document>& documents) {
    for (const Document& row : documents) {
        EXPECT_EQ(ToUtf8(PlainTextOf(row.richText)), row.text) << row.what;
    }
}

TEST(PlainTextOf, ADocumentOfOurOwnGivesItsTextBack) {
    ExpectTexts({
        {"words of the record",
         "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fmodern Monospace;}}\\uc1\\f0\\fs20\n"
         "\\u31532? 1 \\u27425?, \\{@01RD17\\\\0D\\}\\par\n\\par\na\\tab b\\u-230?\\par\n}\n",
         "第 1 次, {@01RD17\\0D}\r\n\r\na\tb：\r\n"},
        {"nothing",
         "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fmodern Monospace;}}\\uc1\\f0\\fs20\n}\n", ""},
        {"a pair of surrogates", "{\\rtf1 \\u-10174?\\u-8265?}", "\U00020BB7"},
    });
}

TEST(PlainTextOf, WordsThatSayACharacterAreThatCharacter) {
    ExpectTexts({
        {"paragraph and line", "{\\rtf1 a\\par b\\line c}", "a\r\nb\r\nc"},
        {"a paragraph by a line end behind a backslash", "{\\rtf1 a\\\r\nb\\\nc}", "a\r\nb\r\nc"},
        {"a tabulator", "{\\rtf1 a\\tab b\tc}", "a\tb\tc"},
        {"a table", "{\\rtf1\\trowd a\\cell b\\cell\\row c}", "a\tb\t\r\nc"},
        {"escaped marks", "{\\rtf1 \\\\x\\{y\\}}", "\\x{y}"},
        {"quotation marks and dashes", "{\\rtf1 \\ldblquote a\\rdblquote\\emdash\\lquote b\\rquote}",
         "“a”—‘b’"},
        {"a blank and a hyphen that hold together", "{\\rtf1 a\\~b\\_c\\-d}", "a\u00A0b-cd"},
    });
}

TEST(PlainTextOf, OneBlankBehindAWordIsPartOfIt) {
    ExpectTexts({
        {"one", "{\\rtf1\\b a\\b0 b}", "ab"},
        {"two", "{\\rtf1\\b  a\\b0  b}", " a b"},
        {"a number below zero", "{\\rtf1\\li-200 a}", "a"},
        {"a hyphen that is no number", "{\\rtf1\\b-a}", "-a"},
        {"none behind other controls", "{\\rtf1\\{ a}", "{ a"},
    });
}

TEST(PlainTextOf, LineEndsOfTheFileSayNothing) {
    ExpectTexts({{"between characters", "{\\rtf1 a\r\nb\nc\r\n}\r\n", "abc"},
                 {"inside a character", "{\\rtf1 \\'d6\r\n\\'d0}", "中"}});
}

TEST(PlainTextOf, BytesAreOfCodePage936) {
    ExpectTexts({
        {"two a character", "{\\rtf1 \\'d2\\'c7\\'b1\\'ED 1}", "仪表 1"},
        {"the second is a letter", "{\\rtf1 \\'81@}", "丂"},
        {"a single one", "{\\rtf1 \\'80\\'41}", "€A"},
        {"raw", "{\\rtf1 \xD2\xC7\xB1\xED}", "仪表"},
        {"raw ones that would also be UTF-8", "{\\rtf1 \xC4\xA3}", "模"},
        {"with a change of font between", "{\\rtf1 \\'d2\\f1\\'c7{\\b \\'b1}\\'ed}", "仪表"},
        {"beside a Unicode number", "{\\rtf1 \\'d2\\'c7\\u34920?\\'d2\\'c7}", "仪表仪"},
    });
}

TEST(PlainTextOf, FallbackOfAUnicodeNumberIsPassedOver) {
    ExpectTexts({
        {"one character where nothing is said", "{\\rtf1 \\u20013?b}", "中b"},
        {"none", "{\\rtf1\\uc0 \\u20013 ?b}", "中?b"},
        {"two bytes", "{\\rtf1\\uc2 \\u20013\\'d6\\'d0b}", "中b"},
        {"a control counts as one", "{\\rtf1\\uc2 \\u20013\\tab\\{b}", "中b"},
        {"another number is no fallback", "{\\rtf1 \\u20013\\u25991?b}", "中文b"},
        {"of the group", "{\\rtf1\\uc0{\\uc2 \\u20013??a}\\u25991 ?b}", "中a文?b"},
        {"as the group around has it", "{\\rtf1\\uc2{\\u20013??a}\\u25991??b}", "中a文b"},
        {"a group ends it", "{\\rtf1\\uc3{\\u20013?}b\\u25991?{c}}", "中b文c"},
        {"below zero is none", "{\\rtf1\\uc-1 \\u20013 b}", "中b"},
    });
}

TEST(PlainTextOf, GroupsWithoutTextAreLeftOut) {
    ExpectTexts({
        {"fonts", "{\\rtf1{\\fonttbl{\\f0 \\'cb\\'ce;}{\\f1 Arial;}}a}", "a"},
        {"colours", "{\\rtf1{\\colortbl;\\red0\\green0\\blue0;}a}", "a"},
        {"styles", "{\\rtf1{\\stylesheet{\\s0 Normal;}}a}", "a"},
        {"what it says about itself", "{\\rtf1{\\info{\\title t\\par}{\\author \\u20013?}}a}", "a"},
        {"a picture", "{\\rtf1 a{\\pict\\wmetafile8 0100}b}", "ab"},
        {"a picture in bytes", "{\\rtf1 a{\\pict\\bin4 }}{\\}b}", "ab"},
        {"what a reader may not know", "{\\rtf1{\\*\\generator x;}a{\\*\\bkmkstart {y}}b}", "ab"},
        {"but the shown half of a field", "{\\rtf1{\\field{\\*\\fldinst HYPERLINK}{\\fldrslt link}} b}",
         "link b"},
    });
}

TEST(PlainTextOf, OfABrokenDocumentGivesWhatCanBeRead) {
    ExpectTexts({
        {"nothing", "", ""},
        {"the mark alone", "{\\rtf", ""},
        {"no end", "{\\rtf1 a{\\b b", "ab"},
        {"a backslash at the end", "{\\rtf1 a\\", "a"},
        {"half a byte at the end", "{\\rtf1 a\\'d", "ad"},
        {"no hexadecimal digits", "{\\rtf1 a\\'zzb\\'4gc}", "azzb4gc"},
        {"half a character", "{\\rtf1 a\\'d6}", "a\uFFFD"},
        {"a number too long", "{\\rtf1 a\\u99999999999 b\\uc99999999999 c}", "abc"},
        {"a Unicode number that is none", "{\\rtf1 a\\u b}", "ab"},
        {"more bytes promised than there are", "{\\rtf1 a\\bin99999 b}", "a"},
        {"bytes below zero", "{\\rtf1 a\\bin-5 b}", "ab"},
        {"text behind the end", "{\\rtf1 a}b}{\\rtf1 c}", "a"},
        {"zero bytes", std::string("{\\rtf1 a\0b}\0", 12), "ab"},
        {"a brace too many before it", "}{\\rtf1 a}", ""},
    });
}

TEST(PlainTextOf, ManyOpenGroupsAreNoTrouble) {
    const std::string braces(1000000, '{');
    EXPECT_EQ(ToUtf8(PlainTextOf("{\\rtf1 " + braces + "a")), "a");
}

}  // namespace

}  // namespace commtest
