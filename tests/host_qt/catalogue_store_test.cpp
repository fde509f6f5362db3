#include "host_qt/catalogue_store.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "catalogue/catalogue_schema.h"
#include "host_qt/program_folder.h"

namespace commtest {
namespace {

const Text kClasses = u"SELECT 类别 FROM 仪表_类别 ORDER BY 类别ID";

// A catalogue of one class, open twice: `store` asks, `other` writes.
class CatalogueStoreTest : public ::testing::Test {
  protected:
    CatalogueStoreTest() {
        const auto fill = [](Store& made) {
            CreateCatalogueTables(made);
            made.Execute(u"INSERT INTO 仪表_类别 VALUES ('一', 1)");
        };
        EXPECT_TRUE(CreateProgramFolder(folder.path().toStdU16String(), fill));
        store.Open(address);
        other.Open(address);
    }

    std::size_t ClassesSeen() { return store.Query(kClasses).rows.size(); }
    void AddClassElsewhere(int id) {
        other.Execute(u"INSERT INTO 仪表_类别 VALUES (?, ?)", {Text(u"二"), FromUtf8(std::to_string(id))});
    }

    QTemporaryDir folder;
    StoreAddress address = {StoreAddress::Kind::LocalFile,
                            folder.filePath(QStringLiteral("通讯数据.mdb")).toStdU16String(),
                            CatalogueTables()};
    CatalogueStore store;
    CatalogueStore other;
};

TEST_F(CatalogueStoreTest, EachQueryIsAskedAnew) {
    EXPECT_EQ(ClassesSeen(), 1U);
    AddClassElsewhere(2);
    EXPECT_EQ(ClassesSeen(), 2U);
}

TEST_F(CatalogueStoreTest, QueryThatIsAskedAgainWithinTheScopeGivesTheRowsThatItGave) {
    {
        const SameAnswersScope answers(store);
        EXPECT_EQ(ClassesSeen(), 1U);
        AddClassElsewhere(2);
        EXPECT_EQ(ClassesSeen(), 1U);
        EXPECT_EQ(store.Query(kClasses + u" DESC").rows.size(), 2U) << "another one";
    }
    EXPECT_EQ(ClassesSeen(), 2U);
    const SameAnswersScope later(store);
    EXPECT_EQ(ClassesSeen(), 2U);
}

TEST_F(CatalogueStoreTest, NothingIsKeptBeyondAWriteOfItsOwn) {
    const SameAnswersScope answers(store);
    EXPECT_EQ(ClassesSeen(), 1U);
    store.Execute(u"INSERT INTO 仪表_类别 VALUES ('二', 2)");
    EXPECT_EQ(ClassesSeen(), 2U);
    store.Execute(u"INSERT INTO 仪表_类别 VALUES (?, ?)", {Text(u"三"), Text(u"3")});
    EXPECT_EQ(ClassesSeen(), 3U);
    store.AddRow(u"仪表_类别", {u"类别", u"类别ID"}, {Text(u"四"), Text(u"4")});
    EXPECT_EQ(ClassesSeen(), 4U);
    store.BeginTransaction();
    store.AddRow(u"仪表_类别", {u"类别", u"类别ID"}, {Text(u"五"), Text(u"5")});
    EXPECT_EQ(ClassesSeen(), 5U);
    store.Rollback();
    EXPECT_EQ(ClassesSeen(), 4U);
}

TEST_F(CatalogueStoreTest, NothingIsKeptBeyondAnOpening) {
    const SameAnswersScope answers(store);
    EXPECT_EQ(ClassesSeen(), 1U);
    AddClassElsewhere(2);
    store.Open(address);
    EXPECT_EQ(ClassesSeen(), 2U);
}

TEST_F(CatalogueStoreTest, ScopeWithinAScopeLeavesItInForce) {
    const SameAnswersScope outer(store);
    { const SameAnswersScope inner(store); }
    EXPECT_EQ(ClassesSeen(), 1U);
    AddClassElsewhere(2);
    EXPECT_EQ(ClassesSeen(), 1U);
}

}  // namespace
}  // namespace commtest
