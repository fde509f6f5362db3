#include "window/error_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "session/reply_routing.h"
#include "window/record_view.h"
#include "window/statistics_label.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class ErrorPageTest : public ::testing::Test {
  protected:
    ViewBench bench;
    ErrorPage page{bench.binder, bench.theme, nullptr};

    ErrorPageTest() {
        page.resize(900, 400);
        page.show();
    }

    MainForm& Form() { return bench.Form(); }
    QAbstractButton* Button(const char* caption) { return FindButton(page, caption); }
    RecordView* Errors() { return page.findChild<RecordView*>(); }
};

TEST_F(ErrorPageTest, StripShowsBothStatistics) {
    Form().SendCount = 5;
    Form().NoReplyCount = 1;
    ShowStatistics(Form());
    bench.binder.Look();
    auto* label = page.findChild<StatisticsLabel*>();
    EXPECT_EQ(label->accessibleName().toStdString(),
              "总计通讯: 5 次         数据不完整 0 次;校验出错 0 次;无应答 1 次; 错误率 20.00 %");
    EXPECT_EQ(Errors()->y(), 37);
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

TEST_F(ErrorPageTest, FileIsEmptied) {
    bench.session.files.ErrorFile = "2009";
    Button("清除错误记录")->click();
    EXPECT_EQ(bench.session.files.ErrorFile, "");
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
    bench.binder.Look();
    QTest::mouseClick(Errors()->viewport(), Qt::LeftButton, {}, QPoint(30, 15));
    EXPECT_EQ(Form().RichTextBox2.Blocks().size(), 1u);
    EXPECT_EQ(Errors()->toPlainText().toStdString(), "甲\n");
}

}  // namespace
}  // namespace commtest::testing
