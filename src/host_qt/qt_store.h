#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "host/store.h"

namespace commtest {

// Where statements go.
struct StoreSource {
    StoreEngine engine = StoreEngine::Sqlite;
    Text file;  // that was accepted, and may be written; empty for a server
};

// A connection that stands in no list of the toolkit's, which would close it, and wait for it, at the end of
// the program.
class UnlistedConnection : public QSqlDatabase {
  public:
    UnlistedConnection() = default;
    explicit UnlistedConnection(const QString& driver) : QSqlDatabase(driver) {}
};

// The store over QtSql: a local file is of SQLite, a server is reached through ODBC, and refused by its name
// if it is of an engine that no page of statements is for. Several live in one process; needs a
// QCoreApplication. It is used on the thread on which it was opened.
class QtStore : public Store {
  public:
    QtStore() = default;
    QtStore(const QtStore&) = delete;
    QtStore& operator=(const QtStore&) = delete;
    ~QtStore() override;

    void Open(const StoreAddress& address) override;
    void Close() override;
    bool IsOpen() const override { return open_; }

    StoreEngine Engine() const override { return source_.engine; }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override;
    void Execute(const Text& sql) override;
    StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) override;
    void Execute(const Text& sql, const std::vector<StoreValue>& values) override;
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override;
    // Rows that have the same columns, so many a statement, and what is left in one more.
    static std::size_t RowsAStatement(const std::vector<Text>& columns);
    void AddRows(const Text& table, const std::vector<Text>& columns,
                 std::span<const std::vector<StoreValue>> rows);

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    std::unique_ptr<Store> Another() const override { return std::make_unique<QtStore>(); }

  private:
    // The statement of an AddRow, for the next one of the same table and columns.
    struct PreparedRow {
        Text table;
        std::vector<Text> columns;
        QStringList marks;
        std::vector<bool> isBound;
        std::vector<StoreValue> values;  // the query holds views of them
        QSqlQuery query;

        void Bind(std::size_t column, const StoreValue& value);
    };

    // The statement of so many rows.
    struct PreparedRows {
        Text table;
        std::vector<Text> columns;
        std::size_t count = 0;
        QSqlQuery query;
    };

    void OpenFile(const StoreAddress& address);
    void OpenNewFile(const StoreAddress& address);
    void ConnectToFile(const QString& uri);
    void ConnectToServer(const QString& connection);
    void Connect(const QString& driver, const QString& database, const QString& options);
    void CommitToLog();
    void BringLogIntoFile();
    PreparedRow& PreparedFor(const Text& table, const std::vector<Text>& columns);
    QSqlQuery& PreparedFor(const Text& table, const std::vector<Text>& columns, std::size_t count);
    QSqlQuery& PreparedAnew(const Text& table, const std::vector<Text>& columns, std::size_t count);
    QSqlQuery Prepared(const QString& sql);
    QSqlQuery Run(const Text& sql);
    QSqlQuery Run(const Text& sql, const std::vector<StoreValue>& values);
    QSqlDatabase Connection() const;
    bool IsFile() const { return !source_.file.empty(); }

    UnlistedConnection connection_;
    bool open_ = false;
    StoreSource source_;
    bool commitsToLog_ = false;
    bool inTransaction_ = false;
    std::optional<PreparedRow> preparedRow_;
    std::deque<PreparedRows> preparedRows_;  // the last ones
};

}  // namespace commtest
