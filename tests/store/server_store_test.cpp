#include "host_qt/server_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <algorithm>

#include "host_qt/catalogue_store.h"
#include "runtime/runtime_error.h"
#include "store/private_server.h"

namespace commtest {
namespace {

using ::testing::HasSubstr;
using testing::PrivateServer;
using ::testing::SizeIs;

constexpr TextView kLongStatement = u"SELECT pg_sleep(30)";

// What a call raises: "lost", "refused" or nothing, and the words of it.
struct Raised {
    std::string kind;
    std::string words;
};

Raised RaisedBy(const std::function<void()>& call) {
    try {
        call();
        return {};
    } catch (const LostStore& error) {
        return {"lost", ToUtf8(error.Message())};
    } catch (const RuntimeError& error) {
        return {"refused", ToUtf8(error.Message())};
    }
}

// A store of the server, and another eye on it.
class ServerStoreTest : public ::testing::Test {
  protected:
    ServerStoreTest() {
        server.Empty();
        store.Open(server.Address());
        store.Execute(u"CREATE TABLE a (b integer)");
        other.Open(server.Address());
    }
    ~ServerStoreTest() override { EndTheRest(); }

    void EndTheRest() {
        other.Query(
            u"SELECT pg_terminate_backend(pid) From pg_stat_activity Where datname = "
            u"current_database() And pid <> pg_backend_pid()");
    }

    Text Process() { return store.Query(u"SELECT pg_backend_pid()").At(0, 0); }
    Text Rows() { return other.Query(u"SELECT COUNT(*) From a").At(0, 0); }

    // The milliseconds until it was given up.
    qint64 GivenUpAfter(const std::function<void()>& call) {
        QElapsedTimer watch;
        watch.start();
        EXPECT_EQ(RaisedBy(call).kind, "lost");
        return watch.elapsed();
    }

    const PrivateServer& server = PrivateServer::OfTheProgram();
    ServerStore store;
    QtStore other;
};

TEST_F(ServerStoreTest, CallIsWaitedForASecondAndTheNextOneConnectsAnew) {
    const Text process = Process();
    const qint64 given = GivenUpAfter([&] { store.Execute(Text(kLongStatement)); });
    EXPECT_GE(given, 900);
    EXPECT_LT(given, 15000);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_NE(Process(), process);
}

TEST_F(ServerStoreTest, CallOfACaptureIsWaitedForAQuarterOfASecond) {
    qint64 shortest = 1000;  // a busy machine lengthens one or another
    for (int run = 0; run < 20 && shortest >= 900; ++run) {
        const PatienceScope patience(store, Patience::Capture);
        const qint64 given = GivenUpAfter([&] { store.Execute(Text(kLongStatement)); });
        EXPECT_GE(given, run == 0 ? 200 : 100);
        shortest = std::min(shortest, given);
    }
    EXPECT_LT(shortest, 900);
}

TEST_F(ServerStoreTest, CallsOfAnImportAreWaitedForAsLongAsTheyTake) {
    {
        const PatienceScope patience(store, Patience::Unlimited);
        EXPECT_THAT(store.Query(u"SELECT pg_sleep(1.3)").rows, SizeIs(1));
    }
    GivenUpAfter([&] { store.Execute(Text(kLongStatement)); });
}

TEST_F(ServerStoreTest, RefusedStatementKeepsItsConnection) {
    const Text process = Process();
    const Raised raised = RaisedBy([&] { store.Query(u"SELECT * From nowhere"); });
    EXPECT_EQ(raised.kind, "refused");
    EXPECT_THAT(raised.words, HasSubstr("\"nowhere\" does not exist"));
    EXPECT_EQ(Process(), process);
}

TEST_F(ServerStoreTest, BrokenConnectionIsLostWithTheEnginesTextAndTheNextCallConnectsAnew) {
    EndTheRest();
    const Raised raised = RaisedBy([&] { Process(); });
    EXPECT_EQ(raised.kind, "lost");
    EXPECT_THAT(raised.words, HasSubstr("terminating connection"));
    EXPECT_NE(Process(), u"");
}

TEST_F(ServerStoreTest, LostTransactionStaysLostUntilItsRollback) {
    store.BeginTransaction();
    store.Execute(u"INSERT INTO a VALUES (1)");
    EndTheRest();
    EXPECT_EQ(RaisedBy([&] { store.Execute(u"INSERT INTO a VALUES (2)"); }).kind, "refused");
    EXPECT_EQ(RaisedBy([&] { store.Execute(u"INSERT INTO a VALUES (3)"); }).kind, "lost");
    EXPECT_EQ(RaisedBy([&] { store.Commit(); }).kind, "lost");
    EXPECT_EQ(RaisedBy([&] { store.Rollback(); }).kind, "");
    EXPECT_EQ(Rows(), u"0");
    store.Execute(u"INSERT INTO a VALUES (4)");
    EXPECT_EQ(Rows(), u"1");
}

TEST_F(ServerStoreTest, TransactionThatWasGivenUpLeavesNothing) {
    store.BeginTransaction();
    store.Execute(u"INSERT INTO a VALUES (1)");
    GivenUpAfter([&] { store.Execute(Text(kLongStatement)); });
    EXPECT_EQ(RaisedBy([&] { store.Execute(u"INSERT INTO a VALUES (2)"); }).kind, "lost");
    EXPECT_EQ(RaisedBy([&] { store.Rollback(); }).kind, "");
    store.Execute(u"INSERT INTO a VALUES (3)");
    EXPECT_EQ(Rows(), u"1");
}

TEST_F(ServerStoreTest, EndIsNotKeptByACallThatHangs) {
    QElapsedTimer watch;
    auto hanging = std::make_unique<ServerStore>();
    hanging->Open(server.Address());
    GivenUpAfter([&] { hanging->Execute(Text(kLongStatement)); });
    watch.start();
    hanging.reset();
    EXPECT_LT(watch.elapsed(), 10000);
}

TEST_F(ServerStoreTest, CursorGivesManyRowsInTheirOrder) {
    const auto rows = store.OpenCursor(u"SELECT n,NULL From generate_series(1,1234) n");
    EXPECT_EQ(rows->Columns(), 2U);
    int expected = 0;
    while (rows->Next()) {
        ASSERT_EQ(ToUtf8(rows->At(0)), std::to_string(++expected));
        ASSERT_EQ(rows->ValueAt(1), std::nullopt);
    }
    EXPECT_EQ(expected, 1234);
}

TEST_F(ServerStoreTest, CursorOfALostConnectionRaises) {
    const auto rows = store.OpenCursor(u"SELECT n From generate_series(1,1234) n");
    ASSERT_TRUE(rows->Next());
    GivenUpAfter([&] { store.Execute(Text(kLongStatement)); });
    EXPECT_EQ(RaisedBy([&] {
                  while (rows->Next()) {
                  }
              }).kind,
              "lost");
}

TEST_F(ServerStoreTest, ClosedOneRunsNothing) {
    store.Close();
    EXPECT_EQ(RaisedBy([&] { Process(); }).words, "数据库没有打开");
}

TEST_F(ServerStoreTest, StoreOfTheProgramsIsAFileOrAServer) {
    const QTemporaryDir folder;
    CatalogueStore either;
    either.Open({StoreAddress::Kind::NewFile, folder.filePath(QStringLiteral("a")).toStdU16String(), {}});
    EXPECT_EQ(either.Engine(), StoreEngine::Sqlite);
    either.Open(server.Address());
    EXPECT_EQ(either.Engine(), StoreEngine::PostgreSql);
    EXPECT_EQ(either.Query(u"SELECT COUNT(*) From a").At(0, 0), u"0");
    const auto another = either.Another();
    another->Open(server.Address());
    EXPECT_EQ(another->Engine(), StoreEngine::PostgreSql);
}

}  // namespace
}  // namespace commtest
