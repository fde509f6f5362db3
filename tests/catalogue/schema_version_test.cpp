#include "catalogue/schema_version.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/catalogue_upgrade.h"
#include "catalogue/list_bench.h"
#include "catalogue/parameter_list_import.h"
#include "catalogue/recordings.h"
#include "catalogue/table_copy.h"
#include "host/file_names.h"
#include "support/disk_files.h"
#include "support/error_of.h"
#include "support/failing_store.h"
#include "support/sqlite_store.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::ListBench;

constexpr DateTime kMoment{2024, 5, 6, 7, 8, 9};
const Text kCopy = u"通讯数据.mdb.bak-20240506-070809";

class SchemaVersion : public ::testing::TestWithParam<testing::StoreUnderTest>, public ListBench {
  protected:
    SchemaVersion() : ListBench(GetParam()) {
        catalogue.AddInstrument({4, u"甲表", u"11000101", u"TQ仪表协议", u"甲", u"数字显示仪表", Text(u"1")});
        catalogue.AddParameter({9, 4, u"值", u"0010", u"2", u"RW", u"", u"-1", u"9"});
    }

    void SayNothing() const {
        store->Execute(GetParam().engine == StoreEngine::Sqlite ? u"PRAGMA user_version = 0"
                                                                : u"COMMENT ON VIEW 仪表参数 IS NULL");
    }

    // As the first catalogues were.
    void BecomeOld() const {
        store->Execute(u"DROP INDEX instruments_by_code");
        store->Execute(u"DROP TABLE \"表格-设置\"");
        SayNothing();
    }

    bool HasIndex() const {
        const bool isFile = GetParam().engine == StoreEngine::Sqlite;
        return !store
                    ->Query(isFile
                                ? u"SELECT name FROM sqlite_master WHERE name = 'instruments_by_code'"
                                : u"SELECT indexname FROM pg_indexes WHERE indexname = 'instruments_by_code'")
                    .rows.empty();
    }

    testing::DiskFiles disk;
};

TEST_P(SchemaVersion, IsToldByANewCatalogue) { EXPECT_EQ(SchemaVersionOf(*store), 2); }

TEST_P(SchemaVersion, IsTheFirstWhereACatalogueSaysNothing) {
    SayNothing();
    EXPECT_EQ(SchemaVersionOf(*store), 1);
}

TEST_P(SchemaVersion, OfAnOlderCatalogueIsBroughtUpBehindACopy) {
    BecomeOld();
    const auto instruments = Instruments();
    const auto parameters = Parameters();
    EXPECT_EQ(UpgradeCatalogue(*store, disk, kMoment), kCopy);
    EXPECT_EQ(SchemaVersionOf(*store), 2);
    EXPECT_TRUE(HasEnglishSettings(*store));
    EXPECT_TRUE(HasIndex());
    EXPECT_EQ(Instruments(), instruments);
    EXPECT_EQ(Parameters(), parameters);
    testing::SqliteStore copy;
    copy.Open({StoreAddress::Kind::LocalFile, disk.PathOf(kCopy), CatalogueTables()});
    EXPECT_EQ(InstrumentCatalogue(copy).AllParameters().rows, catalogue.AllParameters().rows);
}

TEST_P(SchemaVersion, OfAnOlderCatalogueWithAnEnglishTableOfItsOwnLeavesThatAsItIs) {
    SayNothing();
    store->AddRow(u"\"表格-设置\"", {u"使用", u"字段"}, {Text(u"数据类型"), Text(u"own")});
    UpgradeCatalogue(*store, disk, kMoment);
    EXPECT_EQ(ToUtf8(store->Query(u"SELECT 字段 From \"表格-设置\"").At(0, 0)), "own");
}

TEST_P(SchemaVersion, StaysWhereTheUpgradeFailsAnywhere) {
    BecomeOld();
    testing::FailingStore failing(*store);
    int call = 1;
    for (;; ++call) {
        ASSERT_LT(call, 300);
        failing.FailAt(call);
        if (ErrorOf([&] { UpgradeCatalogue(failing, disk, kMoment); }) == 0) break;
        ASSERT_EQ(SchemaVersionOf(*store), 1) << call;
        ASSERT_FALSE(HasEnglishSettings(*store)) << call;
    }
    EXPECT_GT(call, 5);
    EXPECT_EQ(SchemaVersionOf(*store), 2);
}

TEST_P(SchemaVersion, OfANewerCatalogueLetsNobodyWriteIt) {
    NoteSchemaVersion(*store, 3);
    const auto parameters = Parameters();
    Recordings recordings(*store);
    EXPECT_THROW(recordings.Add({RecordedExchange()}), NewerCatalogue);
    EXPECT_THROW(BeginWriting(*store), NewerCatalogue);
    testing::SqliteStore file;
    file.Open({StoreAddress::Kind::NewFile, disk.PathOf(u"from"), {}});
    CreateCatalogueTables(file);
    EXPECT_THROW(CopyCatalogueInto(file, *store), NewerCatalogue);
    Put(kListFileName, {u"DEVICE B", u"TYPE 11000101", u"1 P 1010 R", u"END", u"DEVICE   END"});
    EXPECT_THROW(ParameterListImport(*store, files.OpenBytes(Text(kListFileName))), NewerCatalogue);
    EXPECT_EQ(Parameters(), parameters);
    EXPECT_THAT(recordings.All(), IsEmpty());
}

TEST_P(SchemaVersion, OfANewerCatalogueLetsNoCopyBeBroughtBack) {
    const Text copy = BackUpCatalogue(*store, disk, kMoment);
    NoteSchemaVersion(*store, 3);
    catalogue.AddParameter({10, 4, u"新", u"0020", u"2", u"", u"", u"", u""});
    const auto parameters = Parameters();
    EXPECT_THROW(RestoreCatalogue(*store, disk, copy), NewerCatalogue);
    EXPECT_EQ(Parameters(), parameters);
}

TEST_P(SchemaVersion, OfANewerCatalogueIsSeenByACopy) {
    if (GetParam().engine != StoreEngine::Sqlite) return;  // a server's copy is made by this program
    NoteSchemaVersion(*store, 3);
    BackUpCatalogue(*store, disk, kMoment);
    testing::SqliteStore copy;
    copy.Open({StoreAddress::Kind::LocalFile, disk.PathOf(kCopy), {}});
    EXPECT_EQ(SchemaVersionOf(copy), 3);
}

INSTANTIATE_TEST_SUITE_P(Each, SchemaVersion, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

TEST(KeepFromWriting, HoldsWhateverIsAskedOfAFile) {
    const auto store = testing::MakeShippedCatalogue();
    KeepFromWriting(*store);
    EXPECT_NE(ErrorOf([&] { InstrumentCatalogue(*store).ClearCatalogue(); }), 0);
    EXPECT_GT(InstrumentCatalogue(*store).Size().parameters, 0);
}

}  // namespace
}  // namespace commtest
