#include "support/sqlite_store.h"
#include "support/stores_under_test.h"

namespace commtest::testing {

const std::vector<StoreUnderTest>& StoresUnderTest() {
    static const std::vector<StoreUnderTest> stores = {
        {"Memory", StoreEngine::Sqlite, [] {
             auto store = std::make_unique<SqliteStore>();
             store->Open({StoreAddress::Kind::LocalFile, u":memory:", {}});
             return store;
         }}};
    return stores;
}

}  // namespace commtest::testing
