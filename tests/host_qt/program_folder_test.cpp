#include "host_qt/program_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "catalogue/shipped_catalogue.h"
#include "runtime/runtime_error.h"

namespace commtest {
namespace {

using ::testing::UnorderedElementsAre;

class ProgramFolderTest : public ::testing::Test {
  protected:
    bool Create(const std::function<void(Store&)>& fill = FillWithShippedCatalogue) const {
        return CreateProgramFolder(path.toStdU16String(), fill);
    }

    std::vector<std::string> Content() const {
        std::vector<std::string> names;
        for (const QString& name :
             QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            names.push_back(name.toStdString());
        }
        return names;
    }

    QTemporaryDir outer;
    QString path = outer.filePath(QString::fromUtf8("new/程序 folder"));
    QString catalogue = path + QString::fromUtf8("/通讯数据.mdb");
};

TEST_F(ProgramFolderTest, IsMadeWithItsCatalogueAndItsRecordFolder) {
    EXPECT_TRUE(Create());
    EXPECT_THAT(Content(), UnorderedElementsAre("通讯数据.mdb", "自动保存通讯记录"));
    EXPECT_TRUE(QDir(path + QString::fromUtf8("/自动保存通讯记录")).exists());
}

TEST_F(ProgramFolderTest, ACatalogueThatStandsThereIsKept) {
    ASSERT_TRUE(QDir().mkpath(path));
    QFile file(catalogue);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("the user's own");
    file.close();
    EXPECT_FALSE(Create());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "the user's own");
    EXPECT_THAT(Content(), UnorderedElementsAre("通讯数据.mdb", "自动保存通讯记录"));
}

TEST_F(ProgramFolderTest, AFailureLeavesNoFileBehind) {
    EXPECT_THROW(Create([](Store& store) {
                     store.Execute(u"CREATE TABLE half (a TEXT)");
                     throw RuntimeError::OfStore(u"made to fail");
                 }),
                 RuntimeError);
    EXPECT_THAT(Content(), UnorderedElementsAre());
}

TEST_F(ProgramFolderTest, ACatalogueThatAppearsMeanwhileIsNotReplaced) {
    EXPECT_THROW(Create([this](Store&) {
                     QFile file(catalogue);
                     ASSERT_TRUE(file.open(QIODevice::WriteOnly));
                     file.write("of another");
                 }),
                 RuntimeError);
    QFile file(catalogue);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "of another");
    EXPECT_THAT(Content(), UnorderedElementsAre("通讯数据.mdb"));
}

TEST_F(ProgramFolderTest, AFolderThatCannotBeMadeIsPathNotFound) {
    QFile file(outer.filePath(QStringLiteral("new")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    try {
        Create();
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), 76);
    }
}

}  // namespace
}  // namespace commtest
