#include "host_qt/qt_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <functional>

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "host_qt/folder_files.h"
#include "host_qt/program_folder.h"
#include "runtime/runtime_error.h"
#include "support/failing_store.h"
#include "support/statement_table.h"

namespace commtest {
namespace {

using namespace Qt::StringLiterals;

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::NamedStatement;
using ::testing::SizeIs;

constexpr const char* kCatalogue = "通讯数据.mdb";
constexpr char kWrittenInPlace = 1;  // at 18 of a file of the embedded engine: it has no log

// A warning of the toolkit says that the store misuses it.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg) ADD_FAILURE() << text.toStdString();
}

class QtStoreTest : public ::testing::Test {
  protected:
    QtStoreTest() { qInstallMessageHandler(FailOnWarning); }
    ~QtStoreTest() override {
        store.Close();
        qInstallMessageHandler(nullptr);
    }

    QString PathOf(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    StoreAddress AddressOf(const char* name) const {
        return {StoreAddress::Kind::LocalFile, PathOf(name).toStdU16String(), CatalogueTables()};
    }

    void CreateCatalogue() const {
        ASSERT_TRUE(CreateProgramFolder(folder.path().toStdU16String(), FillWithShippedCatalogue));
    }

    void Write(const char* name, const QByteArray& bytes) const {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray Read(const char* name) const {
        QFile file(PathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList FilesInFolder() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    // Why the store cannot be opened; empty if it can.
    static std::string RefusalOf(Store& refused, const StoreAddress& address) {
        try {
            refused.Open(address);
            return "";
        } catch (const RuntimeError& error) {
            EXPECT_FALSE(refused.IsOpen());
            EXPECT_EQ(error.Number(), RuntimeError::kStore);
            return ToUtf8(error.Message());
        }
    }

    static std::size_t RowsWith(Store& asked, const Text& character) {
        return asked.Query(u"SELECT 新字符 From 字符_替换 Where 原字符 = '" + character + u"'").rows.size();
    }

    QTemporaryDir folder{QDir::tempPath() + QString::fromUtf8("/a 仪表 XXXXXX")};
    QtStore store;
};

TEST_F(QtStoreTest, ReadsTheShippedCatalogue) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(store.Engine(), StoreEngine::Sqlite);
    const StoreRows types = InstrumentCatalogue(store).DataTypeList();
    ASSERT_THAT(types.rows, SizeIs(11));
    EXPECT_EQ(ToUtf8(types.columns[0]), "字段");
    EXPECT_EQ(ToUtf8(types.At(3, 0)), "IEEE-754单精度浮点数");
    const std::vector<ProtocolRecord> protocols = InstrumentCatalogue(store).ProtocolList();
    ASSERT_THAT(protocols, SizeIs(14));
    EXPECT_EQ(ToUtf8(protocols[12].name), "TQ特殊仪表协议-HCT615D");
    EXPECT_EQ(protocols[12].Code(), 42);
}

TEST_F(QtStoreTest, AFailingStatementRaisesTheEnginesText) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    try {
        InstrumentCatalogue(store).ParametersOfInstrument(u"O'K");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(ToUtf8(error.StandardMessage()), "数据库错误:\r\n\r\nnear \"K\": syntax error");
    }
}

TEST_F(QtStoreTest, SeveralStoresLiveSideBySide) {
    CreateCatalogue();
    QtStore other;
    store.Open(AddressOf(kCatalogue));
    other.Open(AddressOf(kCatalogue));
    InstrumentCatalogue(other).AddClass(u"新类别", 90);
    other.Close();
    EXPECT_THAT(InstrumentCatalogue(store).Classes().rows, SizeIs(8));
}

TEST_F(QtStoreTest, AStoreMayBeOpenedAnew) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    InstrumentCatalogue(store).AddClass(u"新类别", 90);
    store.Open(AddressOf(kCatalogue));
    InstrumentCatalogue(store).AddClass(u"新类别", 91);
    EXPECT_THAT(InstrumentCatalogue(store).Classes().rows, SizeIs(9));
}

TEST_F(QtStoreTest, AClosedStoreRunsNothing) {
    const std::function<void()> statements[] = {
        [this] { store.Query(u"SELECT 1"); },
        [this] { store.AddRow(u"字符_替换", {u"原字符"}, {Text(u"x")}); },
        [this] { store.BeginTransaction(); },
    };
    for (const auto& statement : statements) {
        try {
            statement();
            FAIL() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(ToUtf8(error.Message()), "数据库没有打开");
        }
    }
}

TEST_F(QtStoreTest, ACursorRaisesTheErrorOfTheRowWhereItComes) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    EXPECT_THROW(store.OpenCursor(u"SELECT * From 没有的表"), RuntimeError);
    const auto cursor = store.OpenCursor(
        u"SELECT abs(a) From (SELECT 1 As a UNION ALL SELECT 2 UNION ALL SELECT -9223372036854775807 - 1)");
    EXPECT_TRUE(cursor->Next());
    EXPECT_TRUE(cursor->Next());
    try {
        cursor->Next();
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::kStore);
        EXPECT_EQ(ToUtf8(error.Message()), "integer overflow");
    }
}

TEST_F(QtStoreTest, AnotherStoreIsClosedAndOfItsOwn) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    const auto another = store.Another();
    EXPECT_FALSE(another->IsOpen());
    another->Open(AddressOf(kCatalogue));
    EXPECT_THAT(InstrumentCatalogue(*another).Classes().rows, SizeIs(7));
    another->Close();
    EXPECT_TRUE(store.IsOpen());
}

TEST_F(QtStoreTest, ANewFileIsMadeAndHoldsItsRelation) {
    const StoreAddress address{StoreAddress::Kind::NewFile, PathOf("新?.mdb").toStdU16String(), {}};
    store.Open(address);
    EXPECT_EQ(store.Engine(), StoreEngine::Sqlite);
    CreateCatalogueTables(store);
    InstrumentCatalogue catalogue(store);
    catalogue.AddInstrument({1, u"A", u"", u"", u"", u"", std::nullopt});
    catalogue.AddParameter({1, 1, u"P", u"", u"", u"", u"", u"", u""});
    catalogue.ClearCatalogue();
    EXPECT_THAT(catalogue.AllParameters().rows, IsEmpty());
    store.Close();
    EXPECT_EQ(RefusalOf(store, AddressOf("新?.mdb")), "");
}

TEST_F(QtStoreTest, ANewFileThatIsThereStaysAsItWas) {
    Write("letter", "Dear reader");
    const std::string refusal =
        RefusalOf(store, {StoreAddress::Kind::NewFile, PathOf("letter").toStdU16String(), {}});
    EXPECT_EQ(refusal, PathOf("letter").toStdString() + "：文件已存在");
    EXPECT_EQ(Read("letter"), "Dear reader");
}

TEST_F(QtStoreTest, ANewFileWithoutTheTablesAskedForDoesNotStay) {
    const StoreAddress address{StoreAddress::Kind::NewFile, PathOf("new").toStdU16String(),
                               CatalogueTables()};
    EXPECT_THAT(RefusalOf(store, address), HasSubstr("no such table: 仪表_类别"));
    EXPECT_THAT(FilesInFolder(), IsEmpty());
}

TEST_F(QtStoreTest, ANewFileThatCannotBeMadeIsRefused) {
    EXPECT_THAT(RefusalOf(store, {StoreAddress::Kind::NewFile, PathOf("none/new").toStdU16String(), {}}),
                HasSubstr("不能建立数据库文件"));
}

TEST_F(QtStoreTest, TheCatalogueIsCopiedBesideItselfAndBroughtBack) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    FolderFiles files(folder.path());
    testing::FailingStore asServer(store);
    asServer.PretendToBe(StoreEngine::SqlServer);
    InstrumentCatalogue catalogue(store);
    const auto parameters = catalogue.AllParameters().rows;
    for (Store* copied : {static_cast<Store*>(&store), static_cast<Store*>(&asServer)}) {
        const Text copy = BackUpCatalogue(*copied, files, {2024, 5, 6, 7, 8, 9});
        catalogue.ClearCatalogue();
        RestoreCatalogue(store, files, copy);
        EXPECT_EQ(catalogue.AllParameters().rows, parameters);
    }
    EXPECT_EQ(FilesInFolder().filter("通讯数据"),
              QStringList({"通讯数据.mdb", "通讯数据.mdb.bak-20240506-070809",
                           "通讯数据.mdb.bak-20240506-070809-2"}));
}

TEST_F(QtStoreTest, AForeignFileIsNotRestored) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    Write("letter", "Dear reader");
    const auto parameters = InstrumentCatalogue(store).AllParameters().rows;
    EXPECT_THROW(RestoreCatalogue(store, FolderFiles(folder.path()), u"letter"), RuntimeError);
    EXPECT_EQ(InstrumentCatalogue(store).AllParameters().rows, parameters);
    EXPECT_EQ(Read("letter"), "Dear reader");
}

// No file can be made in this folder, by whomever.
TEST_F(QtStoreTest, ACopyThatCannotBeWrittenLeavesNothing) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    const QStringList before = FilesInFolder();
    FolderFiles files(QStringLiteral("/proc/self"));
    testing::FailingStore asServer(store);
    asServer.PretendToBe(StoreEngine::SqlServer);
    EXPECT_THROW(BackUpCatalogue(store, files, {2024, 5, 6, 7, 8, 9}), RuntimeError);
    EXPECT_THROW(BackUpCatalogue(asServer, files, {2024, 5, 6, 7, 8, 9}), RuntimeError);
    EXPECT_EQ(FilesInFolder(), before);
    EXPECT_THAT(InstrumentCatalogue(store).Classes().rows, SizeIs(7));
}

TEST_F(QtStoreTest, AMissingFileIsNotMade) {
    EXPECT_EQ(RefusalOf(store, AddressOf(kCatalogue)),
              PathOf(kCatalogue).toStdString() + "：数据库文件不存在");
    EXPECT_THAT(FilesInFolder(), IsEmpty());
}

TEST_F(QtStoreTest, AFolderIsNoCatalogue) {
    EXPECT_THAT(RefusalOf(store, AddressOf(".")), HasSubstr("是文件夹，不是文件"));
}

TEST_F(QtStoreTest, ADamagedFileIsNamedAtTheOpening) {
    CreateCatalogue();
    QByteArray bytes = Read(kCatalogue);
    constexpr qsizetype kHeader = 100;
    bytes.replace(kHeader, bytes.size() - kHeader, QByteArray(bytes.size() - kHeader, 'x'));
    Write(kCatalogue, bytes);
    EXPECT_THROW(store.Open(AddressOf(kCatalogue)), DamagedStore);
    EXPECT_EQ(RefusalOf(store, AddressOf(kCatalogue)),
              PathOf(kCatalogue).toStdString() + "：数据库文件已损坏（database disk image is malformed）");
}

TEST_F(QtStoreTest, DamageThatAStatementMeetsIsToldWithThePath) {
    CreateCatalogue();
    constexpr qsizetype kPage = 4096;
    QByteArray bytes = Read(kCatalogue);
    constexpr qsizetype kHead = 20 * kPage;
    bytes.replace(kHead, bytes.size() - kHead, QByteArray(bytes.size() - kHead, '\xFF'));
    Write(kCatalogue, bytes);
    store.Open(AddressOf(kCatalogue));
    try {
        store.Query(u"SELECT * FROM 仪表_参数");
        ADD_FAILURE() << "read";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(ToUtf8(error.Message()), PathOf(kCatalogue).toStdString() +
                                               "：数据库文件已损坏（database disk image is malformed）");
    }
}

TEST_F(QtStoreTest, AFullDiskIsToldWithThePath) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    store.Query(u"PRAGMA max_page_count=1");  // which leaves those that there are
    try {
        for (int i = 0; i < 100; ++i) store.AddRow(u"仪表_类别", {u"类别"}, {Text(5000, u'x')});
        ADD_FAILURE() << "written";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(ToUtf8(error.Message()),
                  PathOf(kCatalogue).toStdString() + "：磁盘已满（database or disk is full）");
    }
}

TEST_F(QtStoreTest, AFileOfSomethingElseIsRefusedAndStaysAsItWas) {
    const QByteArray letter = QByteArray("Dear reader, this is a letter. ").repeated(400);
    Write(kCatalogue, letter);
    EXPECT_EQ(
        RefusalOf(store, AddressOf(kCatalogue)),
        PathOf(kCatalogue).toStdString() + "：不是仪表通讯数据库，未作任何改动（file is not a database）");
    EXPECT_EQ(Read(kCatalogue), letter);
    EXPECT_THAT(FilesInFolder(), SizeIs(1));
}

TEST_F(QtStoreTest, AnEmptyFileIsRefusedAndStaysEmpty) {
    Write(kCatalogue, "");
    EXPECT_THAT(RefusalOf(store, AddressOf(kCatalogue)), HasSubstr("no such table: 仪表_类别"));
    EXPECT_EQ(QFile(PathOf(kCatalogue)).size(), 0);
}

// A database of another program, left by it in the middle of a transaction: opening it for writing would
// recover it.
TEST_F(QtStoreTest, AForeignDatabaseIsRefusedAndNotEvenRecovered) {
    Write("other.db", "");
    QtStore other;
    other.Open({StoreAddress::Kind::LocalFile, PathOf("other.db").toStdU16String(), {}});
    other.Query(u"PRAGMA journal_mode=WAL");
    other.Execute(u"CREATE TABLE letters (a TEXT)");
    other.Execute(u"INSERT INTO letters VALUES ('x')");
    ASSERT_TRUE(QFile::copy(PathOf("other.db"), PathOf(kCatalogue)));
    ASSERT_TRUE(QFile::copy(PathOf("other.db-wal"), PathOf("通讯数据.mdb-wal")));
    other.Close();
    const QByteArray file = Read(kCatalogue);
    const QByteArray journal = Read("通讯数据.mdb-wal");
    ASSERT_FALSE(journal.isEmpty());

    EXPECT_THAT(RefusalOf(store, AddressOf(kCatalogue)), HasSubstr("no such table: 仪表_类别"));
    EXPECT_EQ(Read(kCatalogue), file);
    EXPECT_EQ(Read("通讯数据.mdb-wal"), journal);
    EXPECT_THAT(FilesInFolder(), SizeIs(3));
}

TEST_F(QtStoreTest, ReadingACatalogueDoesNotWriteIt) {
    CreateCatalogue();
    const QByteArray before = Read(kCatalogue);
    const QStringList filesBefore = FilesInFolder();
    store.Open(AddressOf(kCatalogue));
    InstrumentCatalogue(store).CatalogueList();
    store.Close();
    EXPECT_EQ(Read(kCatalogue), before);
    EXPECT_EQ(FilesInFolder(), filesBefore);
}

TEST_F(QtStoreTest, RowsAddedOneByOneGoToALogAndStandInTheFileAtRest) {
    CreateCatalogue();
    const QStringList filesAtRest = FilesInFolder();
    store.Open(AddressOf(kCatalogue));
    store.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"log"), Text(u"1")});
    EXPECT_TRUE(FilesInFolder().contains(u"通讯数据.mdb-wal"_s));
    EXPECT_EQ(store.Query(u"PRAGMA synchronous").At(0, 0), u"1");  // a commit waits for no disk

    QtStore other;
    other.Open(AddressOf(kCatalogue));
    EXPECT_EQ(RowsWith(other, u"log"), 1U);
    other.Close();

    store.Close();
    EXPECT_EQ(FilesInFolder(), filesAtRest);
    EXPECT_TRUE(Read(kCatalogue).contains("log"));
    EXPECT_EQ(Read(kCatalogue)[18], kWrittenInPlace);
}

TEST_F(QtStoreTest, RowsOfATransactionNeedNoLog) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    store.BeginTransaction();
    store.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"one"), Text(u"1")});
    store.Commit();
    EXPECT_EQ(store.Query(u"PRAGMA journal_mode").At(0, 0), u"delete");
    EXPECT_EQ(RowsWith(store, u"one"), 1U);
    store.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"two"), Text(u"2")});
    EXPECT_EQ(store.Query(u"PRAGMA journal_mode").At(0, 0), u"wal");
}

TEST_F(QtStoreTest, WhatAKilledProgramLeftInTheLogIsThereAtTheNextOpening) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    store.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"log"), Text(u"1")});
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"left"_s));
    ASSERT_TRUE(QFile::copy(PathOf(kCatalogue), PathOf("left/通讯数据.mdb")));
    ASSERT_TRUE(QFile::copy(PathOf("通讯数据.mdb-wal"), PathOf("left/通讯数据.mdb-wal")));

    QtStore next;
    next.Open(AddressOf("left/通讯数据.mdb"));
    EXPECT_EQ(RowsWith(next, u"log"), 1U);
    next.Close();
    EXPECT_EQ(QDir(PathOf("left")).entryList(QDir::Files), QStringList{u"通讯数据.mdb"_s});
    EXPECT_EQ(Read("left/通讯数据.mdb")[18], kWrittenInPlace);
}

TEST_F(QtStoreTest, ALogThatAnotherUsesStaysUntilItsEnd) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    store.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {Text(u"log"), Text(u"1")});
    QtStore other;
    other.Open(AddressOf(kCatalogue));
    EXPECT_EQ(RowsWith(other, u"log"), 1U);
    QElapsedTimer watch;
    watch.start();
    store.Close();
    EXPECT_LT(watch.elapsed(), 2500);  // half the patience with a lock
    EXPECT_EQ(RowsWith(other, u"log"), 1U);
    other.Close();
    EXPECT_EQ(Read(kCatalogue)[18], kWrittenInPlace);
}

TEST_F(QtStoreTest, AServerThatCannotBeReachedIsGivenUp) {
    QElapsedTimer watch;
    watch.start();
    const std::string refusal = RefusalOf(
        store, {StoreAddress::Kind::Server,
                u"driver={SQL Server};Server=127.0.0.1,1;uid=sa;pwd=secret;database=x", CatalogueTables()});
    EXPECT_FALSE(refusal.empty());
    EXPECT_EQ(refusal.find("secret"), std::string::npos);
    EXPECT_LT(watch.elapsed(), 6000);
}

class StatementOnQtStore : public QtStoreTest, public ::testing::WithParamInterface<NamedStatement> {};

TEST_P(StatementOnQtStore, Runs) {
    CreateCatalogue();
    store.Open(AddressOf(kCatalogue));
    EXPECT_NO_THROW(store.Execute(testing::WithArbitraryValues(StatementsOf(store.Engine()), GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Page, StatementOnQtStore, ::testing::ValuesIn(testing::AllStatements()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace commtest
