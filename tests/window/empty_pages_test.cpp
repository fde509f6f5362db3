#include "window/empty_pages.h"

#include <gtest/gtest.h>

#include "commands/toolbar_commands.h"
#include "host/store.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class EmptyPagesTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    GridView* catalogue = new GridView(bench.binder, bench.theme, 1, &window);
    GridView* recordings = new GridView(bench.binder, bench.theme, 2, &window);
    EmptyState* noPort = MakeNoPortState(bench.binder, bench.theme, &window);

    QString wanted;

    EmptyPagesTest() {
        AddEmptyCatalogueState(bench.binder, bench.theme, *catalogue,
                               {[this] { wanted = "import"; }, [this] { wanted = "restore"; }});
        AddEmptyRecordingsState(bench.binder, bench.theme, *recordings,
                                [this] { wanted = "import a recording"; });
        window.resize(1000, 600);
        catalogue->setGeometry(0, 0, 500, 300);
        recordings->setGeometry(0, 300, 500, 300);
        window.show();
        bench.binder.Look();
    }

    MainForm& Form() { return bench.Form(); }
    bool Stands(const char* head) { return FindNamed<EmptyState>(window, head)->isVisible(); }
    void Press(const char* action) { FindButton(window, action)->click(); }
    void Fill(int list) {
        Form().MSHFlexGrid1[static_cast<std::size_t>(list)].SetSize(3, 2);
        bench.binder.Look();
    }
};

TEST_F(EmptyPagesTest, EmptyCatalogueOffersTheImportAndTheBackups) {
    EXPECT_TRUE(Stands("目录里没有仪表"));
    EXPECT_EQ(FindNamed<EmptyState>(window, "目录里没有仪表")->size(), catalogue->size());
    EXPECT_EQ(FindNamed<EmptyState>(window, "目录里没有仪表")->accessibleDescription().toStdString(),
              "把 TQ.ini 放进程序文件夹后导入");
    Press("导入地址");
    EXPECT_EQ(wanted, "import");
    Press("恢复备份...");
    EXPECT_EQ(wanted, "restore");
    Fill(1);
    EXPECT_FALSE(Stands("目录里没有仪表"));
}

TEST_F(EmptyPagesTest, CatalogueThatIsNotOpenIsNotCalledEmpty) {
    Form().outside.store.Close();
    bench.binder.Look();
    EXPECT_FALSE(Stands("目录里没有仪表"));
    EXPECT_FALSE(Stands("没有录制的数据"));
}

TEST_F(EmptyPagesTest, EmptyRecordingsOfferTheCaptureAndTheImport) {
    EXPECT_TRUE(Stands("没有录制的数据"));
    Press("导入录制");
    EXPECT_EQ(wanted, "import a recording");
    Press("开始采集");
    EXPECT_TRUE(Form().ConSaveData.Value());
    Fill(2);
    EXPECT_FALSE(Stands("没有录制的数据"));
}

TEST_F(EmptyPagesTest, WordsInAPaneOfFramesAreNotInItsType) {
    RecordView* record = MakeCommPane(bench.binder, bench.theme, 1, &window);
    AddEmptyRecordState(bench.binder, bench.theme, *record);
    const QList<QLabel*> words = record->findChildren<QLabel*>();
    ASSERT_FALSE(words.empty());
    EXPECT_NE(record->font().family(), window.font().family());
    for (const QLabel* label : words) EXPECT_EQ(label->font().family(), window.font().family());
}

TEST_F(EmptyPagesTest, MachineWithoutAPortIsLookedAtWhenThePageIsShownAndOnDemand) {
    bench.session.line.Ports.clear();
    bench.binder.Look();
    EXPECT_FALSE(noPort->isVisible());
    Form().SSTab2.Choose(1);
    bench.binder.Look();
    EXPECT_TRUE(noPort->isVisible());
    bench.session.line.Ports = {{1, u"/dev/ttyUSB0"}};
    Press("重新查找");
    EXPECT_FALSE(noPort->isVisible());
}

}  // namespace
}  // namespace commtest::testing
