#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "cli/list_folder.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using testing::IsProblem;
using testing::ListFolder;
using testing::Outcome;

class CatalogueRestore : public ::testing::Test {
  protected:
    // An import of a list with one instrument of that name; the copy holds what was there before.
    QString CopyBeforeImportOf(const std::string& name) {
        folder.Write("TQ.ini", "Device  " + name + "\nType    31010107\nB  2010 0 R\nEND\n");
        const QStringList before = Copies();
        EXPECT_EQ(folder.Run({"import", "--yes"}).status, 0);
        for (const QString& copy : Copies()) {
            if (!before.contains(copy)) return copy;
        }
        return {};
    }

    QStringList Copies() const { return folder.NamesBeginning(QString::fromUtf8("通讯数据.mdb.bak-")); }

    void Keep(const QString& copy, const char* moment) {
        EXPECT_TRUE(QFile::rename(folder.Path(copy), folder.Path(CopyOf(moment))));
    }
    static QString CopyOf(const char* moment) { return QString::fromUtf8("通讯数据.mdb.bak-") + moment; }

    ListFolder folder;
    const std::string shippedRows = folder.Rows();
};

TEST_F(CatalogueRestore, YoungestCopyComesBackAndThePresentStateIsCopiedFirst) {
    Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
    Keep(CopyBeforeImportOf("SECOND"), "20200101-000001");
    const Outcome outcome = folder.Run({"restore", "--yes"});
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(Copies().size(), 3);
    EXPECT_EQ(outcome.results, "目录已备份到 " + Copies()[2].toStdString() +
                                   "\n已由 通讯数据.mdb.bak-20200101-000001 恢复 1 台仪表，1 个参数\n");
    EXPECT_EQ(outcome.problems, "");
    EXPECT_EQ(folder.Rows(), "FIRST B 0010 2\n");
    EXPECT_EQ(folder.Run({"restore", "--yes"}).status, 0);
    EXPECT_EQ(folder.Rows(), "SECOND B 0010 2\n");
}

TEST_F(CatalogueRestore, CopyNamedOfTheFolderOrByItsPath) {
    Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
    EXPECT_EQ(folder.Run({"restore", CopyOf("20200101-000000"), "--yes"}).status, 0);
    EXPECT_EQ(folder.Rows(), shippedRows);
    QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath("copy.mdb");
    ASSERT_TRUE(QFile::copy(folder.Path(CopyOf("20200101-000000")), path));
    Keep(CopyBeforeImportOf("SECOND"), "20200101-000002");
    EXPECT_EQ(folder.Run({"restore", path, "--yes"}).status, 0);
    EXPECT_EQ(folder.Rows(), shippedRows);
}

TEST_F(CatalogueRestore, OldestOfThreeCopiesSurvivesTheNewOne) {
    for (const bool isPath : {false, true}) {
        for (const QString& copy : Copies()) QFile::remove(folder.Path(copy));
        folder.Write("TQ.ini", "Device  OLDEST\nType    31010107\nB  2010 0 R\nEND\n");
        EXPECT_EQ(folder.Run({"import", "--yes"}).status, 0);
        for (const QString& copy : Copies()) QFile::remove(folder.Path(copy));
        Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
        Keep(CopyBeforeImportOf("SECOND"), "20200101-000001");
        Keep(CopyBeforeImportOf("THIRD"), "20200101-000002");
        const QString copy = CopyOf("20200101-000000");
        EXPECT_EQ(folder.Run({"restore", isPath ? folder.Path(copy) : copy, "--yes"}).status, 0);
        EXPECT_EQ(folder.Rows(), "OLDEST B 0010 2\n");
    }
}

TEST_F(CatalogueRestore, ScriptNeedsYesAndATerminalIsAsked) {
    Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
    EXPECT_TRUE(IsProblem(folder.Run({"restore"}), 2,
                          "标准输入不是终端，不能询问。同意改动目录时请加上 --yes。用法请看 commtest-cli "
                          "catalogue restore --help"));
    const Outcome no = folder.RunTyped({"restore"}, "n\n");
    EXPECT_EQ(no.status, 3);
    EXPECT_EQ(no.problems,
              "通讯数据.mdb.bak-20200101-000000: 19 台仪表，825 个参数\n"
              "目录现有 1 台仪表，1 个参数，先备份，再由备份取代\n"
              "确定要恢复仪表的参数地址表吗？ [y/N] 没有同意。目录没有改变\n");
    EXPECT_EQ(folder.Rows(), "FIRST B 0010 2\n");
    EXPECT_EQ(folder.RunTyped({"restore"}, "y\n").status, 0);
    EXPECT_EQ(folder.Rows(), shippedRows);
}

TEST_F(CatalogueRestore, NothingToRestoreIsAProblem) {
    EXPECT_TRUE(IsProblem(folder.Run({"restore", "--yes"}), 2,
                          QFileInfo(folder.Path("x")).path().toStdString() + " 中没有可用的备份"));
    folder.Write("notes", "notes");
    const Outcome outcome = folder.Run({"restore", "notes", "--yes"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.results, "");
    EXPECT_THAT(outcome.problems, EndsWith(" 这个备份不能用。请给出另一个。目录没有改变\n"));
    EXPECT_EQ(folder.Rows(), shippedRows);
    EXPECT_TRUE(Copies().isEmpty());
}

TEST_F(CatalogueRestore, CopyThatWasNotFinishedIsPassedOver) {
    Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
    folder.Write(CopyOf("20200101-000001"), "");
    EXPECT_EQ(folder.Run({"restore", "--yes"}).status, 0);
    EXPECT_EQ(folder.Rows(), shippedRows);
}

TEST_F(CatalogueRestore, ReportsAsJson) {
    Keep(CopyBeforeImportOf("FIRST"), "20200101-000000");
    const Outcome outcome = folder.Run({"restore", "--yes", "--format", "json"});
    ASSERT_EQ(Copies().size(), 2);
    EXPECT_EQ(outcome.results, "{\n    \"backup\": \"" + Copies()[1].toStdString() +
                                   "\",\n    \"copy\": \"通讯数据.mdb.bak-20200101-000000\",\n"
                                   "    \"instruments\": 19,\n    \"parameters\": 825\n}\n");
}

}  // namespace

}  // namespace commtest
