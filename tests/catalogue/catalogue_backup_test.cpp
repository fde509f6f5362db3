#include "catalogue/catalogue_backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "host/file_names.h"
#include "runtime/runtime_error.h"
#include "support/disk_files.h"
#include "support/error_of.h"
#include "support/failing_store.h"
#include "support/sqlite_store.h"
#include "support/statement_table.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr DateTime kMoment{2024, 5, 6, 7, 8, 9};
const Text kFirstName = u"通讯数据.mdb.bak-20240506-070809";

// Sorted: a table has no order.
std::vector<std::vector<StoreValue>> RowsOf(Store& store, const Text& table) {
    auto rows = store.Query(u"SELECT * From " + table).rows;
    std::sort(rows.begin(), rows.end());
    return rows;
}

// A store whose catalogue is copied. An embedded one that says it is a server is copied row by row as well.
struct CopiedStore {
    std::string name;
    testing::StoreUnderTest kind;
    std::optional<StoreEngine> pretended;

    StoreEngine Engine() const { return pretended.value_or(kind.engine); }
};

void PrintTo(const CopiedStore& store, std::ostream* out) { *out << store.name; }

std::vector<CopiedStore> CopiedStores() {
    std::vector<CopiedStore> stores;
    for (const testing::StoreUnderTest& kind : testing::StoresUnderTest()) {
        stores.push_back({kind.name, kind, std::nullopt});
        if (kind.engine == StoreEngine::Sqlite)
            stores.push_back({kind.name + "AsServer", kind, StoreEngine::SqlServer});
    }
    return stores;
}

// None pretends: only a server has the lock of one.
std::vector<CopiedStore> RestoredStores() {
    std::vector<CopiedStore> stores = CopiedStores();
    std::erase_if(stores, [](const CopiedStore& store) { return store.pretended.has_value(); });
    return stores;
}

class CatalogueBackupTest : public ::testing::TestWithParam<CopiedStore> {
  protected:
    CatalogueBackupTest() {
        inner.BeginTransaction();
        InstrumentCatalogue catalogue(inner);
        catalogue.AddClass(u"类别甲", 3);
        catalogue.AddInstrument({4, u"O'K", u"11000101", u"TQ仪表协议", u"甲", u"类别甲", std::nullopt});
        catalogue.AddInstrument({2, u"表二", u"", u"TQ仪表协议", u"", u"", Text(u"3")});
        catalogue.AddParameter({9, 4, u"值", u"0010", u"2", u"RW", u"", u"-1", u"9"});
        catalogue.AddParameter({5, 2, u"另一", u"0012", u"", u"", u"1", u"", u""});
        inner.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"℃"), std::nullopt});
        inner.AddRow(u"表格_设置", {u"使用", u"列号", u"字段"}, {Text(u"数据类型"), Text(u"1"), Text(u"x")});
        inner.AddRow(u"仪表_芯片", {u"芯片ID", u"编号"}, {Text(u"7"), Text(u"11000101")});
        testing::AddRecording(inner, u"O'K", u"说明", u" 40");
        inner.Commit();
        if (GetParam().pretended) store.PretendToBe(*GetParam().pretended);
    }

    using TableContents = std::vector<std::vector<std::vector<StoreValue>>>;

    // What the tables hold, one by one.
    static TableContents Contents(Store& of) {
        TableContents contents;
        for (const Text& table : CatalogueTables()) contents.push_back(RowsOf(of, table));
        return contents;
    }

    TableContents Contents(const Text& name) const {
        testing::SqliteStore file;
        file.Open({StoreAddress::Kind::LocalFile, files.PathOf(name), CatalogueTables()});
        return Contents(file);
    }

    testing::DiskFiles files;
    std::unique_ptr<Store> catalogueStore = testing::MakeEmptyCatalogue(GetParam().kind);
    Store& inner = *catalogueStore;
    testing::FailingStore store{inner};
};

TEST_P(CatalogueBackupTest, ACopyIsALocalFileThatIsNamedByItsMomentAndHoldsEverything) {
    EXPECT_EQ(BackUpCatalogue(store, files, kMoment), kFirstName);
    EXPECT_EQ(Contents(kFirstName), Contents(inner));
    EXPECT_THAT(files.NamesBeginning(u""), SizeIs(1));
}

TEST_P(CatalogueBackupTest, ACopyHoldsTheSettingsOfTheEnglishFace) {
    inner.AddRow(u"\"表格-设置\"", {u"使用", u"列号", u"字段"}, {Text(u"数据类型"), Text(u"1"), Text(u"x")});
    BackUpCatalogue(store, files, kMoment);
    testing::SqliteStore copy;
    copy.Open({StoreAddress::Kind::LocalFile, files.PathOf(kFirstName), {}});
    EXPECT_THAT(RowsOf(copy, u"\"表格-设置\""), SizeIs(1));
    EXPECT_EQ(RowsOf(copy, u"\"表格-设置\""), RowsOf(inner, u"\"表格-设置\""));
}

TEST_P(CatalogueBackupTest, ACatalogueWithoutTheSettingsOfTheEnglishFaceIsCopiedAllTheSame) {
    if (GetParam().pretended)
        inner.Execute(u"DELETE FROM information_schema.tables WHERE table_name = '表格-设置'");
    inner.Execute(u"DROP TABLE \"表格-设置\"");
    EXPECT_EQ(BackUpCatalogue(store, files, kMoment), kFirstName);
    EXPECT_EQ(Contents(kFirstName), Contents(inner));
}

TEST_P(CatalogueBackupTest, ACopyKeepsTheRelation) {
    testing::SqliteStore copy;
    copy.Open({StoreAddress::Kind::LocalFile, files.PathOf(BackUpCatalogue(store, files, kMoment)), {}});
    InstrumentCatalogue(copy).ClearCatalogue();
    EXPECT_EQ(InstrumentCatalogue(copy).Size().parameters, 0);
}

TEST_P(CatalogueBackupTest, ANameThatIsTakenGetsATurn) {
    BackUpCatalogue(store, files, kMoment);
    EXPECT_EQ(BackUpCatalogue(store, files, kMoment), kFirstName + u"-2");
    EXPECT_EQ(BackUpCatalogue(store, files, kMoment), kFirstName + u"-3");
    EXPECT_THAT(CatalogueBackups(files), ElementsAre(kFirstName + u"-3", kFirstName + u"-2", kFirstName));
}

TEST_P(CatalogueBackupTest, CopiesAreToldTheYoungestFirst) {
    for (const TextView end :
         {u"20240506-070809-2", u"20240506-070809-10", u"20231231-235959", u"20240506-070809"})
        files.Write(u"通讯数据.mdb.bak-" + Text(end), "");
    EXPECT_THAT(CatalogueBackups(files),
                ElementsAre(u"通讯数据.mdb.bak-20240506-070809-10", u"通讯数据.mdb.bak-20240506-070809-2",
                            u"通讯数据.mdb.bak-20240506-070809", u"通讯数据.mdb.bak-20231231-235959"));
}

TEST_P(CatalogueBackupTest, OtherNamesAreNoCopies) {
    for (const TextView name :
         {u"通讯数据.mdb.bak-", u"通讯数据.mdb.bak-2024050-070809", u"通讯数据.mdb.bak-20240506 070809",
          u"通讯数据.mdb.bak-20240506-070809-", u"通讯数据.mdb.bak-20240506-070809-a",
          u"通讯数据.mdb.bak-20240506-070809.txt", u"通讯数据.mdb.bak-2024050a-070809",
          u"通讯数据.mdb.bak-20240506-0708091", u"x通讯数据.mdb.bak-20240506-070809"})
        files.Write(Text(name), "of the user");
    EXPECT_THAT(CatalogueBackups(files), IsEmpty());
    for (const int second : {1, 2, 3, 4}) BackUpCatalogue(store, files, {2024, 5, 6, 0, 0, second});
    EXPECT_THAT(files.NamesBeginning(u""), SizeIs(9 + 3));
}

TEST_P(CatalogueBackupTest, TheLastThreeCopiesStay) {
    for (const int day : {1, 2, 3, 4}) BackUpCatalogue(store, files, {2024, 5, day, 0, 0, 0});
    EXPECT_THAT(CatalogueBackups(files),
                ElementsAre(u"通讯数据.mdb.bak-20240504-000000", u"通讯数据.mdb.bak-20240503-000000",
                            u"通讯数据.mdb.bak-20240502-000000"));
}

TEST_P(CatalogueBackupTest, AnUnfinishedCopyIsNoneAndGoesWithTheNext) {
    const Text left = Text(kCatalogueFileName) + u".bak-20240506-120000.part";
    files.Write(left, "");
    files.Write(left + u"-journal", "");
    EXPECT_THAT(CatalogueBackups(files), ::testing::IsEmpty());
    BackUpCatalogue(store, files, {2024, 5, 6, 12, 0, 1});
    EXPECT_FALSE(files.Exists(left));
    EXPECT_FALSE(files.Exists(left + u"-journal"));
    EXPECT_THAT(CatalogueBackups(files), ::testing::SizeIs(1));
}

TEST_P(CatalogueBackupTest, ANewCopyStaysWhateverTheClockSays) {
    for (const int day : {5, 6, 7}) BackUpCatalogue(store, files, {2024, 5, day, 0, 0, 0});
    BackUpCatalogue(store, files, {2023, 1, 1, 0, 0, 0});
    EXPECT_THAT(CatalogueBackups(files),
                ElementsAre(u"通讯数据.mdb.bak-20240507-000000", u"通讯数据.mdb.bak-20240506-000000",
                            u"通讯数据.mdb.bak-20230101-000000"));
}

TEST_P(CatalogueBackupTest, ACopyThatFailsAnywhereLeavesNoFileAndTheOthers) {
    for (const int day : {1, 2, 3}) BackUpCatalogue(store, files, {2024, 5, day, 0, 0, 0});
    const std::vector<Text> before = files.NamesBeginning(u"");
    int call = 1;
    for (;; ++call) {
        ASSERT_LT(call, 200);
        store.FailAt(call);
        if (ErrorOf([&] { BackUpCatalogue(store, files, kMoment); }) == 0) break;
        ASSERT_EQ(files.NamesBeginning(u""), before) << call;
    }
    EXPECT_GT(call, GetParam().Engine() == StoreEngine::Sqlite ? 1 : 30);
}

// No file can be made in this folder, by whomever.
TEST_P(CatalogueBackupTest, AFolderThatTakesNoFileIsToldAndNothingElseHappens) {
    const std::vector<Text> before = files.NamesBeginning(u"");
    files.MoveTo(u"/proc/self");
    EXPECT_EQ(ErrorOf([&] { BackUpCatalogue(store, files, kMoment); }), RuntimeError::kStore);
    files.MoveTo(files.Folder());
    EXPECT_EQ(files.NamesBeginning(u""), before);
    EXPECT_EQ(InstrumentCatalogue(store).Size().parameters, 2);
}

TEST_P(CatalogueBackupTest, ACopyWithinATransactionIsRefused) {
    store.BeginTransaction();
    EXPECT_EQ(ErrorOf([&] { BackUpCatalogue(store, files, kMoment); }), RuntimeError::kStore);
    store.Rollback();
    EXPECT_THAT(CatalogueBackups(files), IsEmpty());
}

class CatalogueRestoreTest : public CatalogueBackupTest {
  protected:
    CatalogueRestoreTest() : copy(BackUpCatalogue(store, files, kMoment)), saved(Contents(copy)) {
        InstrumentCatalogue catalogue(store);
        catalogue.ClearCatalogue();
        catalogue.AddInstrument({4, u"新表", u"", u"TQ仪表协议", u"", u"", std::nullopt});
        catalogue.AddParameter({9, 4, u"新", u"0020", u"2", u"", u"", u"", u""});
        catalogue.AddClass(u"新类别", 8);
        store.Execute(u"Delete From 通讯_仿真");
    }

    void ExpectInstrumentsAndParametersOfTheCopy() {
        const auto contents = Contents(inner);
        EXPECT_EQ(contents[1], saved[1]);
        EXPECT_EQ(contents[2], saved[2]);
    }

    Text copy;
    std::vector<std::vector<std::vector<StoreValue>>> saved;
};

TEST_P(CatalogueRestoreTest, InstrumentsAndParametersComeBackAndTheRestStays) {
    RestoreCatalogue(store, files, copy);
    ExpectInstrumentsAndParametersOfTheCopy();
    EXPECT_THAT(InstrumentCatalogue(store).Classes().rows, SizeIs(2));
    EXPECT_THAT(RowsOf(store, u"通讯_仿真"), IsEmpty());
    EXPECT_EQ(Contents(copy), saved);
}

TEST_P(CatalogueRestoreTest, ACopyMayBeNamedByItsPath) {
    RestoreCatalogue(store, files, files.PathOf(copy));
    ExpectInstrumentsAndParametersOfTheCopy();
}

TEST_P(CatalogueRestoreTest, AFileThatIsNoCatalogueIsRefused) {
    files.Write(u"letter", std::string(2000, 'x'));
    const auto before = Contents(inner);
    EXPECT_EQ(ErrorOf([&] { RestoreCatalogue(store, files, u"letter"); }), RuntimeError::kStore);
    EXPECT_EQ(ErrorOf([&] { RestoreCatalogue(store, files, u"none"); }), RuntimeError::kStore);
    EXPECT_EQ(Contents(inner), before);
    EXPECT_EQ(files.Read(u"letter"), std::string(2000, 'x'));
    EXPECT_FALSE(files.Exists(u"none"));
}

TEST_P(CatalogueRestoreTest, AFailureAnywhereLeavesEverythingAsItWasAndTheStoreUsable) {
    const auto before = Contents(inner);
    store.FailAt(1);  // opening the copy
    EXPECT_NE(ErrorOf([&] { RestoreCatalogue(store, files, copy); }), 0);
    int call = 2 + testing::kIndexCalls;
    for (;; ++call) {
        ASSERT_LT(call, 200);
        store.FailAt(call);
        if (ErrorOf([&] { RestoreCatalogue(store, files, copy); }) == 0) break;
        ASSERT_EQ(Contents(inner), before) << call;
    }
    EXPECT_GT(call, 10 + testing::kIndexCalls);
    ExpectInstrumentsAndParametersOfTheCopy();
}

INSTANTIATE_TEST_SUITE_P(Each, CatalogueBackupTest, ::testing::ValuesIn(CopiedStores()),
                         testing::kNameOfStore);

INSTANTIATE_TEST_SUITE_P(Each, CatalogueRestoreTest, ::testing::ValuesIn(RestoredStores()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
