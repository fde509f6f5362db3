#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLocalServer>

#include "catalogue/catalogue_schema.h"
#include "catalogue/shipped_catalogue.h"
#include "host_qt/catalogue_store.h"
#include "runtime/runtime_error.h"
#include "store/private_server.h"

namespace commtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using testing::PrivateServer;

// Why a server cannot be opened; empty if it can.
std::string RefusalOf(const StoreAddress& address) {
    CatalogueStore store;
    try {
        store.Open(address);
        return "";
    } catch (const RuntimeError& error) {
        EXPECT_FALSE(store.IsOpen());
        return ToUtf8(error.Message());
    }
}

TEST(ServerConnection, TheConnectionStringOfSetupIniLeadsToTheCatalogue) {
    const PrivateServer& server = PrivateServer::OfTheProgram();
    server.Empty();
    QtStore filled;
    filled.Open(server.Address());
    FillWithShippedCatalogue(filled);
    QtStore store;
    store.Open(server.Address(CatalogueTables()));
    EXPECT_EQ(store.Engine(), StoreEngine::PostgreSql);
    EXPECT_EQ(ToUtf8(store.Query(u"SELECT 字段 From 表格_设置 Where 使用 ='数据类型' And 列号 = 3").At(0, 0)),
              "IEEE-754单精度浮点数");
}

TEST(ServerConnection, AServerWithoutACatalogueIsRefused) {
    const PrivateServer& server = PrivateServer::OfTheProgram();
    server.Empty();
    EXPECT_THAT(RefusalOf(server.Address(CatalogueTables())), HasSubstr("不是仪表通讯数据库"));
}

TEST(ServerConnection, AWrongPasswordIsRefusedWithTheServersTextAndNotShown) {
    const std::string refusal = RefusalOf(PrivateServer::OfTheProgram().AddressOf(
        QStringLiteral("workshop_owner"), QStringLiteral("wrong-Word7")));
    EXPECT_THAT(refusal, HasSubstr("password authentication failed for user \"workshop_owner\""));
    EXPECT_THAT(refusal, Not(HasSubstr("wrong-Word7")));
}

TEST(ServerConnection, AnEngineThatIsNoneOfTheKnownIsRefusedByItsName) {
    PrivateServer::OfTheProgram();
    const QTemporaryDir folder;
    const QString text =
        QStringLiteral("driver={Other Engine};database=%1").arg(folder.filePath(QStringLiteral("a")));
    EXPECT_EQ(RefusalOf({StoreAddress::Kind::Server, text.toStdU16String(), {}}),
              "不支持数据库 SQLite，只支持 SQL Server 和 PostgreSQL");
}

// It takes the connection and never says a word.
TEST(ServerConnection, ASilentServerIsGivenUpAfterFiveSeconds) {
    PrivateServer::OfTheProgram();
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(QStringLiteral(".s.PGSQL.5432"))));
    const QString text =
        QStringLiteral("driver={SQL Server};Server=%1;uid=a;pwd=silent-Word7;database=b").arg(folder.path());
    QElapsedTimer watch;
    watch.start();
    const std::string refusal = RefusalOf({StoreAddress::Kind::Server, text.toStdU16String(), {}});
    EXPECT_LT(watch.elapsed(), 20000);
    EXPECT_FALSE(refusal.empty());
    EXPECT_THAT(refusal, Not(HasSubstr("silent-Word7")));
}

}  // namespace
}  // namespace commtest
