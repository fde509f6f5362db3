#include "window/list_import.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QProgressBar>

#include "host_qt/qt_store.h"
#include "runtime/runtime_error.h"
#include "window/grid_view.h"
#include "window/list_window_bench.h"
#include "window/recording_messages.h"
#include "window/sidebar.h"

namespace commtest::testing {
namespace {

const QString kReason = "正在导入参数地址表，完成或取消后可用";

class ListImportTest : public ListWindow {
  protected:
    // A list long enough to be met on its way, up to that place.
    void MeetImport() {
        Put("TQ.ini", ListOf(5000));
        BeginImport();
        Press(Question(), "是(&Y)");
        Activate();
        ASSERT_TRUE(WaitFor([this] { return ShownBar() > 20; }));
        ASSERT_TRUE(Import().IsUnderWay());
    }
    void Activate() {
        Window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    }
    int ShownBar() { return Band().findChild<QProgressBar*>()->value(); }  // of 1000
    std::string Instruments() {
        std::string names;
        for (const Text& name : Form().InstrumentList().Items()) names += ToUtf8(name) + "|";
        return names;
    }
    int Count() { return InstrumentCatalogue(Form().outside.store).Size().instruments; }
    QAction* Entry(const QString& caption) {
        for (QAction* action : Tools().Button(10).menu()->actions()) {
            if (action->text() == caption) return action;
        }
        return nullptr;
    }
    QComboBox& List(const char* name) { return *FindNamed<QComboBox>(Window(), name); }
    QTabBar& Tabs() { return *Window().findChild<QTabBar*>(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        Activate();
        QTest::keyClick(&Window(), key, modifiers);
    }
};

TEST_F(ListImportTest, ListTakesThePlaceOfTheCatalogueAndTheResultIsTold) {
    Put("TQ.ini", ListOf(2));
    RunImport();
    EXPECT_EQ(Instruments(), "新表1|新表2|");
    ASSERT_EQ(Copies().size(), 1);
    const QString result = Read(Result());
    EXPECT_TRUE(result.startsWith("数据库重置完毕！；导入 2 台仪表，6 个参数，用时 0."))
        << result.toStdString();
    EXPECT_TRUE(result.contains("原目录 " + Copies().first() + " (")) << result.toStdString();
    EXPECT_TRUE(result.endsWith("OutTQ.ini 已追加 620 字节，现有 620 字节")) << result.toStdString();
    EXPECT_EQ(Notes().Text().toStdString(), "已导入 2 台仪表，6 个参数");
    EXPECT_TRUE(Band().isHidden());
}

TEST_F(ListImportTest, EachImportIsAppendedBehindTheFormerOnes) {
    Put("TQ.ini", ListOf(2));
    RunImport();
    Press(Result(), "确定");
    RunImport();
    EXPECT_TRUE(Read(Result()).endsWith("OutTQ.ini 已追加 620 字节，现有 1 KB"));
    EXPECT_EQ(QFile(PathOf("OutTQ.ini")).size(), 2 * 620);
}

TEST_F(ListImportTest, FormerInstrumentIsChosenAgain) {
    Put("TQ.ini", ListOf(3));
    RunImport();
    Press(Result(), "确定");
    Window().Views().Event([this] {
        Form().InstrumentList().Set(u"新表2");
        RunIfSet(Form().InstrumentList().Click);
    });
    RunImport();
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), "新表2");
    EXPECT_EQ(ToUtf8(Form().ParameterGrid().Cell(2, 1)), "设定值");
}

TEST_F(ListImportTest, WithoutTheFormerInstrumentTheFirstIsChosen) {
    Put("TQ.ini", ListOf(3));
    RunImport();
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), "新表1");
}

TEST_F(ListImportTest, BadParametersAreNamedAndCounted) {
    Put("TQ.ini",
        {"DEVICE 甲表", "TYPE 11000101", "001 上限 3010 X RW", "002 下限 3020 Y RW", "END", "DEVICE END"});
    RunImport();
    EXPECT_TRUE(Read(Result()).startsWith(
        "上限、下限  参数数据导入出现错误！；出错 2 处小数点不是数，均已照原样存入；"))
        << Read(Result()).toStdString();
}

TEST_F(ListImportTest, ThousandsOfBadParametersAreScrolledInABoxOfTheSameHeight) {
    QStringList lines = {"DEVICE 甲表", "TYPE 11000101"};
    for (int row = 0; row < 3000; ++row) lines += QString("%1 很长的参数名称%1 3010 X RW").arg(row);
    Put("TQ.ini", lines << "END"
                        << "DEVICE END");
    RunImport();
    auto* names = Result().findChild<QPlainTextEdit*>();
    ASSERT_NE(names, nullptr);
    EXPECT_TRUE(names->toPlainText().startsWith("很长的参数名称0、很长的参数名称1、"));
    EXPECT_LT(Result().height(), 400);
}

TEST_F(ListImportTest, BandTellsHowFarTheImportHasCome) {
    MeetImport();
    EXPECT_TRUE(Band().isVisible());
    EXPECT_EQ(Band().accessibleName().toStdString(), "导入进度");
    EXPECT_EQ(Band().height(), 40);
    QStringList words;
    for (const QLabel* label : Band().findChildren<QLabel*>()) words += label->text();
    const QString shown = words.join(' ');
    EXPECT_TRUE(shown.startsWith("正在导入 TQ.ini 行 ")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(" / 15,000 仪表 ")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(" / 5,000 剩余约 0:")) << shown.toStdString();
}

TEST_F(ListImportTest, WhateverAsksTheCatalogueWaits) {
    MeetImport();
    for (const char* list : {"协议类型", "名称"}) {
        EXPECT_FALSE(List(list).isEnabled()) << list;
        EXPECT_EQ(List(list).toolTip(), kReason) << list;
    }
    EXPECT_FALSE(Find<Sidebar>()->findChild<QRadioButton*>()->isEnabled());
    EXPECT_FALSE(Tools().Button(2).isEnabled());
    EXPECT_FALSE(Tools().Button(8).isEnabled());
    for (const char* entry : {"系统小工具", "参数地址确认", "恢复原目录..."}) {
        EXPECT_FALSE(Entry(entry)->isEnabled()) << entry;
        EXPECT_EQ(Entry(entry)->toolTip(), kReason) << entry;
    }
    EXPECT_FALSE(Tabs().isTabEnabled(2));
    EXPECT_FALSE(Tabs().isTabEnabled(3));
    EXPECT_EQ(Tabs().tabToolTip(2), kReason);
    Key(Qt::Key_3);
    EXPECT_EQ(Form().SSTab2.Chosen(), 0);
    EXPECT_EQ(Notes().Text(), kReason);
    Key(Qt::Key_T);
    EXPECT_FALSE(program->Tools().Window.Visible());
    Settle();
    EXPECT_TRUE(List("名称").isEnabled());
    EXPECT_NE(List("名称").toolTip(), kReason);
    EXPECT_TRUE(Tools().Button(8).isEnabled());
    EXPECT_TRUE(Tabs().isTabEnabled(2));
}

TEST_F(ListImportTest, CaptureAndReplayWaitAndTheStripSaysSo) {
    Form().ConSaveData.Set(true);
    MeetImport();
    EXPECT_TRUE(Form().CaptureWaits);
    EXPECT_EQ(CaptureCounts(Form()).toStdString(), "采集 暂停，正在导入 新 0 已有 0");
    QCheckBox* replay = nullptr;
    for (QCheckBox* box : Find<Sidebar>()->findChildren<QCheckBox*>()) {
        if (box->text() == "数据演示") replay = box;
    }
    ASSERT_NE(replay, nullptr);
    EXPECT_FALSE(replay->isEnabled());
    Settle();
    EXPECT_FALSE(Form().CaptureWaits);
    EXPECT_TRUE(replay->isEnabled());
    EXPECT_EQ(CaptureCounts(Form()).toStdString(), "采集 新 0 已有 0");
}

TEST_F(ListImportTest, PageThatIsShownKeepsItsTabAndItsListWaits) {
    Key(Qt::Key_3);
    MeetImport();
    EXPECT_EQ(Tabs().currentIndex(), 2);
    EXPECT_FALSE(FindNamed<GridView>(Window(), "仪表清单")->isEnabled());
    Settle();
    Press(Result(), "确定");
    EXPECT_TRUE(FindNamed<GridView>(Window(), "仪表清单")->isEnabled());
    EXPECT_EQ(ToUtf8(Form().MSHFlexGrid1[1].Cell(1, 3)), "新表1");
}

TEST_F(ListImportTest, CancelAsksAndKeepsTheFormerCatalogue) {
    const int former = Count();
    const std::string instruments = Instruments();
    MeetImport();
    answer = "否(&N)";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(boxes.last().toStdString(), "确定要取消导入吗？目录不变。");
    EXPECT_TRUE(Import().IsUnderWay());
    answer = "是(&Y)";
    Press(Band(), "取消");
    EXPECT_FALSE(Import().IsUnderWay());
    EXPECT_EQ(Count(), former);
    EXPECT_EQ(Instruments(), instruments);
    EXPECT_EQ(Notes().Text().toStdString(), "导入已取消，目录不变");
    EXPECT_FALSE(QFile::exists(PathOf("OutTQ.ini")));
    EXPECT_TRUE(List("名称").isEnabled());
}

TEST_F(ListImportTest, LeavingAsksAndTakesTheImportBack) {
    const int former = Count();
    MeetImport();
    answer = "否(&N)";
    Window().close();
    EXPECT_EQ(boxes.last().toStdString(), "正在导入参数地址表，现在退出则取消导入，目录不变。确定要退出吗？");
    EXPECT_TRUE(Window().isVisible());
    Key(Qt::Key_Q);
    EXPECT_EQ(boxes.size(), 2);
    EXPECT_TRUE(Import().IsUnderWay());
    answer = "是(&Y)";
    Window().close();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_EQ(Count(), former);
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
}

TEST_F(ListImportTest, ListThatBreaksOffBehindTheQuestionChangesNothing) {
    const int former = Count();
    Put("TQ.ini", ListOf(1));
    BeginImport();
    Put("TQ.ini", {"DEVICE 甲表", "TYPE 11000101", "001 测量值 3010 0 D"});
    Press(Question(), "是(&Y)");
    Settle();
    EXPECT_EQ(boxes.first().toStdString(), "没有导入，目录不变！");
    EXPECT_EQ(details.first().toStdString(), "TQ.ini 第 3 行：文件在一台仪表中结束。请补上 END 行");
    EXPECT_EQ(Find<ImportResult>(), nullptr);
    EXPECT_EQ(Count(), former);
    EXPECT_TRUE(List("名称").isEnabled());
}

TEST_F(ListImportTest, LockOfAnotherProgramIsToldAndNothingHasChanged) {
    Put("TQ.ini", ListOf(1));
    BeginImport();
    QtStore other;
    other.Open({StoreAddress::Kind::LocalFile, PathOf("通讯数据.mdb").toStdU16String(), {}});
    other.Execute(u"BEGIN IMMEDIATE");
    Press(Question(), "是(&Y)");
    Settle();
    EXPECT_EQ(boxes.first().toStdString(), "没有导入，目录不变！");
    EXPECT_EQ(details.first().toStdString(),
              "TQ.ini：database is locked。请结束正在使用目录的其他程序，检查磁盘空间和权限");
}

TEST_F(ListImportTest, ExportThatFailsIsToldAndTheImportStands) {
    Put("TQ.ini", ListOf(2));
    QDir(options.folder).mkdir("OutTQ.ini");
    RunImport();
    EXPECT_TRUE(Read(Result()).endsWith(
        "OutTQ.ini 没有追加完。OutTQ.ini：文件不能读写。请检查磁盘空间和权限，以及是否已在别处打开"))
        << Read(Result()).toStdString();
    EXPECT_EQ(Instruments(), "新表1|新表2|");
}

TEST_F(ListImportTest, EmptyListEmptiesTheCatalogue) {
    Put("TQ.ini", {"DEVICE END"});
    RunImport();
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(Instruments(), "");
    EXPECT_TRUE(Read(Result()).contains("导入 0 台仪表，0 个参数"));
}

TEST_F(ListImportTest, KeyOfTheImportAsksOnce) {
    Put("TQ.ini", ListOf(1));
    Key(Qt::Key_I);
    ASSERT_TRUE(WaitFor([this] { return Find<ImportQuestion>() != nullptr; }));
    Import().Begin();
    QApplication::processEvents();
    EXPECT_EQ(Window().findChildren<ImportQuestion*>().size(), 1);
}

}  // namespace
}  // namespace commtest::testing
