#include "window/error_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "session/reply_routing.h"
#include "window/empty_state.h"
#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/statistics_label.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class ErrorPageTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar notes{bench.theme};
    ErrorPage page{bench.binder, bench.theme, notes, nullptr};

    ErrorPageTest() {
        page.resize(900, 400);
        page.show();
    }

    MainForm& Form() { return bench.Form(); }
    QAbstractButton* Button(const char* caption) { return FindButton(page, caption); }
    RecordView* Errors() { return page.findChild<RecordView*>(); }

    // What stands in place of the errors; empty while they are shown.
    std::string Empty() {
        for (const QLabel* label : page.findChild<EmptyState*>()->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty()) return label->text().toStdString();
        }
        return "";
    }
    std::string ShownErrors() {
        bench.binder.Look();
        return Errors()->isVisible() ? Errors()->toPlainText().toStdString() : "";
    }
};

TEST_F(ErrorPageTest, StripShowsBothStatistics) {
    Form().SendCount = 5;
    Form().NoReplyCount = 1;
    ShowStatistics(Form());
    bench.binder.Look();
    auto* label = page.findChild<StatisticsLabel*>();
    EXPECT_EQ(label->accessibleName().toStdString(),
              "总计通讯: 5 次         数据不完整 0 次;校验出错 0 次;无应答 1 次; 错误率 20.00 %");
    EXPECT_EQ(Errors()->mapTo(&page, QPoint()).y(), 37);
}

TEST_F(ErrorPageTest, ButtonsHaveTheirTips) {
    EXPECT_EQ(Button("清除错误记录")->toolTip().toStdString(), "清除 ErrorComm.ini 文件里的记录");
    EXPECT_EQ(Button("刷新错误记录")->toolTip().toStdString(), "重新装入 ErrorComm.ini 文件里的记录");
}

TEST_F(ErrorPageTest, FileIsLoadedAgain) {
    bench.session.files.ErrorFile =
        "2009-04-12 09:21:44第 1 次, 向 甲 发送: 01   收到:\r\n\r\n仪表无应答\r\n";
    Button("刷新错误记录")->click();
    EXPECT_EQ(Errors()->toPlainText().toStdString(),
              "2009-04-12 09:21:44第 1 次, 向 甲 发送: 01   收到:\n\n仪表无应答\n");
}

TEST_F(ErrorPageTest, FileIsEmptiedAndKeptUnderAnotherName) {
    bench.session.files.ErrorFile = "2009";
    Button("刷新错误记录")->click();
    Button("清除错误记录")->click();
    EXPECT_EQ(bench.session.files.ErrorFile, "");
    EXPECT_THAT(bench.session.files.KeptErrorFiles,
                ::testing::ElementsAre(std::pair(Text(u"240506120000"), std::string("2009"))));
    EXPECT_EQ(notes.Text().toStdString(), "ErrorComm.ini 已清空，原文件存为 ErrorComm-240506120000.ini");
    EXPECT_EQ(ShownErrors(), "");
    ASSERT_EQ(bench.session.dialogs.Shown.size(), 1u);
    EXPECT_EQ(bench.session.dialogs.Shown[0].kind, ShownBox::Kind::YesNo);
    EXPECT_EQ(ToUtf8(bench.session.dialogs.Shown[0].text),
              "确定要清空 ErrorComm.ini 吗？原文件会另存在同一文件夹里，保留最近三份。");
}

TEST_F(ErrorPageTest, FileStaysWhereTheUserDoesNotAgree) {
    bench.session.files.ErrorFile = "2009";
    bench.session.dialogs.Answers = {u"no"};
    Button("清除错误记录")->click();
    EXPECT_EQ(bench.session.files.ErrorFile, "2009");
    EXPECT_TRUE(bench.session.files.KeptErrorFiles.empty());
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(ErrorPageTest, EmptyFileIsEmptiedWithoutAQuestion) {
    Button("清除错误记录")->click();
    EXPECT_TRUE(bench.session.dialogs.Shown.empty());
    EXPECT_TRUE(bench.session.files.KeptErrorFiles.empty());
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(ErrorPageTest, SaysThatTheSessionRuns) {
    Form().RichTextBox2.Replace(u"甲\r\n");
    EXPECT_EQ(ShownErrors(), "甲\n");
    bench.session.Start();
    EXPECT_EQ(ShownErrors(), "");
    EXPECT_EQ(Empty(), "通讯进行中，停止后可查看");
}

TEST_F(ErrorPageTest, SaysWhyNothingIsLogged) {
    EXPECT_EQ(Empty(), "未勾选 保存错误记录");
    Button("勾选")->click();
    EXPECT_TRUE(Form().ConAutoSave[1].Value());
    EXPECT_EQ(Empty(), "没有错误记录");
    EXPECT_FALSE(Button("勾选") != nullptr && Button("勾选")->isVisible());
}

TEST_F(ErrorPageTest, FileIsLoadedAgainBehindAStop) {
    bench.session.Start();
    EXPECT_EQ(ShownErrors(), "");
    bench.session.files.ErrorFile = "2009\r\n";
    bench.session.Stop();
    EXPECT_EQ(ShownErrors(), "2009\n");
    EXPECT_EQ(Empty(), "");
}

TEST_F(ErrorPageTest, FileOfAStopUnseenIsLoadedWhenThePageIsShown) {
    page.hide();
    bench.session.Start();
    bench.binder.Look();
    bench.session.files.ErrorFile = "2009\r\n";
    bench.session.Stop();
    bench.binder.Look();
    EXPECT_TRUE(Form().RichTextBox2.Blocks().empty());
    page.show();
    EXPECT_EQ(ShownErrors(), "2009\n");
}

TEST_F(ErrorPageTest, ButtonsRestWhileTheSessionHoldsTheFile) {
    bench.session.Start();
    bench.binder.Look();
    EXPECT_FALSE(Button("清除错误记录")->isEnabled());
    EXPECT_FALSE(Button("刷新错误记录")->isEnabled());
    bench.session.Stop();
    bench.binder.Look();
    EXPECT_TRUE(Button("清除错误记录")->isEnabled());
    EXPECT_TRUE(Button("刷新错误记录")->isEnabled());
}

TEST_F(ErrorPageTest, ClickOnTheRecordsDoesNothing) {
    Form().RichTextBox2.Replace(u"甲\r\n");
    ASSERT_EQ(ShownErrors(), "甲\n");
    QTest::mouseClick(Errors()->viewport(), Qt::LeftButton, {}, QPoint(30, 15));
    EXPECT_EQ(Form().RichTextBox2.Blocks().size(), 1u);
    EXPECT_EQ(Errors()->toPlainText().toStdString(), "甲\n");
}

}  // namespace
}  // namespace commtest::testing
