#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "runtime/runtime_error.h"
#include "runtime/text.h"

namespace commtest {

enum class StoreEngine { Sqlite, SqlServer, PostgreSql };

// Where a store is: a file of the embedded engine, or the connection string of a server.
struct StoreAddress {
    enum class Kind { LocalFile, NewFile, Server };
    Kind kind = Kind::LocalFile;
    Text location;             // path of the file, or the connection string
    std::vector<Text> tables;  // what a store must hold to be taken; empty takes any
};

using StoreValue = std::optional<Text>;  // nothing for a null

// True for names of one column. Latin letters are equal in both sizes: of all columns ("*") an engine may
// give them in small ones.
bool IsSameColumn(TextView one, TextView other);

// The result of one query, read to its end. Columns and rows count from 0.
struct StoreRows {
    std::vector<Text> columns;
    std::vector<std::vector<StoreValue>> rows;

    // Index of a column by its name without its table, -1 if there is none.
    int ColumnOf(TextView name) const;

    // A value as text, a null as the empty text; error 9 outside the result.
    Text At(std::size_t row, std::size_t column) const;
};

// The rows of one query, of which no more than one is held. While it stands, its store runs nothing else.
class RowCursor {
  public:
    virtual ~RowCursor() = default;

    // The next row, the first one at first; false behind the last.
    virtual bool Next() = 0;

    virtual std::size_t Columns() const = 0;
    virtual StoreValue ValueAt(std::size_t column) const = 0;

    // A value of the row as text, a null as the empty text.
    Text At(std::size_t column) const { return ValueAt(column).value_or(Text()); }
};

// A store whose file is damaged.
class DamagedStore : public RuntimeError {
  public:
    explicit DamagedStore(Text words) : RuntimeError(RuntimeError::OfStore(std::move(words))) {}
};

// A server that did not answer in time, or whose connection has broken. The next call connects anew.
class LostStore : public RuntimeError {
  public:
    explicit LostStore(Text words) : RuntimeError(RuntimeError::OfStore(std::move(words))) {}
};

// A store that lacks a table which it must hold, with the engine's text; from an opening with the program's
// words.
class NoCatalogue : public RuntimeError {
  public:
    explicit NoCatalogue(Text words) : RuntimeError(RuntimeError::OfStore(std::move(words))) {}
};

// How long a call to a server is waited for; a file is always waited for.
enum class Patience {
    Usual,      // 1 s
    Capture,    // 250 ms: the line goes on meanwhile
    Unlimited,  // of who brings or takes many rows
};

// One connection to the catalogue's store. A statement that fails raises the store's run-time error with the
// engine's text (RuntimeError::OfStore); so does every statement while the store is closed. Where one
// fails within a transaction of a server, all behind it do, until the rollback.
class Store {
  public:
    virtual ~Store() = default;

    // Makes a file only where a new one is wanted, which must not be there yet. Counts as open only after one
    // statement has run; a store without the tables of the address is refused, and its file is not written. A
    // server is given up after 5 seconds.
    virtual void Open(const StoreAddress& address) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    virtual StoreEngine Engine() const = 0;

    virtual StoreRows Query(const Text& sql) = 0;
    virtual std::unique_ptr<RowCursor> OpenCursor(const Text& sql) = 0;
    virtual void Execute(const Text& sql) = 0;

    // With a value for each "?" of the statement; they go in as data, not as part of it.
    virtual StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) = 0;
    virtual void Execute(const Text& sql, const std::vector<StoreValue>& values) = 0;

    // Adds one row; values go in as data, not as part of the statement. In a transaction of a server the rows
    // are collected and go out many at a time, table by table as the transaction has added to them first:
    // what is wrong with one is raised by a later call, the commit at the latest.
    virtual void AddRow(const Text& table, const std::vector<Text>& columns,
                        const std::vector<StoreValue>& values) = 0;

    virtual void BeginTransaction() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;

    // A second connection of the same kind, closed.
    virtual std::unique_ptr<Store> Another() const = 0;

    // How long calls are waited for from now on; how long they were. Said by a PatienceScope.
    virtual Patience Wait(Patience) { return Patience::Usual; }

    // Whether a query that is asked again may be answered with the rows that it gave; whether it could until
    // now. Said by a SameAnswersScope.
    virtual bool KeepAnswers(bool) { return false; }
};

// While it stands, the calls of a store are waited for so long.
class PatienceScope {
  public:
    PatienceScope(Store& store, Patience patience) : store_(store), former_(store.Wait(patience)) {}
    PatienceScope(const PatienceScope&) = delete;
    PatienceScope& operator=(const PatienceScope&) = delete;
    ~PatienceScope() { store_.Wait(former_); }

  private:
    Store& store_;
    Patience former_;
};

// While it stands, a query without values that is asked again is answered with the rows that it gave, until
// this store is written or opened: for a routine that asks the same several times within a moment.
class SameAnswersScope {
  public:
    explicit SameAnswersScope(Store& store) : store_(store), former_(store.KeepAnswers(true)) {}
    SameAnswersScope(const SameAnswersScope&) = delete;
    SameAnswersScope& operator=(const SameAnswersScope&) = delete;
    ~SameAnswersScope() { store_.KeepAnswers(former_); }

  private:
    Store& store_;
    bool former_;
};

// Runs one statement on each of the tables. A store that lacks one of them raises NoCatalogue; a DamagedStore
// and a LostStore pass.
void RequireTables(Store& store, const std::vector<Text>& tables);

// False where it lacks one; a LostStore passes. Asked not within a transaction: a server ends one over it.
bool HasTables(Store& store, const std::vector<Text>& tables);

}  // namespace commtest
