#include "window/guide_view.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QScrollBar>
#include <QTest>

#include "window/guide_places.h"
#include "window/guide_window.h"

namespace commtest::testing {
namespace {

const QString kChinese = ":/docs/guide/zh";
const QString kEnglish = ":/docs/guide/en";

struct GuideViewTest : ::testing::Test {
    Theme theme{Theme::Choice::Light};
    GuideView view{theme, kChinese, nullptr};

    GuideViewTest() {
        view.resize(880, 300);
        view.show();
        (void)QTest::qWaitForWindowExposed(&view);
    }

    std::string TopLine() {
        constexpr QPoint kBelowTheEdge(40, 10);
        return view.cursorForPosition(kBelowTheEdge).block().text().toStdString();
    }
};

TEST_F(GuideViewTest, PageOpensAtTheHeadingOfItsAnchor) {
    view.Open("reading.md#operation");
    EXPECT_EQ(TopLine(), "读哪些参数");
    EXPECT_EQ(view.Place().toStdString(), "reading.md#operation");
    view.Open("reading.md#grid");
    EXPECT_EQ(TopLine(), "参数表格");
    view.Open("reading.md");
    EXPECT_EQ(TopLine(), "读取");
}

TEST_F(GuideViewTest, PageThatIsNotThereGivesWayToTheFirstOne) {
    view.Open("nothing.md#there");
    EXPECT_EQ(view.Place().toStdString(), "index.md");
    view.Open({});
    EXPECT_EQ(view.Place().toStdString(), "index.md");
}

TEST_F(GuideViewTest, LinkLeadsToItsPageAndBack) {
    view.Open("instrument.md");
    view.setSource(QUrl("catalogues.md#import"));
    EXPECT_EQ(TopLine(), "导入参数表");
    view.backward();
    EXPECT_EQ(TopLine(), "选择仪表");
}

TEST_F(GuideViewTest, LinkToWhatTheProgramLacksStaysWhereItIs) {
    view.Open("server.md");
    view.setSource(QUrl("../../server.md"));
    EXPECT_EQ(TopLine(), "A catalogue on a database server");
    view.setSource(QUrl("architecture.md"));
    EXPECT_EQ(TopLine(), "A catalogue on a database server");
}

TEST_F(GuideViewTest, PictureIsNoWiderThanThePage) {
    view.Open("index.md");
    const auto picture = view.loadResource(QTextDocument::ImageResource, QUrl("../pictures/zh/polling.png"));
    EXPECT_EQ(picture.value<QImage>().deviceIndependentSize().toSize(), QSize(820, 461));
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(GuideViewTest, WordsAreFoundOnAllPagesByTurns) {
    view.Open("index.md");
    QStringList places;
    for (int turn = 0; turn < 4; ++turn) {
        EXPECT_TRUE(view.FindNext("模拟仪表在"));
        places += view.Place();
    }
    EXPECT_EQ(places, QStringList({"simulator.md", "simulator.md", "simulator.md", "simulator.md"}));
    EXPECT_EQ(view.textCursor().selectedText().toStdString(), "模拟仪表在");
    EXPECT_FALSE(view.FindNext("没有这样的话"));
    EXPECT_EQ(view.Place().toStdString(), "simulator.md");
}

TEST_F(GuideViewTest, WordsOfTheNextPageComeBehindTheLastOnesOfThis) {
    view.Open("simulator.md");
    EXPECT_TRUE(view.FindNext("伪终端"));
    EXPECT_TRUE(view.FindNext("输出结果"));
    EXPECT_EQ(view.Place().toStdString(), "tools.md");
    EXPECT_TRUE(view.FindNext("伪终端"));
    EXPECT_EQ(view.Place().toStdString(), "simulator.md");
}

TEST_F(GuideViewTest, TextCanBeSelectedByTheKeyboard) {
    view.Open("index.md");
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(view.textCursor().selectedText().toStdString(), "CommTest 使用指南");
}

TEST_F(GuideViewTest, OtherPaletteKeepsThePage) {
    view.Open("reading.md#grid");
    theme.Use(Theme::Choice::Dark);
    EXPECT_EQ(TopLine(), "参数表格");
}

TEST(GuidePlaces, LeadToHeadingsOfBothLanguages) {
    for (const QString& home : {kChinese, kEnglish}) {
        for (const QString& place : GuidePlaces()) {
            QFile page(home + '/' + place.section('#', 0, 0));
            ASSERT_TRUE(page.open(QIODevice::ReadOnly)) << place.toStdString();
            const auto anchors = GuidePageOf(QString::fromUtf8(page.readAll())).anchors;
            EXPECT_TRUE(anchors.contains(QStringList(place.section('#', 1)))) << place.toStdString();
        }
    }
}

}  // namespace
}  // namespace commtest::testing
