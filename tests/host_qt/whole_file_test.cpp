#include "host_qt/whole_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace commtest::testing {
namespace {

class WholeFile : public ::testing::Test {
  protected:
    QTemporaryDir folder;
    QString path = folder.filePath("out.jsonl");

    std::string Bytes() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
    }
};

TEST_F(WholeFile, TakesThePlaceOfAFormerOne) {
    EXPECT_TRUE(WriteWhole(path, "a longer former one").isEmpty());
    EXPECT_TRUE(WriteWhole(path, "new").isEmpty());
    EXPECT_EQ(Bytes(), "new");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("out.jsonl"));
}

TEST_F(WholeFile, FileThatCannotBeWrittenSaysWhyAndLeavesNothing) {
    path = folder.filePath("none/out.jsonl");
    EXPECT_FALSE(WriteWhole(path, "new").isEmpty());
    path = folder.path();
    EXPECT_FALSE(WriteWhole(path, "new").isEmpty());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

}  // namespace
}  // namespace commtest::testing
