#include "window/status_panels.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QLabel>
#include <QTest>

#include "host/settings_store.h"
#include "host/store.h"
#include "window/note_bar.h"
#include "window/paint_watch.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;

class StatusPanelsTest : public ::testing::Test {
  protected:
    ViewBench bench;
    NoteBar& notes = *new NoteBar(bench.theme);  // of the panels
    StatusPanels panels{bench.binder, notes, nullptr};

    StatusPanelsTest() {
        panels.resize(1000, 24);
        panels.show();
    }

    MainForm& Form() { return bench.Form(); }
    QLabel* Maker() { return panels.findChild<QLabel*>("makerPanel"); }
    QFrame* Dot() { return panels.findChild<QFrame*>("comShow"); }

    QLabel& Label(const QString& text) {
        for (QLabel* label : panels.findChildren<QLabel*>()) {
            if (label->text() == text) return *label;
        }
        throw std::runtime_error("no such label");
    }

    bool Shows(const QString& text) {
        for (const QLabel* label : panels.findChildren<QLabel*>()) {
            if (label->text() == text && label->isVisible()) return true;
        }
        return false;
    }
};

TEST_F(StatusPanelsTest, ThreePanelsAreShown) {
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司");
    EXPECT_TRUE(Shows("    欢迎使用本软件"));
    Form().StatusBar1[2].Set(u"2024年05月06日  12:00:00");
    bench.binder.Look();
    EXPECT_TRUE(Shows("2024年05月06日  12:00:00"));
}

TEST_F(StatusPanelsTest, ClockThatTicksIsPaintedAlone) {
    Form().StatusBar1[2].Set(u"2024年05月06日  12:00:00");
    bench.binder.Look();
    PaintWhatIsDue(panels);
    const PaintWatch watch(panels);
    Form().StatusBar1[2].Set(u"2024年05月06日  12:00:01");
    bench.binder.Look();
    PaintWhatIsDue(panels);
    const QLabel& clock = Label(u"2024年05月06日  12:00:01"_s);
    EXPECT_FALSE(watch.Painted().isEmpty());
    EXPECT_TRUE((watch.Painted() - clock.geometry()).isEmpty());
}

TEST_F(StatusPanelsTest, LongerTextOfThePortIsLaidOutAndPainted) {
    PaintWhatIsDue(panels);
    Form().StatusBar1[1].Set(u"COM1 已打开 9600,N,8,1，一段长的文字");
    bench.binder.Look();
    PaintWhatIsDue(panels);
    EXPECT_EQ(OnTheScreen(panels), PaintedAnew(panels));
}

TEST_F(StatusPanelsTest, CatalogueThatIsNotOpenIsNotNamed) {
    Form().StatusBar1[0].Set(u"衡岫仪器公司    本地数据库    本地数据库");
    Form().outside.store.Close();
    bench.binder.Look();
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司    没有目录");
}

TEST_F(StatusPanelsTest, ReasonWhyTheServerWasNotTakenStandsInTheToolTipAlone) {
    EXPECT_EQ(Maker()->toolTip().toStdString(), "双击第一栏框,可以修改数据库的连接方式");
    Form().ServerProblem = u"数据库错误: 服务器没有应答";
    bench.binder.Look();
    EXPECT_EQ(Maker()->toolTip().toStdString(),
              "双击第一栏框,可以修改数据库的连接方式\n服务器上的目录打不开：数据库错误: 服务器没有应答");
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司");
}

TEST_F(StatusPanelsTest, CatalogueIsNamedOnce) {
    Form().StatusBar1[0].Set(u"衡岫仪器公司    本地数据库    本地数据库");
    bench.binder.Look();
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司    本地数据库");
    Form().StatusBar1[0].Set(u"衡岫仪器公司    网络数据库    本地数据库");
    bench.binder.Look();
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司    网络数据库    本地数据库");
}

TEST_F(StatusPanelsTest, LongWordLeavesPortAndClockTheirWidths) {
    Form().StatusBar1[1].Set(u"串口设置:  COM1  9600,N,8,1   状态:  关闭");
    Form().StatusBar1[2].Set(u"2024年05月06日  12:00:00");
    bench.binder.Look();
    for (const int width : {1366, 880}) {
        panels.resize(width, 24);
        QApplication::processEvents();
        notes.Say(QString("很长的提示").repeated(60));
        QApplication::processEvents();
        for (const char* text : {"串口设置:  COM1  9600,N,8,1   状态:  关闭", "2024年05月06日  12:00:00"}) {
            const QLabel& label = Label(text);
            EXPECT_GE(label.width(), label.sizeHint().width()) << text << " at " << width;
            const QRect place(label.mapTo(&panels, QPoint(0, 0)), label.size());
            EXPECT_FALSE(place.intersects(notes.geometry())) << text << " at " << width;
            EXPECT_LE(place.right(), width) << text;
        }
    }
}

TEST_F(StatusPanelsTest, DotBlinksOnlyWhileTheSessionRuns) {
    EXPECT_FALSE(Dot()->isVisible());
    Form().SetRunning(true);
    bench.binder.Look();
    EXPECT_TRUE(Dot()->isVisible());
    Form().ComShow.SetVisible(false);
    bench.binder.Look();
    EXPECT_FALSE(Dot()->isVisible());
}

TEST_F(StatusPanelsTest, PassingWordStandsForAWhileAndCanBeSaidAgain) {
    Form().StatusNote.Set({.kind = Notice::Kind::EndOfFile, .detail = u"ErrorComm.ini"});
    bench.binder.Look();
    EXPECT_EQ(notes.Text().toStdString(), "ErrorComm.ini 较长，只显示最后 1 MB");
    QTest::mousePress(&notes, Qt::LeftButton);
    EXPECT_EQ(Form().StatusNote.Value().kind, Notice::Kind::None);
    Form().StatusNote.Set({.kind = Notice::Kind::EndOfFile, .detail = u"ErrorComm.ini"});
    bench.binder.Look();
    EXPECT_EQ(notes.Text().toStdString(), "ErrorComm.ini 较长，只显示最后 1 MB");
}

TEST_F(StatusPanelsTest, FirstPanelHasItsTip) {
    EXPECT_EQ(Maker()->toolTip().toStdString(), "双击第一栏框,可以修改数据库的连接方式");
}

TEST_F(StatusPanelsTest, DoubleClickOnTheFirstPanelOffersTheOtherCatalogue) {
    Form().outside.settings.Save(u"SoftSeting", u"1000 1 16 0 0 1");
    QTest::mouseDClick(Maker(), Qt::LeftButton);
    ASSERT_EQ(bench.session.dialogs.Shown.size(), 1u);
    EXPECT_EQ(ToUtf8(bench.session.dialogs.Shown[0].text),
              "本软件连接的数据库是 本地数据库 ,你需要将它改为 网络数据库 吗？修改将于下次运行时生效！");
    EXPECT_EQ(Maker()->text().toStdString(), "衡岫仪器公司    网络数据库");
}

}  // namespace
}  // namespace commtest::testing
