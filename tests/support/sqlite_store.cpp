#include "support/sqlite_store.h"

#include <filesystem>

#include "catalogue/catalogue_schema.h"
#include "catalogue/shipped_catalogue.h"
#include "runtime/runtime_error.h"

namespace commtest::testing {

namespace {

constexpr const char* kInMemory = ":memory:";

Text TextOf(const void* text16) { return text16 ? Text(static_cast<const char16_t*>(text16)) : Text(); }

StoreValue ColumnOf(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) return std::nullopt;
    return TextOf(sqlite3_column_text16(statement, column));
}

void Bind(sqlite3_stmt* statement, int position, const StoreValue& value) {
    if (!value) {
        sqlite3_bind_null(statement, position);
    } else {
        const auto bytes = static_cast<int>(value->size() * sizeof(char16_t));
        sqlite3_bind_text16(statement, position, value->data(), bytes, SQLITE_TRANSIENT);
    }
}

}  // namespace

void SqliteStore::Open(const StoreAddress& address) {
    Close();
    try {
        const auto offer = offers_.find(address.location);
        if (offer != offers_.end()) {
            Connect(kInMemory);
            offer->second(*this);
        } else if (address.kind == StoreAddress::Kind::LocalFile) {
            Connect(ToUtf8(address.location));
        } else if (address.kind == StoreAddress::Kind::NewFile) {
            if (std::filesystem::exists(ToUtf8(address.location))) {
                throw RuntimeError::OfStore(u"the file is there");
            }
            Connect(ToUtf8(address.location), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        } else {
            throw RuntimeError::OfStore(u"no server answers");
        }
        RequireTables(*this, address.tables);
    } catch (...) {
        Close();
        throw;
    }
}

void SqliteStore::Connect(const std::string& file, int flags) {
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (result != SQLITE_OK) Raise();
    Execute(u"PRAGMA foreign_keys=ON");
}

StoreRows SqliteStore::Query(const Text& sql) { return Query(sql, {}); }

StoreRows SqliteStore::Query(const Text& sql, const std::vector<StoreValue>& values) {
    const Statement statement = Prepare(sql);
    for (std::size_t i = 0; i < values.size(); ++i) Bind(statement.get(), static_cast<int>(i) + 1, values[i]);
    StoreRows result;
    const int columns = sqlite3_column_count(statement.get());
    for (int i = 0; i < columns; ++i)
        result.columns.push_back(TextOf(sqlite3_column_name16(statement.get(), i)));
    while (Step(statement)) {
        std::vector<StoreValue> row;
        for (int i = 0; i < columns; ++i) row.push_back(ColumnOf(statement.get(), i));
        result.rows.push_back(std::move(row));
    }
    return result;
}

std::unique_ptr<RowCursor> SqliteStore::OpenCursor(const Text& sql) {
    class Cursor : public RowCursor {
      public:
        Cursor(SqliteStore& store, Statement statement) : store_(store), statement_(std::move(statement)) {}
        bool Next() override { return store_.Step(statement_); }
        std::size_t Columns() const override {
            return static_cast<std::size_t>(sqlite3_column_count(statement_.get()));
        }
        StoreValue ValueAt(std::size_t column) const override {
            return ColumnOf(statement_.get(), static_cast<int>(column));
        }

      private:
        SqliteStore& store_;
        Statement statement_;
    };
    return std::make_unique<Cursor>(*this, Prepare(sql));
}

void SqliteStore::Execute(const Text& sql) {
    const Statement statement = Prepare(sql);
    while (Step(statement)) {
    }
}

void SqliteStore::AddRow(const Text& table, const std::vector<Text>& columns,
                         const std::vector<StoreValue>& values) {
    Text names;
    Text marks;
    for (const Text& column : columns) {
        names += (names.empty() ? u"" : u",") + column;
        marks += marks.empty() ? u"?" : u",?";
    }
    const Statement statement =
        Prepare(u"INSERT INTO " + table + u" (" + names + u") VALUES (" + marks + u")");
    for (std::size_t i = 0; i < values.size(); ++i) Bind(statement.get(), static_cast<int>(i) + 1, values[i]);
    Step(statement);
}

SqliteStore::Statement SqliteStore::Prepare(const Text& sql) {
    if (!IsOpen()) throw RuntimeError::OfStore(u"数据库没有打开");
    sqlite3_stmt* statement = nullptr;
    const auto bytes = static_cast<int>(sql.size() * sizeof(char16_t));
    if (sqlite3_prepare16_v2(connection_.get(), sql.data(), bytes, &statement, nullptr) != SQLITE_OK) Raise();
    return Statement(statement);
}

bool SqliteStore::Step(const Statement& statement) {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) Raise();
    return result == SQLITE_ROW;
}

void SqliteStore::Raise() const { throw RuntimeError::OfStore(FromUtf8(sqlite3_errmsg(connection_.get()))); }

std::unique_ptr<SqliteStore> MakeEmptyCatalogue() {
    auto store = std::make_unique<SqliteStore>();
    store->Open({StoreAddress::Kind::LocalFile, FromUtf8(kInMemory), {}});
    CreateCatalogueTables(*store);
    return store;
}

std::unique_ptr<SqliteStore> MakeShippedCatalogue() {
    auto store = std::make_unique<SqliteStore>();
    store->Open({StoreAddress::Kind::LocalFile, FromUtf8(kInMemory), {}});
    FillWithShippedCatalogue(*store);
    return store;
}

}  // namespace commtest::testing
