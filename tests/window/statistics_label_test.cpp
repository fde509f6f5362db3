#include "window/statistics_label.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPainter>
#include <QTest>

#include "session/records.h"
#include "session/reply_routing.h"
#include "window/paint_watch.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

struct Counters {
    std::int32_t sent = 0;
    std::int32_t incomplete = 0;
    std::int32_t checkErrors = 0;
    std::int32_t missing = 0;
};

void ShowCounters(ViewBench& bench, const Counters& counters) {
    MainForm& form = bench.Form();
    form.SendCount = counters.sent;
    form.IncompleteCount = counters.incomplete;
    form.CheckErrorCount = counters.checkErrors;
    form.NoReplyCount = counters.missing;
    ShowStatistics(form);
    bench.binder.Look();
}

class StatisticsLabelTest : public ::testing::Test {
  protected:
    ViewBench bench;
    StatisticsLabel label{bench.binder, bench.theme, 0, nullptr};

    StatisticsLabelTest() { label.resize(500, 24); }

    void Show(const Counters& counters) { ShowCounters(bench, counters); }

    void PaintStrokesOfSeveralPixels() {
        QFont font = label.font();
        font.setPixelSize(40);
        label.setFont(font);
        label.resize(2000, 60);
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

TEST_F(StatisticsLabelTest, TabulatorPassesItWhileItSaysNothing) {
    EXPECT_EQ(label.focusPolicy(), Qt::NoFocus);
    Show({12, 0, 0, 0});
    EXPECT_EQ(label.focusPolicy(), Qt::TabFocus);
}

TEST_F(StatisticsLabelTest, PlainTextIsItsAccessibleName) {
    Show({.sent = 4, .checkErrors = 1});
    EXPECT_EQ(label.accessibleName().toStdString(),
              "数据不完整 0 次;校验出错 1 次;无应答 0 次; 错误率 25.00 %");
    EXPECT_EQ(label.toolTip().toStdString(), "双击则重新记数");
}

TEST_F(StatisticsLabelTest, FailureIsPaintedInTheWarningColour) {
    PaintStrokesOfSeveralPixels();
    Show({.sent = 4});
    EXPECT_TRUE(Paints("#4F5F69"));
    EXPECT_TRUE(Paints("#17232B"));
    EXPECT_FALSE(Paints("#B42318"));
    Show({.sent = 4, .checkErrors = 1});
    EXPECT_TRUE(Paints("#B42318"));
    bench.theme.Use(Theme::Choice::Dark);
    EXPECT_TRUE(Paints("#FF9A92"));
    EXPECT_FALSE(Paints("#B42318"));
}

TEST_F(StatisticsLabelTest, ColourStaysWithTheTextWhenTheCountersAreCleared) {
    PaintStrokesOfSeveralPixels();
    Show({.sent = 4, .checkErrors = 1});
    ConCommMessage_DblClick(bench.Form());
    bench.theme.Use(Theme::Choice::Light);
    bench.binder.Look();
    EXPECT_TRUE(Paints("#B42318"));
    Show({});
    EXPECT_FALSE(Paints("#B42318"));
}

TEST_F(StatisticsLabelTest, TakesTheWidthOfItsWidestText) {
    Show({.sent = 10, .missing = 10});
    const int width = label.sizeHint().width();
    Show({.sent = 1});
    EXPECT_EQ(label.sizeHint().width(), width);
    Show({.sent = 1000, .missing = 1000});
    EXPECT_GT(label.sizeHint().width(), width);
}

TEST_F(StatisticsLabelTest, WordsThatDoNotFitEndTheLine) {
    PaintStrokesOfSeveralPixels();
    Show({.sent = 4});
    ASSERT_TRUE(Paints("#17232B"));  // the first number stands behind 200 pixels of words
    for (int width = 160; width < 200; width += 4) {
        label.resize(width, 60);
        EXPECT_FALSE(Paints("#17232B")) << width;
    }
}

// What is painted in the room that a label asks for is what is painted in any room.
TEST(StatisticsLabels, PaintEachTextWhole) {
    for (const Counters& counters :
         {Counters{0, 0, 0, 0}, Counters{9, 0, 0, 0}, Counters{99, 1, 0, 0}, Counters{100, 0, 0, 0},
          Counters{141, 0, 0, 0}, Counters{141, 10, 7, 44}, Counters{1000, 0, 0, 1111},
          Counters{99999, 12345, 678, 90}, Counters{2147483647, 7158278, 7158278, 7158278}}) {
        for (int index = 0; index < 3; ++index) {
            ViewBench bench;
            ShowCounters(bench, counters);
            StatisticsLabel label(bench.binder, bench.theme, index, nullptr);
            const QSize asked = label.sizeHint();
            label.resize(asked);
            const QImage inItsRoom = label.grab().toImage();
            label.resize(asked.width() + 200, asked.height());
            const QImage inAnyRoom = label.grab().toImage();
            QImage widened(inAnyRoom.size(), inAnyRoom.format());
            widened.fill(inAnyRoom.pixelColor(inAnyRoom.width() - 1, 0));
            QPainter(&widened).drawImage(0, 0, inItsRoom);
            EXPECT_EQ(inAnyRoom, widened) << label.accessibleName().toStdString();
        }
    }
}

TEST(StatisticsLine, NumberThatChangesIsPaintedFromThereOnAndNothingBehindIt) {
    ViewBench bench;
    ShowCounters(bench, {.sent = 15});
    StatisticsLine line(bench.binder, bench.theme, nullptr);
    line.resize(700, 25);
    line.show();
    PaintWhatIsDue(line);
    const StatisticsLabel& total = *line.findChildren<StatisticsLabel*>()[0];
    const PaintWatch watch(*line.findChildren<StatisticsLabel*>()[0]);
    const PaintWatch behind(line);
    ShowCounters(bench, {.sent = 16});
    PaintWhatIsDue(line);
    const int words = QFontMetrics(total.font()).horizontalAdvance("总计通讯: ");
    EXPECT_GE(watch.Painted().boundingRect().left(), words);
    EXPECT_EQ(watch.Painted().boundingRect().right(), total.rect().right());
    EXPECT_TRUE(behind.Painted().isEmpty());
    EXPECT_EQ(OnTheScreen(line), PaintedAnew(line));
    ShowCounters(bench, {.sent = 1000});
    PaintWhatIsDue(line);
    EXPECT_EQ(OnTheScreen(line), PaintedAnew(line)) << "with a longer number";
}

TEST_F(StatisticsLabelTest, DoubleClickOfTheLeftButtonAndEnterAreToldOf) {
    int clicks = 0;
    QObject::connect(&label, &StatisticsLabel::DoubleClicked, [&clicks] { ++clicks; });
    QTest::mouseClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseDClick(&label, Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks, 0);
    QTest::mouseDClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&label, Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
}

TEST(StatisticsLine, ShowsTheTotalThenTheConclusion) {
    ViewBench bench;
    ShowCounters(bench, {.sent = 5});
    StatisticsLine line(bench.binder, bench.theme, nullptr);
    line.resize(700, 25);
    line.show();
    EXPECT_EQ(line.height(), 25);
    const auto labels = line.findChildren<StatisticsLabel*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->accessibleName().toStdString(), "总计通讯: 5 次");
    EXPECT_EQ(labels[1]->accessibleName().toStdString(),
              "数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %");
    const auto* caption = line.findChild<QLabel*>();
    EXPECT_EQ(caption->text().toStdString(), "通讯结论");
    EXPECT_EQ(caption->x() - labels[0]->geometry().right() - 1, 18);
    EXPECT_EQ(labels[1]->x() - caption->geometry().right() - 1, 2);
}

}  // namespace
}  // namespace commtest::testing
