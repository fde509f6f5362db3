#include "runtime/rich_text.h"

#include <gtest/gtest.h>

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

}  // namespace

}  // namespace commtest
