#include <QFile>
#include <QTemporaryDir>
#include <optional>

#include "host_qt/catalogue_store.h"
#include "store/private_server.h"
#include "support/stores_under_test.h"

namespace commtest::testing {

namespace {

// A file that goes with its store.
class FileStore : public QtStore {
  public:
    FileStore() {
        Open({StoreAddress::Kind::NewFile, folder_.filePath(QStringLiteral("a.mdb")).toStdU16String(), {}});
    }
    ~FileStore() override { Close(); }

  private:
    QTemporaryDir folder_;
};

std::unique_ptr<Store> MakeBareServer() {
    const PrivateServer& server = PrivateServer::OfTheProgram();
    server.Empty();
    auto store = std::make_unique<CatalogueStore>();
    store->Open(server.Address());
    return store;
}

}  // namespace

const std::vector<StoreUnderTest>& StoresUnderTest() {
    static const std::vector<StoreUnderTest> stores = {
        {"File", StoreEngine::Sqlite, [] { return std::make_unique<FileStore>(); }},
        {"Server", StoreEngine::PostgreSql, MakeBareServer}};
    return stores;
}

}  // namespace commtest::testing
