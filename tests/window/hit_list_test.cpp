#include "window/hit_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "window/conversion_pane.h"
#include "window/note_bar.h"
#include "window/search_bench.h"
#include "window/search_panel.h"
#include "window/side_pane.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class HitListTest : public ::testing::Test {
  protected:
    SearchBench bench;
    QWidget window;
    NoteBar notes{bench.theme, &window};
    SearchPanel* panel = new SearchPanel(bench.binder, bench.theme, &window);
    SidePane* side = new SidePane(bench.binder, &window);
    ConversionPane* conversions = new ConversionPane(bench.binder, bench.theme, side);
    HitList* hits = new HitList(bench.binder, bench.theme, notes, panel->WayBack(), side);

    HitListTest() {
        side->Hold(*conversions);
        side->Hold(*hits);
        side->setGeometry(0, 120, 460, 200);
        window.resize(1100, 400);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        Form().FindFrame.SetVisible(true);
        Look();
    }

    MainForm& Form() { return bench.Form(); }
    void Look() { bench.binder.Look(); }
    QTableView& Table() { return *hits->findChild<QTableView*>(); }
    std::string Shown(int row, int column) {
        return Table().model()->index(row, column).data().toString().toStdString();
    }
    std::string Title() { return hits->findChild<QLabel*>()->text().toStdString(); }
    void Press(const char* caption) { FindButton(window, caption)->click(); }
    // The hit is there, and the search goes on at the last address.
    void SearchUntilTheHit() {
        Press("开始搜索");
        bench.RunUntil(2500);
    }
    void SearchToTheEnd() {
        Press("开始搜索");
        bench.RunUntil(20000);
    }
    QPoint PlaceOf(int row) { return Table().visualRect(Table().model()->index(row, 1)).center(); }
    void DoubleClick(int row) {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, PlaceOf(row));
        QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, PlaceOf(row));
    }
};

TEST_F(HitListTest, StandsInPlaceOfTheConversionsWhileThePanelStands) {
    Form().Explanation().SetVisible(true);
    Look();
    EXPECT_TRUE(hits->isVisible());
    EXPECT_FALSE(conversions->isVisible());
    Form().FindFrame.SetVisible(false);
    Look();
    EXPECT_FALSE(hits->isVisible());
    EXPECT_TRUE(conversions->isVisible());
    Form().Explanation().SetVisible(false);
    Look();
    EXPECT_TRUE(side->isHidden());
}

TEST_F(HitListTest, HitIsARowOfTheTable) {
    SearchUntilTheHit();
    ASSERT_EQ(Table().model()->rowCount(), 1);
    EXPECT_EQ(Shown(0, 0), "5");
    EXPECT_EQ(Shown(0, 1), "9600");
    EXPECT_EQ(Shown(0, 2), "20");
    EXPECT_EQ(Shown(0, 3), "40 30 35 52 44");
    EXPECT_EQ(Shown(0, 4), "正确");
    EXPECT_EQ(Table().model()->index(0, 0).data(Qt::AccessibleTextRole).toString().toStdString(),
              "地址 5，9600 波特，20 毫秒，校验字正确");
    EXPECT_EQ(Title(), "搜索结果 1 台");
}

TEST_F(HitListTest, ReplyWithAWrongCheckWordIsToldFromARightOne) {
    bench.reply = "@05RDC80064006B\r";
    SearchUntilTheHit();
    EXPECT_EQ(Shown(0, 4), "错误");
}

TEST_F(HitListTest, WidthsAreThoseOfTheDesign) {
    for (int column = 0; column < 4; ++column) {
        const int widths[] = {56, 72, 72, 136};
        EXPECT_EQ(Table().columnWidth(column), widths[column]);
    }
    EXPECT_GE(Table().columnWidth(4), 108);
}

TEST_F(HitListTest, NewSearchBeginsWithoutHits) {
    SearchToTheEnd();
    EXPECT_EQ(Table().model()->rowCount(), 1);
    Press("开始搜索");
    EXPECT_EQ(Table().model()->rowCount(), 0);
    EXPECT_EQ(Title(), "搜索结果 0 台");
}

TEST_F(HitListTest, NothingIsTakenOverWhileASearchGoesOn) {
    SearchUntilTheHit();
    EXPECT_FALSE(FindButton(*hits, "采用")->isVisible());
    DoubleClick(0);
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "6");
    EXPECT_EQ(notes.Text().toStdString(), "搜索进行中，停止后可采用");
}

TEST_F(HitListTest, HitsStandBehindTheEndUntilTheNextStart) {
    SearchToTheEnd();
    EXPECT_FALSE(Form().FindFrame.Visible());
    EXPECT_TRUE(hits->isVisible());
    EXPECT_EQ(Title(), "搜索结果 1 台，双击采用");
    bench.session.Start();
    Look();
    EXPECT_FALSE(hits->isVisible());
}

TEST_F(HitListTest, HitsGiveWayToAnExplanation) {
    SearchToTheEnd();
    Form().Explanation().PutOnTop({u"甲"});
    Look();
    EXPECT_FALSE(hits->isVisible());
}

TEST_F(HitListTest, SearchWithoutHitsLeavesTheConversions) {
    Form().Explanation().SetVisible(true);
    bench.session.line.Answer = [](const std::string&) { return std::vector<Arrival>{}; };
    SearchToTheEnd();
    EXPECT_FALSE(hits->isVisible());
    EXPECT_TRUE(conversions->isVisible());
}

TEST_F(HitListTest, DoubleClickTakesAddressAndRateOverIntoTheSession) {
    Form().BaudRate().Set(u"4800");
    SearchToTheEnd();
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "7");
    DoubleClick(0);
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "5");
    EXPECT_EQ(ToUtf8(Form().BaudRate().Value()), "9600");
    EXPECT_EQ(ToUtf8(bench.session.line.Settings()), "9600,N,8,1");
    EXPECT_EQ(notes.Text().toStdString(), "已采用：地址 5，9600 波特");
}

TEST_F(HitListTest, EnterAndTheActionTakeOver) {
    SearchToTheEnd();
    Table().setCurrentIndex(Table().model()->index(0, 0));
    QTest::keyClick(&Table(), Qt::Key_Return);
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "5");
    Form().ConMeterAddr.Set(u"7");
    Press("采用");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "5");
}

TEST_F(HitListTest, TakingOverComesBackFromASearchThatWasBrokenOff) {
    SearchUntilTheHit();
    Press("停止搜索");
    DoubleClick(0);
    EXPECT_EQ(Form().CommandCode, 31);
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "97");
    EXPECT_EQ(ToUtf8(Form().ConMeterAddr.Value()), "5");
}

TEST_F(HitListTest, HitsGoIntoAFileThatASpreadsheetReads) {
    QTemporaryDir folder;
    SearchToTheEnd();
    hits->SaveTo(folder.filePath("搜索结果.csv"));
    QFile file(folder.filePath("搜索结果.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(),
              "\xEF\xBB\xBF地址,波特率,应答 ms,首字节,校验字\r\n5,9600,20,40 30 35 52 44,正确\r\n");
    EXPECT_EQ(notes.Text().toStdString(), "已导出 1 行：搜索结果.csv");
}

TEST_F(HitListTest, FileIsAskedFor) {
    QTemporaryDir folder;
    SearchToTheEnd();
    QTimer::singleShot(0, [&folder] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
        dialog->selectFile(folder.filePath("found"));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    Press("导出 CSV");
    EXPECT_TRUE(QFile::exists(folder.filePath("found.csv")));
}

TEST_F(HitListTest, FileThatCannotBeWrittenIsToldOf) {
    QTemporaryDir folder;
    SearchToTheEnd();
    hits->SaveTo(folder.filePath("nowhere/hits.csv"));
    EXPECT_EQ(notes.Text().toStdString().find("没有导出：" + folder.path().toStdString()), 0U);
}

}  // namespace
}  // namespace commtest::testing
