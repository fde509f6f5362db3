#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;

class CatalogueVerbTest : public ::testing::Test {
  protected:
    QTemporaryDir outer;
    QString folder = outer.filePath(QString::fromUtf8("新 folder"));
    QString file = folder + QString::fromUtf8("/通讯数据.mdb");
};

TEST_F(CatalogueVerbTest, MakesAProgramFolder) {
    const Outcome outcome = RunCommand({"catalogue", "create", folder});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.results, "已建立 " + file.toStdString() + "\n");
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_TRUE(QDir(folder + QString::fromUtf8("/自动保存通讯记录")).exists());
}

QByteArray ContentOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(CatalogueVerbTest, LeavesACatalogueThatIsThere) {
    RunCommand({"catalogue", "create", folder});
    const QByteArray before = ContentOf(file);
    const Outcome outcome = RunCommand({"catalogue", "create", folder});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.results, file.toStdString() + " 已存在，没有改动\n");
    EXPECT_FALSE(before.isEmpty());
    EXPECT_EQ(ContentOf(file), before);
}

TEST_F(CatalogueVerbTest, FileOfThatNameThatIsNoCatalogueIsKeptAndTold) {
    QDir().mkpath(folder);
    QFile own(file);
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.write("own");
    own.close();
    const Outcome outcome = RunCommand({"catalogue", "create", folder});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.results, "");
    EXPECT_EQ(ContentOf(file), "own");
}

TEST_F(CatalogueVerbTest, FolderThatCannotBeMadeIsAProblem) {
    EXPECT_TRUE(IsProblem(RunCommand({"catalogue", "create", "/dev/null/x"}), 3,
                          "不能建立 /dev/null/x: /dev/null 是文件，不是文件夹"));
}

}  // namespace

}  // namespace commtest
