#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <optional>

#include "host/store.h"

namespace commtest {

// The store over QtSql: a local file is of SQLite, a server is reached through ODBC. Several live in one
// process; needs a QCoreApplication.
class QtStore : public Store {
  public:
    QtStore();
    QtStore(const QtStore&) = delete;
    QtStore& operator=(const QtStore&) = delete;
    ~QtStore() override;

    void Open(const StoreAddress& address) override;
    void Close() override;
    bool IsOpen() const override { return open_; }

    StoreEngine Engine() const override { return engine_; }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override;
    void Execute(const Text& sql) override;
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override;

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    std::unique_ptr<Store> Another() const override { return std::make_unique<QtStore>(); }

  private:
    void OpenFile(const StoreAddress& address);
    void OpenNewFile(const StoreAddress& address);
    void ConnectToFile(const QString& uri);
    void Connect(const QString& driver, const QString& database, const QString& options);
    QSqlQuery Run(const Text& sql);
    QSqlDatabase Connection() const;

    QString connectionName_;
    StoreEngine engine_ = StoreEngine::Sqlite;
    bool open_ = false;
    QString preparedSql_;                   // of preparedRow_
    std::optional<QSqlQuery> preparedRow_;  // the last AddRow, for the next of the same table
};

}  // namespace commtest
