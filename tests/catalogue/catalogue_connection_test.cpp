#include "catalogue/catalogue_connection.h"

#include <gtest/gtest.h>

#include "app/session.h"
#include "catalogue/catalogue_schema.h"
#include "runtime/runtime_error.h"
#include "support/fakes.h"
#include "support/sqlite_store.h"
#include "support/virtual_line.h"

namespace commtest {
namespace {

const Text kLocalFile = u"folder/通讯数据.mdb";

class CatalogueConnectionTest : public ::testing::Test {
  protected:
    CatalogueConnectionTest() { session.Form().StatusBar1[0].Set(u"衡岫仪器公司"); }

    std::string Panel() { return ToUtf8(session.Form().StatusBar1[0].Value()); }

    testing::VirtualLine line;
    testing::FakeDialogs dialogs;
    testing::FakeProgramFiles files;
    testing::FakeSettings settings;
    testing::SqliteStore store;
    testing::FakeProgram program;
    Session session{{line, dialogs, line, files, store, settings, program}};
};

TEST_F(CatalogueConnectionTest, LocalModeOpensTheFileInTheProgramFolder) {
    store.Offer(kLocalFile, CreateCatalogueTables);
    OpenCatalogue(session.Form(), 1);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    本地数据库");
}

TEST_F(CatalogueConnectionTest, NetworkModeJoinsTheFirstFourLinesOfTheServerFile) {
    files.TextFiles[u"Setup.ini"] =
        u"服务器: 192.168.0.5 \r\n用户 sa\r\n密码  a b\r\n数据库 commtest\r\n其它 x\r\n";
    store.Offer(u"driver={SQL Server};Server=192.168.0.5;uid=sa;pwd=a b;database=commtest",
                CreateCatalogueTables);
    OpenCatalogue(session.Form(), 0);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    网络数据库");
}

TEST_F(CatalogueConnectionTest, LineOfTheServerFileWithoutABlankHasNoValue) {
    files.TextFiles[u"Setup.ini"] = u"server host\nuser\npassword secret\n\nlast";
    EXPECT_EQ(ToUtf8(ServerCatalogue(files).location),
              "driver={SQL Server};Server=host;uid=;pwd=secret;database=");
}

TEST_F(CatalogueConnectionTest, ServerFileOfFewerThanFourLinesIsUnreadable) {
    store.Offer(u"driver={SQL Server};Server=host;uid=sa;pwd=secret;database=d", CreateCatalogueTables);
    for (const Text& file : {Text(u""), Text(u"server host\nuser sa\npassword secret"),
                             Text(u"server host\r\nuser sa\r\npassword secret\r\n")}) {
        SCOPED_TRACE(ToUtf8(file));
        files.TextFiles[u"Setup.ini"] = file;
        try {
            ServerCatalogue(files);
            ADD_FAILURE() << "read";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), 62);
        }
        OpenCatalogue(session.Form(), 0);
        EXPECT_FALSE(store.IsOpen());
    }
}

TEST_F(CatalogueConnectionTest, FourLinesOfTheServerFileAreEnough) {
    for (const Text& file : {Text(u"server host\nuser sa\npassword secret\ndatabase d"),
                             Text(u"server host\r\nuser sa\r\npassword secret\r\ndatabase d\r\n"),
                             Text(u"server host\nuser sa\npassword secret\ndatabase d\n\n")}) {
        files.TextFiles[u"Setup.ini"] = file;
        EXPECT_EQ(ToUtf8(ServerCatalogue(files).location),
                  "driver={SQL Server};Server=host;uid=sa;pwd=secret;database=d");
    }
}

TEST_F(CatalogueConnectionTest, MissingLocalFileLeavesTheStoreClosedAndIsPassedOver) {
    OpenCatalogue(session.Form(), 1);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    本地数据库");
    EXPECT_TRUE(dialogs.Shown.empty());
}

TEST_F(CatalogueConnectionTest, MissingServerFileLeavesTheStoreClosed) {
    EXPECT_THROW(ServerCatalogue(files), RuntimeError);
    OpenCatalogue(session.Form(), 0);
    EXPECT_FALSE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    网络数据库");
}

TEST_F(CatalogueConnectionTest, FallingBackToTheLocalFileAddsItsWordBehindThatOfTheFailedOpen) {
    store.Offer(kLocalFile, CreateCatalogueTables);
    OpenCatalogue(session.Form(), 0);
    OpenCatalogue(session.Form(), 1);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    网络数据库    本地数据库");
}

TEST_F(CatalogueConnectionTest, ReasonWhyTheServerWasNotOpenedOutlastsTheLocalFile) {
    store.Offer(kLocalFile, CreateCatalogueTables);
    OpenCatalogue(session.Form(), 0);
    OpenCatalogue(session.Form(), 1);
    EXPECT_EQ(ToUtf8(session.Form().ServerProblem), "实时错误 '53':\r\n\r\n文件未找到");
    files.TextFiles[u"Setup.ini"] = u"server host\nuser sa\npassword secret\ndatabase d";
    OpenCatalogue(session.Form(), 0);
    EXPECT_EQ(ToUtf8(session.Form().ServerProblem), "数据库错误:\r\n\r\nno server answers");
    store.Offer(u"driver={SQL Server};Server=host;uid=sa;pwd=secret;database=d", CreateCatalogueTables);
    OpenCatalogue(session.Form(), 0);
    EXPECT_EQ(ToUtf8(session.Form().ServerProblem), "");
}

TEST_F(CatalogueConnectionTest, AnyOtherModeOpensTheLocalFileUnderTheNetworksWord) {
    store.Offer(kLocalFile, CreateCatalogueTables);
    OpenCatalogue(session.Form(), 7);
    EXPECT_TRUE(store.IsOpen());
    EXPECT_EQ(Panel(), "衡岫仪器公司    网络数据库");
}

TEST_F(CatalogueConnectionTest, AFileThatIsNoCatalogueStaysClosed) {
    store.Offer(kLocalFile, [](Store& foreign) { foreign.Execute(u"CREATE TABLE letters (a TEXT)"); });
    OpenCatalogue(session.Form(), 1);
    EXPECT_FALSE(store.IsOpen());
}

}  // namespace
}  // namespace commtest
