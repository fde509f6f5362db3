#include "host_qt/sheet_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Filled {
    bool found = false;
    std::string text;
};

// The document with the attributes of an element in the order of their names.
QString Rendered(const QDomNode& node) {
    if (node.isText()) return node.nodeValue().toHtmlEscaped();
    QStringList attributes;
    for (int i = 0; i < node.attributes().count(); ++i) {
        const QDomAttr attribute = node.attributes().item(i).toAttr();
        attributes += QStringLiteral(" %1=\"%2\"").arg(attribute.name(), attribute.value());
    }
    attributes.sort();
    QString inner;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        inner += Rendered(child);
    }
    if (node.isDocument()) return inner;
    const QString begin = u'<' + node.nodeName() + attributes.join(QString());
    return inner.isEmpty() ? begin + QStringLiteral("/>")
                           : begin + u'>' + inner + QStringLiteral("</") + node.nodeName() + u'>';
}

Filled Fill(const char* source, SheetDocumentForm form, const Text& sheet,
            const std::vector<SheetCell>& cells) {
    auto document = ParsedSheetDocument(source);
    EXPECT_TRUE(document.has_value());
    const bool found = PutIntoSheet(*document, form, sheet, cells);
    return {found, Rendered(*document).toStdString()};
}

TEST(SheetDocument, WhatIsNoXmlIsNone) { EXPECT_FALSE(ParsedSheetDocument("no document").has_value()); }

// --- Of gnumeric ---

const char* const kGnumeric =
    "<gnm:Workbook xmlns:gnm=\"http://www.gnumeric.org/v10.dtd\"><gnm:Sheets>"
    "<gnm:Sheet><gnm:Name>其他</gnm:Name><gnm:Cells/></gnm:Sheet>"
    "<gnm:Sheet><gnm:Name>参数表</gnm:Name><gnm:Names><gnm:Name><gnm:name>Print_Area</gnm:name></gnm:Name></"
    "gnm:Names>"
    "<gnm:Styles><gnm:Style Bold=\"1\"/></gnm:Styles>"
    "<gnm:Cells><gnm:Cell Row=\"0\" Col=\"0\" ValueType=\"60\">标题</gnm:Cell>"
    "<gnm:Cell Row=\"5\" Col=\"0\" ValueType=\"40\">7</gnm:Cell></gnm:Cells></gnm:Sheet>"
    "</gnm:Sheets></gnm:Workbook>";

Filled FillGnumeric(const std::vector<SheetCell>& cells, const Text& sheet = u"参数表") {
    return Fill(kGnumeric, SheetDocumentForm::Gnumeric, sheet, cells);
}

TEST(GnumericSheet, TakesTextsAsTextsWhateverTheyLookLike) {
    const Filled filled = FillGnumeric({{7, 2, u"0001"}, {7, 3, u"=1+2"}, {7, 4, u"  a<b "}});
    EXPECT_TRUE(filled.found);
    EXPECT_THAT(filled.text, HasSubstr(R"(<gnm:Cell Col="2" Row="6" ValueType="60">0001</gnm:Cell>)"));
    EXPECT_THAT(filled.text, HasSubstr(R"(<gnm:Cell Col="3" Row="6" ValueType="60">=1+2</gnm:Cell>)"));
    EXPECT_THAT(filled.text, HasSubstr(R"(<gnm:Cell Col="4" Row="6" ValueType="60">  a&lt;b </gnm:Cell>)"));
}

TEST(GnumericSheet, KeepsTheRestOfTheTemplate) {
    const Filled filled = FillGnumeric({{7, 2, u"0001"}});
    EXPECT_THAT(filled.text, HasSubstr(">标题</gnm:Cell>"));
    EXPECT_THAT(filled.text, HasSubstr(R"(<gnm:Style Bold="1"/>)"));
    EXPECT_THAT(filled.text, HasSubstr(R"(<gnm:Name>其他</gnm:Name><gnm:Cells/>)"));
}

TEST(GnumericSheet, CellThatStandsThereIsReplacedAndAnEmptyTextEmptiesIt) {
    EXPECT_THAT(FillGnumeric({{6, 0, u"001"}}).text, Not(HasSubstr(">7</gnm:Cell>")));
    EXPECT_THAT(FillGnumeric({{6, 0, u""}}).text, Not(HasSubstr("Row=\"5\"")));
}

TEST(GnumericSheet, CharactersThatXmlCannotHoldBecomeQuestionMarks) {
    EXPECT_THAT(FillGnumeric({{7, 0, Text(u"a\u0001b") + Text(1, char16_t{0xD800}) + u"c\uFFFF"}}).text,
                HasSubstr(">a?b?c?</gnm:Cell>"));
    EXPECT_THAT(FillGnumeric({{7, 0, u"\U0001F600\t\n"}}).text, HasSubstr(">\U0001F600\t\n</gnm:Cell>"));
}

TEST(GnumericSheet, SheetThatIsNotThereIsFoundMissing) {
    EXPECT_FALSE(FillGnumeric({{7, 2, u"0001"}}, u"参数").found);
    EXPECT_FALSE(FillGnumeric({{7, 2, u"0001"}}, u"Print_Area").found);
}

// --- Of LibreOffice ---

const char* const kFlatOds =
    "<office:document><office:body><office:spreadsheet>"
    "<table:table table:name=\"其他\"><table:table-row/></table:table>"
    "<table:table table:name=\"参数表\"><table:table-header-rows>"
    "<table:table-row table:style-name=\"ro1\" table:number-rows-repeated=\"3\">"
    "<table:table-cell table:style-name=\"ce1\" table:number-columns-repeated=\"3\"/></table:table-row>"
    "</table:table-header-rows>"
    "<table:table-row table:style-name=\"ro2\"><table:table-cell table:style-name=\"ce2\" "
    "office:value-type=\"float\" office:value=\"7\"><text:p>7</text:p></table:table-cell></table:table-row>"
    "<table:table-row table:style-name=\"ro3\" table:number-rows-repeated=\"1000\">"
    "<table:table-cell table:style-name=\"ce3\" table:number-columns-repeated=\"256\"/></table:table-row>"
    "</table:table></office:spreadsheet></office:body></office:document>";

Filled FillFlatOds(const std::vector<SheetCell>& cells, const Text& sheet = u"参数表") {
    return Fill(kFlatOds, SheetDocumentForm::FlatOds, sheet, cells);
}

TEST(FlatOdsSheet, SplitsRowsAndCellsThatStandForSeveral) {
    const Filled filled = FillFlatOds({{2, 1, u"0001"}});
    EXPECT_TRUE(filled.found);
    EXPECT_THAT(
        filled.text,
        HasSubstr(
            R"(<table:table-row table:style-name="ro1">)"
            R"(<table:table-cell table:number-columns-repeated="3" table:style-name="ce1"/></table:table-row>)"
            R"(<table:table-row table:style-name="ro1"><table:table-cell table:style-name="ce1"/>)"
            R"(<table:table-cell calcext:value-type="string" office:value-type="string" )"
            R"(table:style-name="ce1"><text:p>0001</text:p></table:table-cell>)"
            R"(<table:table-cell table:style-name="ce1"/></table:table-row>)"
            R"(<table:table-row table:style-name="ro1">)"));
}

TEST(FlatOdsSheet, RowsFollowingEachOtherLeaveTheRest) {
    const Filled filled = FillFlatOds({{5, 0, u"001"}, {5, 1, u"甲"}, {6, 0, u"002"}});
    EXPECT_THAT(filled.text, HasSubstr("<text:p>001</text:p></table:table-cell><table:table-cell "));
    EXPECT_THAT(filled.text, HasSubstr(R"(table:number-columns-repeated="254")"));
    EXPECT_THAT(filled.text, HasSubstr(R"(table:number-columns-repeated="255")"));
    EXPECT_THAT(filled.text, HasSubstr(R"(<table:table-row table:number-rows-repeated="998" )"));
}

TEST(FlatOdsSheet, NumberBecomesAText) {
    const Filled filled = FillFlatOds({{4, 0, u"0001"}});
    EXPECT_THAT(filled.text, Not(HasSubstr("office:value=")));
    EXPECT_THAT(filled.text, Not(HasSubstr("float")));
    EXPECT_THAT(filled.text, HasSubstr("<text:p>0001</text:p>"));
}

TEST(FlatOdsSheet, EveryBlankIsKept) {
    EXPECT_THAT(FillFlatOds({{4, 0, u"协议:  TQ"}}).text,
                HasSubstr("<text:p>协议:<text:s/><text:s/>TQ</text:p>"));
}

TEST(FlatOdsSheet, LinesAreParagraphs) {
    EXPECT_THAT(FillFlatOds({{4, 0, u"甲\n乙"}}).text, HasSubstr("<text:p>甲</text:p><text:p>乙</text:p>"));
}

TEST(FlatOdsSheet, SheetThatIsNotThereIsFoundMissing) {
    EXPECT_FALSE(FillFlatOds({{4, 0, u"001"}}, u"参数").found);
}

}  // namespace
}  // namespace commtest
