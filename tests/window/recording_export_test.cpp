#include "window/recording_export.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "window/recordings_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

class RecordingExportTest : public ::testing::Test, protected RecordingsBench {
  protected:
    RecordingExport* exported = new RecordingExport(bench.binder, notes, *list);

    const std::string kFile = Head("PLANT") + Line("41") + Line("42");

    // Runs as soon as the question for the file stands.
    static void InDialog(const std::function<void(QFileDialog&)>& answer) {
        QTimer::singleShot(0, [answer] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            answer(*dialog);
        });
    }
};

TEST_F(RecordingExportTest, RecordingGoesIntoTheFileAndTheNoteSaysWhere) {
    const QString path = folder.filePath("out.jsonl");
    exported->SaveTo(path, u"仪表甲", u"PLANT");
    EXPECT_EQ(BytesOf(path), kFile);
    EXPECT_EQ(Note(), "已导出 2 条：" + path.toStdString());
    EXPECT_TRUE(FindButton(window, "打开文件夹")->isVisible());
}

TEST_F(RecordingExportTest, FileIsAskedForUnderTheNameOfTheRecording) {
    QString name;
    InDialog([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        name = QFileInfo(dialog.selectedFiles().front()).fileName();
        dialog.selectFile(folder.filePath("out"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    exported->AskForFile(1);
    EXPECT_EQ(name.toStdString(), "仪表甲 PLANT.jsonl");
    EXPECT_EQ(BytesOf(folder.filePath("out.jsonl")), kFile);
}

TEST_F(RecordingExportTest, CancelledQuestionWritesNothing) {
    InDialog([](QFileDialog& dialog) { dialog.reject(); });
    exported->AskForFile(1);
    EXPECT_EQ(Note(), "");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(RecordingExportTest, FileThatIsThereStaysUnlessTheUserWantsIt) {
    FileWith("of someone else");
    bool isAsked = false;
    InDialog([&](QFileDialog& dialog) {
        dialog.selectFile(folder.filePath("in"));
        QTimer::singleShot(0, &dialog, [&] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(question, nullptr);
            isAsked = true;
            QTimer::singleShot(0, &dialog, &QDialog::reject);
            question->button(QMessageBox::No)->click();
        });
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    exported->AskForFile(1);
    EXPECT_TRUE(isAsked);
    EXPECT_EQ(BytesOf(folder.filePath("in.jsonl")), "of someone else");
}

TEST_F(RecordingExportTest, FileThatCannotBeWrittenIsToldOf) {
    const QString path = folder.filePath("nowhere/out.jsonl");
    exported->SaveTo(path, u"仪表甲", u"PLANT");
    EXPECT_EQ(Note().find("没有导出：" + path.toStdString() + "，"), 0U);
}

TEST_F(RecordingExportTest, RecordingThatIsGoneIsToldOf) {
    exported->SaveTo(folder.filePath("out.jsonl"), u"仪表甲", u"OTHER");
    EXPECT_EQ(Note(), "没有导出：列表中的这个录制已不存在");
    EXPECT_FALSE(QFile::exists(folder.filePath("out.jsonl")));
}

TEST_F(RecordingExportTest, StoreThatFailsIsToldOf) {
    Form().outside.store.Close();
    exported->SaveTo(folder.filePath("out.jsonl"), u"仪表甲", u"PLANT");
    EXPECT_EQ(Note().find("没有导出："), 0U);
    EXPECT_FALSE(QFile::exists(folder.filePath("out.jsonl")));
}

TEST(FileNameOfRecording, WhatAFileSystemDoesNotLikeIsReplaced) {
    EXPECT_EQ(FileNameOfRecording(u"A/B:C", u" \"D\"\n?").toStdString(), "A_B_C _D___.jsonl");
}

TEST(FileNameOfRecording, LongNoteIsCutOff) {
    const QString name = FileNameOfRecording(u"A", Text(300, u'注'));
    EXPECT_EQ(name.toStdString(), "A " + QString(66, u'注').toStdString() + ".jsonl");
    const QString pairs = FileNameOfRecording(u"A", QString("😀").repeated(100).toStdU16String());
    EXPECT_EQ(pairs.toStdString(), "A " + QString("😀").repeated(49).toStdString() + ".jsonl");
}

}  // namespace
}  // namespace commtest::testing
