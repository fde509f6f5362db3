#include "cli/json_text.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

// {"row": 7, "usable": true, "notes": ["a", "b"], "none": []}
void PutSample(JsonWriter& json) {
    json.BeginObject();
    json.PutNumber(u"row", 7);
    json.PutKey(u"usable");
    json.PutYesNo(true);
    json.PutKey(u"notes");
    json.BeginArray();
    json.PutText(u"a");
    json.PutText(u"b");
    json.EndArray();
    json.PutKey(u"none");
    json.BeginArray();
    json.EndArray();
    json.EndObject();
}

TEST(JsonWriter, ValueInOneLineEndsInALineEnd) {
    JsonWriter json(kJsonInOneLine);
    PutSample(json);
    EXPECT_EQ(json.Take(), "{\"row\": 7, \"usable\": true, \"notes\": [\"a\", \"b\"], \"none\": []}\n");
}

TEST(JsonWriter, ValuesOneBehindTheOtherStandInALineEach) {
    JsonWriter json(kJsonInOneLine);
    for (const TextView text : {u"a", u"b"}) {
        json.BeginObject();
        json.PutText(u"text", text);
        json.EndObject();
    }
    EXPECT_EQ(json.Take(), "{\"text\": \"a\"}\n{\"text\": \"b\"}\n");
}

TEST(JsonWriter, EachDepthIsIndentedFurther) {
    JsonWriter json(kJsonInLines);
    PutSample(json);
    EXPECT_EQ(json.Take(),
              "{\n"
              "    \"row\": 7,\n"
              "    \"usable\": true,\n"
              "    \"notes\": [\n"
              "        \"a\",\n"
              "        \"b\"\n"
              "    ],\n"
              "    \"none\": [\n"
              "    ]\n"
              "}\n");
}

TEST(JsonWriter, ElementsCanBeTakenAsTheyCome) {
    JsonWriter json(kJsonLineAnElement);
    json.BeginArray();
    EXPECT_EQ(json.Take(), "[");
    json.BeginObject();
    json.PutText(u"input", u"1");
    json.PutNumber(u"length", 1);
    json.EndObject();
    EXPECT_EQ(json.Take(), "\n  {\"input\": \"1\", \"length\": 1}");
    json.PutYesNo(false);
    EXPECT_EQ(json.Take(), ",\n  false");
    json.EndArray();
    EXPECT_EQ(json.Take(), "\n]\n");
}

TEST(JsonWriter, ControlCharactersQuotesAndBackslashesAreEscaped) {
    const struct {
        Text text;
        const char* written;
    } rows[] = {
        {u"", "[\"\"]\n"},
        {u"温度 \"a\\b\"", "[\"温度 \\\"a\\\\b\\\"\"]\n"},
        {u"\r\n\t\x1B\x7F\x9B\u202E", "[\"\\r\\n\\t\\u001B\\u007F\\u009B\\u202E\"]\n"},
        {u"a\U00020BB7", "[\"a\xF0\xA0\xAE\xB7\"]\n"},
    };
    for (const auto& row : rows) {
        JsonWriter json(kJsonInOneLine);
        json.BeginArray();
        json.PutText(row.text);
        json.EndArray();
        EXPECT_EQ(json.Take(), row.written);
    }
}

TEST(JsonWriter, KeyIsEscapedToo) {
    JsonWriter json(kJsonInOneLine);
    json.BeginObject();
    json.PutText(u"a\"b", u"c");
    json.EndObject();
    EXPECT_EQ(json.Take(), "{\"a\\\"b\": \"c\"}\n");
}

}  // namespace

}  // namespace commtest
