#include "window/guide_page.h"

#include <gtest/gtest.h>

namespace commtest::testing {
namespace {

const QString kMessages =
    "# Messages\n\n<a name=\"gone\"></a>\n\n### “… is gone”\n\nPlug it in, press “Continue”.\n\n"
    "<a name=\"gone-for-good\"></a>\n\n### “COM… is gone for good. Please\nbuy one”\n\n"
    "<a name=\"fits\"></a>\n\n### “No port fits “…””\n";
const QString kChinese =
    "# 提示\n\n<a name=\"port\"></a>\n\n### 「没有“…”端口」\n\n请按「是」。\n\n"
    "<a name=\"other\"></a>\n\n### 「没有设备」\n\n不是“没有名为的端口”。\n";

TEST(GuidePageOf, AnchorNamesTheHeadingBehindIt) {
    const GuidePage page =
        GuidePageOf("# One\n\n<a name=\"a\"></a>\n<a name=\"b\"></a>\n## Two\n\nwords\n## Three\n");
    EXPECT_EQ(page.markdown.toStdString(), "# One\n\n## Two\n\nwords\n## Three\n");
    EXPECT_EQ(page.anchors, QList<QStringList>({{}, {"a", "b"}, {}}));
}

TEST(GuidePageOf, BlockOfCodeHasNeitherHeadingsNorAnchors) {
    const QString source = "# One\n\n  ```sh\n  # remark\n<a name=\"a\"></a>\n  ```\n";
    const GuidePage page = GuidePageOf(source);
    EXPECT_EQ(page.markdown, source);
    EXPECT_EQ(page.anchors, QList<QStringList>({{}}));
}

TEST(GuidePageOf, LineOfChineseGoesOnWithoutABlank) {
    EXPECT_EQ(GuidePageOf("一行，\n   又一行\nand\n英文").markdown.toStdString(), "一行，又一行\nand\n英文");
    EXPECT_EQ(GuidePageOf("一段\n\n又一段").markdown.toStdString(), "一段\n\n又一段");
    EXPECT_EQ(GuidePageOf("# 标题\n一段").markdown.toStdString(), "# 标题\n一段");
    EXPECT_EQ(GuidePageOf("```\n一\n二\n```").markdown.toStdString(), "```\n一\n二\n```");
}

TEST(GuidePageOf, CurlyQuotationMarksBecomePlain) {
    EXPECT_EQ(GuidePageOf("press “Run”").markdown.toStdString(), "press \"Run\"");
}

TEST(AnchorAbout, EllipsisOfAQuotationStandsForAnything) {
    EXPECT_EQ(AnchorAbout(kMessages, "COM7 is gone").toStdString(), "gone");
}

TEST(AnchorAbout, PartThatQuotesMostIsFound) {
    EXPECT_EQ(AnchorAbout(kMessages, "COM7 is gone for good.\nPlease buy one").toStdString(),
              "gone-for-good");
}

TEST(AnchorAbout, PiecesOfAQuotationStandInTheirOrder) {
    EXPECT_EQ(AnchorAbout(kMessages, "is gone for good. Please buy one COM").toStdString(), "gone");
}

TEST(AnchorAbout, QuotationIsFoundInWhatIsSaidAroundIt) {
    EXPECT_EQ(AnchorAbout(kChinese, "出错：没有设备，请检查").toStdString(), "other");
}

TEST(AnchorAbout, QuotationMayHoldCurlyMarks) {
    EXPECT_EQ(AnchorAbout(kMessages, "No port fits “COM9”").toStdString(), "fits");
    EXPECT_EQ(AnchorAbout(kChinese, "没有“串口”端口").toStdString(), "port");
    EXPECT_EQ(AnchorAbout(kChinese, "没有名为的端口").toStdString(), "");
}

TEST(AnchorAbout, FewLettersTellNothing) { EXPECT_EQ(AnchorAbout(kChinese, "是").toStdString(), ""); }

TEST(AnchorAbout, WhatNoPartQuotesHasNoAnchor) {
    EXPECT_EQ(AnchorAbout(kMessages, "COM7 is going").toStdString(), "");
    EXPECT_EQ(AnchorAbout("", "COM7 is gone").toStdString(), "");
}

}  // namespace
}  // namespace commtest::testing
