#include "window/record_highlighter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;

class CountingHighlighter : public RecordHighlighter {
  public:
    using RecordHighlighter::RecordHighlighter;
    int lines = 0;

  protected:
    void highlightBlock(const QString& line) override {
        ++lines;
        RecordHighlighter::highlightBlock(line);
    }
};

class RecordHighlighterTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};
    QTextDocument document;
    CountingHighlighter highlighter{&document, theme};

    // Only a document that is laid out tells of its changes.
    RecordHighlighterTest() { document.documentLayout(); }

    // The stretches of a line, each behind the colour of the light theme that it has.
    std::vector<std::string> Stretches(int line) const {
        std::vector<std::string> stretches;
        const QTextBlock block = document.findBlockByNumber(line);
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            stretches.push_back(NameOf(range.format.foreground().color()) + ":" +
                                block.text().mid(range.start, range.length).toStdString());
        }
        return stretches;
    }

    static std::string NameOf(const QColor& colour) {
        if (colour == QColor("#17232B")) return "text";
        if (colour == QColor("#4F5F69")) return "text2";
        if (colour == QColor("#B42318")) return "warn";
        return colour.name().toStdString();
    }
};

TEST_F(RecordHighlighterTest, WordsOfTheRequestAreQuietAroundItsFrame) {
    document.setPlainText(
        "第 1286 次, 向 TQ智能 发送:  01 03 00 02   收到:\n01 03 02 00 F6\nCRC校验正确  成功读取");
    EXPECT_THAT(Stretches(0),
                ElementsAre("text2:第 1286 次, 向 TQ智能 发送: ", "text: 01 03 00 02", "text2:   收到:"));
    EXPECT_THAT(Stretches(1), ElementsAre("text:01 03 02 00 F6"));
    EXPECT_THAT(Stretches(2), ElementsAre("text2:CRC校验正确  成功读取"));
}

TEST_F(RecordHighlighterTest, InstrumentMayBeNamedLikeTheWords) {
    document.setPlainText("第 1 次, 向 仪表 发送: 甲 发送: 01 03   收到:");
    EXPECT_THAT(Stretches(0),
                ElementsAre("text2:第 1 次, 向 仪表 发送: 甲 发送: ", "text:01 03", "text2:   收到:"));
}

TEST_F(RecordHighlighterTest, RequestOfTheErrorFileStandsBehindATimeStamp) {
    document.setPlainText(
        "2009-04-12 09:21:44第 3 次, 向 甲 发送: 01   收到:\n\n仪表无应答        串口设置: 9600,N,8,1");
    EXPECT_THAT(Stretches(0),
                ElementsAre("text2:2009-04-12 09:21:44第 3 次, 向 甲 发送: ", "text:01", "text2:   收到:"));
    EXPECT_THAT(Stretches(2), ElementsAre("warn:仪表无应答        串口设置: 9600,N,8,1"));
}

TEST_F(RecordHighlighterTest, VerdictOfAFailureWarns) {
    for (const char* verdict :
         {"CRC校验错误  成功读取 1# 仪表的静态/动态数据",
          "仪表无应答  注意：仪表无应答或返回软件无法识别的数据",
          "数据不完整  注意：仪表无应答或返回软件无法识别的数据",
          "CRC校验正确       注意： 1# 仪表的通讯出错", "CRC校验正确  指令错误，指令不被识别！",
          "自诊断错误！", "注意：非法的参数地址！该指令无效", "注意：写入非法数值！ 该指令无效",
          "注意：读写指令中含有非法参数地址/长度超出范围", "设置错误，写入数据时CLK必须等于 8 ！",
          "仪表系统忙！", "注意:该数据没有校验码  板卡返回错误信息！"}) {
        document.setPlainText(verdict);
        EXPECT_THAT(Stretches(0), ElementsAre(std::string("warn:") + verdict));
    }
}

TEST_F(RecordHighlighterTest, OtherVerdictsAreQuiet) {
    for (const char* verdict :
         {"CRC校验正确  成功读取 1# 仪表的静态/动态数据", "CRC校验正确       修改 1# 仪表的参数",
          "通讯测试成功", "成功读取 1# 板卡的类型  单显表板卡 ",
          "仪表搜索,接收到数据,此时仪表地址: 5      波特率: 9600"}) {
        document.setPlainText(verdict);
        EXPECT_THAT(Stretches(0), ElementsAre(std::string("text2:") + verdict));
    }
}

TEST_F(RecordHighlighterTest, TextStaysAsItIs) {
    const QString record = "第 1 次, 向 甲 发送: 01   收到:\n02\nCRC校验错误  \n\n";
    document.setPlainText(record);
    EXPECT_EQ(document.toPlainText(), record);
}

TEST_F(RecordHighlighterTest, BlockOnTopColoursOnlyItself) {
    QString record;
    for (int number = 0; number < 50; ++number)
        record += "第 1 次, 向 甲 发送: 01   收到:\n02\nCRC校验正确  \n\n";
    document.setPlainText(record);
    highlighter.lines = 0;
    QTextCursor(&document).insertText("第 2 次, 向 甲 发送: 01   收到:\n02\nCRC校验正确  \n\n");
    // Its four lines, the one that they were put in front of and, as that one counts as new, the next.
    EXPECT_LE(highlighter.lines, 6);
    EXPECT_THAT(Stretches(5), ElementsAre("text:02"));
}

TEST_F(RecordHighlighterTest, FollowsTheTheme) {
    document.setPlainText("仪表无应答");
    theme.Use(Theme::Choice::Dark);
    EXPECT_THAT(Stretches(0), ElementsAre("#ff9a92:仪表无应答"));
    theme.Use(Theme::Choice::Light);
    EXPECT_THAT(Stretches(0), ElementsAre("warn:仪表无应答"));
}

}  // namespace
}  // namespace commtest::testing
