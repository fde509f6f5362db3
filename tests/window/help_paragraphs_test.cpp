#include "window/help_paragraphs.h"

#include <gtest/gtest.h>

#include "host_qt/shipped_help.h"

namespace commtest {

using Kind = HelpParagraph::Kind;

void PrintTo(const HelpParagraph& paragraph, std::ostream* out) {
    *out << static_cast<int>(paragraph.kind) << " [" << paragraph.mark.toStdString() << "] "
         << paragraph.text.toStdString() << (paragraph.isIndented ? " (indented)" : "");
}

namespace testing {
namespace {

TEST(HelpParagraphs, LineOverARuleIsAHead) {
    EXPECT_EQ(HelpParagraphsOf("CommTest 使用说明      衡岫\r\n=====\r\n\r\n一、连接\r\n-----\r\n先接线。"),
              (QList<HelpParagraph>{{Kind::Title, "CommTest 使用说明 衡岫"},
                                    {Kind::Heading, "一、连接"},
                                    {Kind::Words, "先接线。"}}));
}

TEST(HelpParagraphs, FullLineGoesOnInTheNextOne) {
    EXPECT_EQ(HelpParagraphsOf("CommTest 通过串口测试面板仪表：选好仪表和串口后循环通讯，显示每一帧\n"
                               "收发数据，把应答解析到参数表格。\n"
                               "短行\n"
                               "另一行"),
              (QList<HelpParagraph>{{Kind::Words,
                                     "CommTest 通过串口测试面板仪表：选好仪表和串口后循环通讯，显示每一帧"
                                     "收发数据，把应答解析到参数表格。"},
                                    {Kind::Words, "短行"},
                                    {Kind::Words, "另一行"}}));
}

TEST(HelpParagraphs, LatinWordsOfTwoLinesStayApart) {
    EXPECT_EQ(
        HelpParagraphsOf("A line of latin letters that is as long as a line may be here\nand goes on"),
        (QList<HelpParagraph>{
            {Kind::Words, "A line of latin letters that is as long as a line may be here and goes on"}}));
}

TEST(HelpParagraphs, NumberedLineTakesItsDeeperLinesAlong) {
    EXPECT_EQ(HelpParagraphsOf("  1  串口设置页 (Ctrl+2)：选串口号，\n     须与仪表一致。\n  2  再选名称。"),
              (QList<HelpParagraph>{{Kind::Item, "串口设置页 (Ctrl+2)：选串口号，须与仪表一致。", "1"},
                                    {Kind::Item, "再选名称。", "2"}}));
}

TEST(HelpParagraphs, TwoColumnsAreARow) {
    EXPECT_EQ(HelpParagraphsOf("  F6 / Shift+F6    下一个/上一个区域"),
              (QList<HelpParagraph>{{Kind::Row, "下一个/上一个区域", "F6 / Shift+F6"}}));
}

TEST(HelpParagraphs, CommandStandsByItself) {
    EXPECT_EQ(HelpParagraphsOf("  没有权限：\n    sudo usermod -aG dialout 用户名\n    单独一行"),
              (QList<HelpParagraph>{{Kind::Words, "没有权限："},
                                    {Kind::Code, "sudo usermod -aG dialout 用户名", {}, true},
                                    {Kind::Words, "单独一行", {}, true}}));
}

TEST(HelpParagraphs, EmptyTextHasNone) { EXPECT_TRUE(HelpParagraphsOf("\r\n\r\n").isEmpty()); }

TEST(HelpParagraphs, ShippedHelpLosesNothing) {
    const auto letters = [](QString text) {
        return text.remove(' ').remove('\n').remove('\r').remove("====").remove("----").remove('=').remove(
            '-');
    };
    const std::string_view help = ShippedHelp();
    const QString whole = QString::fromUtf8(help.data(), static_cast<qsizetype>(help.size()));
    QString shown;
    for (const HelpParagraph& paragraph : HelpParagraphsOf(whole)) shown += paragraph.mark + paragraph.text;
    EXPECT_EQ(letters(shown).toStdString(), letters(whole).toStdString());
}

}  // namespace
}  // namespace testing
}  // namespace commtest
