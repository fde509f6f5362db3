#include "window/statistics_label.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> Parts(const QString& text) {
    std::vector<std::string> parts;
    for (const StatisticsPart& part : PartsOfStatistics(text)) {
        const char* kind = part.kind == StatisticsPart::Kind::Words    ? "words:"
                           : part.kind == StatisticsPart::Kind::Number ? "number:"
                                                                       : "failure:";
        parts.push_back(kind + part.text.toStdString());
    }
    return parts;
}

TEST(PartsOfStatistics, TotalIsANumberAndNoFailure) {
    EXPECT_THAT(Parts("总计通讯: 1286 次"), ElementsAre("words:总计通讯: ", "number:1286", "words: 次"));
}

TEST(PartsOfStatistics, CounterOfFailuresAboveZeroIsAFailure) {
    EXPECT_THAT(Parts("数据不完整 0 次;校验出错 1 次;无应答 30 次; 错误率 2.41 %"),
                ElementsAre("words:数据不完整 ", "number:0", "words: 次;校验出错 ", "failure:1",
                            "words: 次;无应答 ", "failure:30", "words: 次; 错误率 ", "failure:2.41 %"));
}

TEST(PartsOfStatistics, RateOfZeroIsNone) {
    EXPECT_THAT(Parts("错误率 0.00 %"), ElementsAre("words:错误率 ", "number:0.00 %"));
}

TEST(PartsOfStatistics, GroupedRateIsOneNumber) {
    EXPECT_THAT(Parts("错误率 1,200.00 %"), ElementsAre("words:错误率 ", "failure:1,200.00 %"));
}

TEST(PartsOfStatistics, LineWithoutARateEndsInItsWords) {
    EXPECT_THAT(Parts("无应答 0 次; 错误率 "),
                ElementsAre("words:无应答 ", "number:0", "words: 次; 错误率 "));
    EXPECT_THAT(Parts(""), IsEmpty());
}

class StatisticsLabelTest : public ::testing::Test {
  protected:
    ViewBench bench;
    StatisticsLabel label{bench.binder, bench.theme, 0, nullptr};

    StatisticsLabelTest() { label.resize(500, 24); }

    void Show(const Text& text) {
        bench.Form().ConCommMessage[0].Set(text);
        bench.binder.Look();
    }

    bool Paints(const char* colour) {
        const QImage image = label.grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(colour)) return true;
            }
        }
        return false;
    }
};

TEST_F(StatisticsLabelTest, PlainTextIsItsAccessibleName) {
    Show(u"数据不完整 0 次;校验出错 1 次");
    EXPECT_EQ(label.accessibleName().toStdString(), "数据不完整 0 次;校验出错 1 次");
    EXPECT_EQ(label.toolTip().toStdString(), "双击则重新记数");
}

TEST_F(StatisticsLabelTest, FailureIsPaintedInTheWarningColour) {
    QFont strokesOfSeveralPixels = label.font();
    strokesOfSeveralPixels.setPixelSize(40);
    label.setFont(strokesOfSeveralPixels);
    label.resize(500, 60);
    Show(u"校验出错 0 次");
    EXPECT_TRUE(Paints("#4F5F69"));
    EXPECT_TRUE(Paints("#17232B"));
    EXPECT_FALSE(Paints("#B42318"));
    Show(u"校验出错 1 次");
    EXPECT_TRUE(Paints("#B42318"));
    bench.theme.Use(Theme::Choice::Dark);
    EXPECT_TRUE(Paints("#FF9A92"));
    EXPECT_FALSE(Paints("#B42318"));
}

TEST_F(StatisticsLabelTest, TakesTheWidthOfItsWidestText) {
    Show(u"无应答 10 次");
    const int width = label.sizeHint().width();
    EXPECT_EQ(width, label.fontMetrics().horizontalAdvance("无应答 10 次"));
    Show(u"无应答 1 次");
    EXPECT_EQ(label.sizeHint().width(), width);
    Show(u"无应答 1000 次");
    EXPECT_GT(label.sizeHint().width(), width);
}

TEST_F(StatisticsLabelTest, DoubleClickStartsTheCountersAnew) {
    MainForm& form = bench.Form();
    form.SendCount = 12;
    form.IncompleteCount = form.CheckErrorCount = form.NoReplyCount = 1;
    QTest::mouseClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(form.SendCount, 12);
    QTest::mouseDClick(&label, Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_EQ(form.SendCount, 12);
    QTest::mouseDClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(form.SendCount + form.IncompleteCount + form.CheckErrorCount + form.NoReplyCount, 0);
}

TEST(StatisticsLine, ShowsTheTotalThenTheConclusion) {
    ViewBench bench;
    bench.Form().ConCommMessage[0].Set(u"无应答 0 次; 错误率 ");
    bench.Form().ConCommMessage[1].Set(u"总计通讯: 5 次");
    StatisticsLine line(bench.binder, bench.theme, nullptr);
    line.resize(700, 25);
    line.show();
    EXPECT_EQ(line.height(), 25);
    const auto labels = line.findChildren<StatisticsLabel*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->accessibleName().toStdString(), "总计通讯: 5 次");
    EXPECT_EQ(labels[1]->accessibleName().toStdString(), "无应答 0 次; 错误率 ");
    const auto* caption = line.findChild<QLabel*>();
    EXPECT_EQ(caption->text().toStdString(), "通讯结论");
    EXPECT_EQ(caption->x() - labels[0]->geometry().right() - 1, 24);
    EXPECT_EQ(labels[1]->x() - caption->geometry().right() - 1, 8);
}

}  // namespace
}  // namespace commtest::testing
