#pragma once

#include <sqlite3.h>

#include <functional>
#include <map>
#include <memory>

#include "host/store.h"

namespace commtest::testing {

// The store over the C interface of SQLite, for tests without a toolkit. Closed at first.
class SqliteStore : public Store {
  public:
    // Open finds a database in memory under this location, made anew and filled at each open.
    void Offer(const Text& location, std::function<void(Store&)> fill) {
        offers_[location] = std::move(fill);
    }

    void Open(const StoreAddress& address) override;
    void Close() override { connection_.reset(); }
    bool IsOpen() const override { return connection_ != nullptr; }

    StoreEngine Engine() const override { return StoreEngine::Sqlite; }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override;
    void Execute(const Text& sql) override;
    StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) override;
    void Execute(const Text& sql, const std::vector<StoreValue>& values) override { Query(sql, values); }
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override;

    void BeginTransaction() override { Execute(u"BEGIN"); }
    void Commit() override { Execute(u"COMMIT"); }
    void Rollback() override { Execute(u"ROLLBACK"); }

    std::unique_ptr<Store> Another() const override { return std::make_unique<SqliteStore>(); }

  private:
    struct CloseConnection {
        void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
    };
    struct FinishStatement {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, FinishStatement>;

    void Connect(const std::string& file, int flags = SQLITE_OPEN_READWRITE);
    Statement Prepare(const Text& sql);
    bool Step(const Statement& statement);  // false at the end
    [[noreturn]] void Raise() const;

    std::unique_ptr<sqlite3, CloseConnection> connection_;
    std::map<Text, std::function<void(Store&)>> offers_;
};

// Open stores in memory: with the tables of a catalogue only, or with the shipped catalogue.
std::unique_ptr<SqliteStore> MakeEmptyCatalogue();
std::unique_ptr<SqliteStore> MakeShippedCatalogue();

}  // namespace commtest::testing
