#include "window/recording_import.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QTimer>

#include "window/fact_box.h"
#include "window/recordings_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class RecordingImportTest : public ::testing::Test, protected RecordingsBench {
  protected:
    DeletedPairs deleted{bench.binder, notes, &window};
    RecordingImport* import = new RecordingImport(bench.binder, bench.theme, notes, deleted, *list);

    FactBox* Question() { return window.findChild<FactBox*>(); }
    void Answer(const char* caption) {
        FindButton(*Question(), caption)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void Take(const std::string& bytes) { import->Take(FileWith(bytes)); }
    const ShownBox& Box() { return bench.session.dialogs.Shown.back(); }
};

TEST_F(RecordingImportTest, NewRecordingIsInTheListAtOnce) {
    Take(Head("bench") + Line("41") + Line("43"));
    EXPECT_EQ(Question(), nullptr);
    EXPECT_EQ(Listed(1, 3), "BENCH");
    EXPECT_EQ(Form().MSHFlexGrid1[2].Row, 1);
    EXPECT_EQ(Count(u"BENCH").all, 2);
    EXPECT_EQ(Note(), "已导入 2 条，0 条已有：仪表甲，BENCH");
}

TEST_F(RecordingImportTest, ListShowsTheRowThatHasCome) {
    Take(Head("WELL") + Line("41"));
    EXPECT_EQ(Listed(2, 3), "WELL");
    EXPECT_EQ(Form().MSHFlexGrid1[2].Row, 2);
}

TEST_F(RecordingImportTest, ExistingNoteIsAskedForBeforeItGrows) {
    Take(Head("plant") + Line("42") + Line("43"));
    ASSERT_NE(Question(), nullptr);
    EXPECT_EQ(Question()->accessibleName().toStdString(), "确定要加入已有的录制吗？");
    EXPECT_EQ(Question()->accessibleDescription().toStdString(),
              "文件 in.jsonl；仪表 仪表甲；说明 PLANT；现有 2 条；加入 1 条；另有 1 条已有，不再加入");
    EXPECT_EQ(Question()->focusWidget(), FindButton(*Question(), "否(&N)"));
    Answer("否(&N)");
    EXPECT_EQ(Count(u"PLANT").all, 2);
    EXPECT_EQ(Note(), "");
    Take(Head("plant") + Line("42") + Line("43"));
    Answer("是(&Y)");
    EXPECT_EQ(Count(u"PLANT").all, 3);
    EXPECT_EQ(Note(), "已导入 1 条，1 条已有：仪表甲，PLANT");
}

TEST_F(RecordingImportTest, PairThatWasCapturedWhileTheQuestionStoodIsNotDoubled) {
    Take(Head("PLANT") + Line("43"));
    AddRecorded(bench.session, u"PLANT", "40", "43");
    Answer("是(&Y)");
    EXPECT_EQ(Count(u"PLANT").all, 3);
    EXPECT_EQ(Note(), "已导入 0 条，1 条已有：仪表甲，PLANT");
}

TEST_F(RecordingImportTest, RepeatedImportAsksNothingAndAddsNothing) {
    Take(Head("PLANT") + Line("41") + Line("42"));
    EXPECT_EQ(Question(), nullptr);
    EXPECT_EQ(Count(u"PLANT").all, 2);
    EXPECT_EQ(Note(), "已导入 0 条，2 条已有：仪表甲，PLANT");
}

TEST_F(RecordingImportTest, FileThatDoesNotFitIsRefusedWithItsLineAndNothingComesIn) {
    Take(Head("BENCH") + Line("41") + Line("4"));
    EXPECT_EQ(ToUtf8(Box().text), "没有导入，演示数据不变！");
    EXPECT_EQ(ToUtf8(Box().detail), "in.jsonl 第 3 行：\"reply\" 的值不对");
    EXPECT_EQ(Count(u"BENCH").all, 0);
    EXPECT_EQ(Note(), "");
}

TEST_F(RecordingImportTest, FileThatCannotBeOpenedIsRefused) {
    import->Take(folder.filePath("none.jsonl"));
    EXPECT_EQ(ToUtf8(Box().text), "没有导入，演示数据不变！");
    EXPECT_EQ(ToUtf8(Box().detail).find(folder.filePath("none.jsonl").toStdString() + "："), 0U);
}

TEST_F(RecordingImportTest, StoreThatFailsRefuses) {
    Form().outside.store.Close();
    Take(Head("BENCH") + Line("41"));
    EXPECT_EQ(ToUtf8(Box().text), "没有导入，演示数据不变！");
    EXPECT_NE(ToUtf8(Box().detail), "");
}

TEST_F(RecordingImportTest, DeletedPairsThatTheFileMeetsAreToldAndComeBack) {
    Store().SetValid(u"仪表甲", u"PLANT", false);
    Take(Head("PLANT") + Line("41"));
    EXPECT_EQ(Note(), "已导入 0 条，1 条已有：仪表甲，PLANT；此说明下有 2 条已删除，应答相同的不再存入");
    FindButton(notes, "恢复")->click();
    EXPECT_EQ(Count(u"PLANT").deleted, 0);
    EXPECT_EQ(Listed(1, 3), "PLANT");
}

TEST_F(RecordingImportTest, QuestionTellsTheDeletedOnesToo) {
    Store().SetValid(u"仪表甲", u"PLANT", false);
    Take(Head("PLANT") + Line("43"));
    EXPECT_EQ(Question()->accessibleDescription().toStdString(),
              "文件 in.jsonl；仪表 仪表甲；说明 PLANT；现有 2 条，其中已删除 2 条；加入 1 条；另有 0 "
              "条已有，不再加入");
}

TEST_F(RecordingImportTest, FileIsAskedFor) {
    const QString path = FileWith(Head("BENCH") + Line("41"));
    QTimer::singleShot(0, [path] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    import->AskForFile();
    EXPECT_EQ(Count(u"BENCH").all, 1);
}

}  // namespace
}  // namespace commtest::testing
