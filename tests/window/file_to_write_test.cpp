#include "window/file_to_write.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>

namespace commtest {
namespace {

class FileToWriteTest : public ::testing::Test {
  protected:
    // The user names a file in the dialog.
    QString Ask(const QString& name) {
        QTimer::singleShot(0, [this, name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->selectFile(folder.filePath(name));
            QTimer::singleShot(0, dialog, [this, dialog] { AnswerQuestion(*dialog); });
            QMetaObject::invokeMethod(dialog, "accept");
        });
        return AskForFileToWrite(nullptr, "导出", "first.csv", "CSV (*.csv)", "csv");
    }

    void AnswerQuestion(QFileDialog& dialog) {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (question == nullptr) return;
        ++questions;
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        question->button(answer)->click();
    }

    QTemporaryDir folder;
    int questions = 0;
    QMessageBox::StandardButton answer = QMessageBox::No;
};

TEST_F(FileToWriteTest, NameWithoutASuffixGetsTheKind) {
    EXPECT_EQ(Ask("found"), folder.filePath("found.csv"));
    EXPECT_EQ(Ask("found.txt"), folder.filePath("found.txt"));
    EXPECT_EQ(questions, 0);
}

TEST_F(FileToWriteTest, FileThatIsThereIsAskedAboutByItsWholeName) {
    QFile file(folder.filePath("found.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(Ask("found"), "");
    EXPECT_EQ(questions, 1);
    answer = QMessageBox::Yes;
    EXPECT_EQ(Ask("found"), folder.filePath("found.csv"));
    EXPECT_EQ(questions, 2);
}

}  // namespace
}  // namespace commtest
