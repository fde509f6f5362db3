#include "window/guide_page.h"

#include <gtest/gtest.h>

namespace commtest::testing {
namespace {

const QString kMessages =
    "# Messages\n\n<a name=\"gone\"></a>\n## “… is gone”\n\nPlug it in, press “Continue”.\n\n"
    "<a name=\"gone-for-good\"></a>\n## “COM… is gone for good. Please\nbuy one”\n\n"
    "<a name=\"other\"></a>\n## 「没有端口」\n\n「是」\n";

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
    EXPECT_EQ(AnchorAbout(kMessages, "出错：没有端口，请检查").toStdString(), "other");
}

TEST(AnchorAbout, FewLettersTellNothing) { EXPECT_EQ(AnchorAbout(kMessages, "是").toStdString(), ""); }

TEST(AnchorAbout, WhatNoPartQuotesHasNoAnchor) {
    EXPECT_EQ(AnchorAbout(kMessages, "COM7 is going").toStdString(), "");
    EXPECT_EQ(AnchorAbout("", "COM7 is gone").toStdString(), "");
}

}  // namespace
}  // namespace commtest::testing
