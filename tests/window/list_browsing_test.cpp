#include "window/list_browsing.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QTest>

#include "window/bindings.h"
#include "window/sent_frames.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;

class ListBrowsingTest : public ::testing::Test {
  protected:
    ViewBench bench;
    ListControl list;
    QComboBox box;
    int clicks = 0;

    ListBrowsingTest() {
        for (const TextView name : {u"甲", u"乙", u"Beta", u"丁"}) list.Add(Text(name));
        list.Set(u"甲");
        list.Click = [this] { ++clicks; };
        Bind(bench.binder, list, box);
        BrowseBeforeChoosing(box);
        box.show();
        (void)QTest::qWaitForWindowActive(&box);
        box.setFocus();
    }

    std::string Chosen() const { return ToUtf8(list.Value()); }
};

TEST_F(ListBrowsingTest, ArrowsBrowseAndEnterChooses) {
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_TRUE(box.view()->isVisible());
    QTest::keyClick(box.view(), Qt::Key_Down);
    EXPECT_EQ(Chosen(), "甲");
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(Chosen(), "Beta");
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(box.view()->isVisible());
}

TEST_F(ListBrowsingTest, EscapeLeavesWhatWasChosen) {
    QTest::keyClick(&box, Qt::Key_End);
    EXPECT_EQ(box.view()->currentIndex().row(), 3);
    QTest::keyClick(box.view(), Qt::Key_Escape);
    EXPECT_EQ(Chosen(), "甲");
    EXPECT_EQ(box.currentText().toStdString(), "甲");
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListBrowsingTest, LettersFindAnEntryAndDoNotChooseIt) {
    QTest::keyClick(&box, 'b');
    EXPECT_TRUE(box.view()->isVisible());
    EXPECT_EQ(box.view()->currentIndex().row(), 2);
    EXPECT_EQ(Chosen(), "甲");
    box.hidePopup();
}

class SentFramesTest : public ::testing::Test {
  protected:
    ViewBench bench;
    ListControl& sent = bench.Form().SentFrames();
    SentFrames frames{bench.binder, nullptr};

    SentFramesTest() {
        sent.Add(u" 40 30 31 52 44 31 37 0D");
        sent.Add(u" 40 30 31 52 52 30 31 0D");
        bench.binder.Look();
        frames.show();
        (void)QTest::qWaitForWindowActive(&frames);
        frames.setFocus();
    }
};

TEST_F(SentFramesTest, PressOnTheFrameOpensTheList) {
    QTest::mouseClick(frames.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(frames.view()->isVisible());
    frames.hidePopup();
}

TEST_F(SentFramesTest, RowOfTheListIsShownInBothNotations) {
    EXPECT_EQ(frames.Hint().toStdString(), "");
    QTest::keyClick(&frames, Qt::Key_Down);
    QTest::keyClick(frames.view(), Qt::Key_End);
    EXPECT_EQ(frames.Hint().toStdString(), "ASCii码 @01RR01\\0D<br>十六进制 40 30 31 52 52 30 31 0D");
    QTest::keyClick(frames.view(), Qt::Key_Up);
    EXPECT_EQ(frames.Hint().toStdString(), "ASCii码 @01RD17\\0D<br>十六进制 40 30 31 52 44 31 37 0D");
    QTest::keyClick(frames.view(), Qt::Key_Escape);
    EXPECT_EQ(frames.Hint().toStdString(), "");
}

TEST_F(SentFramesTest, ChosenEntryIsShownInBothNotationsAndNotSent) {
    QTest::keyClick(&frames, Qt::Key_Down);
    QTest::keyClick(frames.view(), Qt::Key_End);
    QTest::keyClick(frames.view(), Qt::Key_Return);
    EXPECT_EQ(frames.Hint().toStdString(), "ASCii码 @01RR01\\0D<br>十六进制 40 30 31 52 52 30 31 0D");
    bench.session.line.RunUntil(2000);
    EXPECT_TRUE(bench.session.line.Frames().empty());
    EXPECT_FALSE(bench.Form().IsRunning());
}

}  // namespace
}  // namespace commtest::testing
