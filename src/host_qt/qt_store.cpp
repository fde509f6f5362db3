#include "host_qt/qt_store.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QUrl>
#include <QVariant>
#include <algorithm>

#include "host_qt/odbc_engine_name.h"
#include "host_qt/older_catalogue.h"
#include "host_qt/path_problem.h"
#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// A statement waits for a lock of another process, and a silent server is waited for, this long.
constexpr int kPatienceSeconds = 5;

QString ToQt(const Text& text) { return QString::fromStdU16String(text); }

// The results of the embedded engine that speak of its file, not of a statement.
enum class FileResult { None = 0, ReadOnly = 8, Io = 10, Damaged = 11, Full = 13, CannotOpen = 14 };

// The end of a transaction fails with a text alone.
FileResult FileResultOf(const QString& text) {
    if (text == u"database or disk is full") return FileResult::Full;
    if (text == u"disk I/O error") return FileResult::Io;
    return text == u"database disk image is malformed" ? FileResult::Damaged : FileResult::None;
}

FileResult FileResultOf(const QSqlError& error) {
    constexpr int kPrimary = 0xFF;  // the bits of a result without its details
    if (error.nativeErrorCode().isEmpty()) return FileResultOf(error.databaseText());
    const auto result = static_cast<FileResult>(error.nativeErrorCode().toInt() & kPrimary);
    switch (result) {
        case FileResult::ReadOnly:
        case FileResult::Io:
        case FileResult::Damaged:
        case FileResult::Full:
        case FileResult::CannotOpen: return result;
        default: return FileResult::None;
    }
}

QString WordsOn(FileResult result, const QString& text) {
    switch (result) {
        case FileResult::ReadOnly: return Words::tr("没有写数据库文件的权限（%1）").arg(text);
        case FileResult::Damaged: return Words::tr("数据库文件已损坏（%1）").arg(text);
        case FileResult::Full: return Words::tr("磁盘已满（%1）").arg(text);
        case FileResult::Io: return Words::tr("磁盘读写出错（%1）").arg(text);
        default: return text;
    }
}

Text WordsAt(const Text& file, const Text& words) {
    return Words::tr("%1：%2")
        .arg(QString::fromStdU16String(file), QString::fromStdU16String(words))
        .toStdU16String();
}

Text WordsOnNoCatalogue(const NoCatalogue& error) {
    const QString engineText = QString::fromStdU16String(error.Message());
    return Words::tr("不是仪表通讯数据库，未作任何改动（%1）").arg(engineText).toStdU16String();
}

[[noreturn]] void Raise(const QSqlError& error, const StoreSource& source) {
    const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    const FileResult result = source.engine == StoreEngine::Sqlite ? FileResultOf(error) : FileResult::None;
    Text words = WordsOn(result, text.simplified()).toStdU16String();
    if (result != FileResult::None && !source.file.empty()) words = WordsAt(source.file, words);
    if (result == FileResult::Damaged) throw DamagedStore(words);
    throw RuntimeError::OfStore(words);
}

void RaiseUnless(bool done, const QSqlDatabase& connection, const StoreSource& source) {
    if (!done) Raise(connection.lastError(), source);
}

StoreEngine ServerEngineOf(const QSqlDriver& driver) {
    switch (driver.dbmsType()) {
        case QSqlDriver::MSSqlServer: return StoreEngine::SqlServer;
        case QSqlDriver::PostgreSQL: return StoreEngine::PostgreSql;
        default:
            throw RuntimeError::OfStore(Words::tr("不支持数据库 %1，只支持 SQL Server 和 PostgreSQL")
                                            .arg(OdbcEngineName(driver))
                                            .toStdU16String());
    }
}

StoreValue ValueOf(const QVariant& value) {
    if (value.isNull()) return std::nullopt;
    return value.toString().toStdU16String();
}

// Of a text without a copy: it is good for as long as the value is.
QVariant VariantOf(const StoreValue& value) {
    if (!value) return QVariant(QMetaType::fromType<QString>());
    const auto* characters = reinterpret_cast<const QChar*>(value->data());
    return QVariant(QString::fromRawData(characters, static_cast<qsizetype>(value->size())));
}

// The heading as the statement spells it: an engine folds the Latin letters of a name.
Text HeadingOf(const QString& name, const QString& sql) {
    const qsizetype place = sql.indexOf(name, 0, Qt::CaseInsensitive);
    return (place < 0 ? name : sql.mid(place, name.size())).toStdU16String();
}

StoreRows RowsOf(QSqlQuery query, const StoreSource& source) {
    StoreRows result;
    const QSqlRecord record = query.record();
    const int columns = record.count();
    const QString sql = source.engine == StoreEngine::PostgreSql ? query.lastQuery() : QString();
    for (int i = 0; i < columns; ++i) result.columns.push_back(HeadingOf(record.fieldName(i), sql));
    while (query.next()) {
        std::vector<StoreValue> row;
        row.reserve(static_cast<std::size_t>(columns));
        for (int i = 0; i < columns; ++i) row.push_back(ValueOf(query.value(i)));
        result.rows.push_back(std::move(row));
    }
    if (query.lastError().isValid()) Raise(query.lastError(), source);
    return result;
}

QString UriOf(const QFileInfo& file) {
    return QString::fromLatin1(QUrl::fromLocalFile(file.absoluteFilePath()).toEncoded());
}

class QueryCursor : public RowCursor {
  public:
    QueryCursor(QSqlQuery query, StoreSource source) : query_(std::move(query)), source_(std::move(source)) {}

    bool Next() override {
        if (query_.next()) return true;
        if (query_.lastError().isValid()) Raise(query_.lastError(), source_);
        return false;
    }

    std::size_t Columns() const override { return static_cast<std::size_t>(query_.record().count()); }

    StoreValue ValueAt(std::size_t column) const override {
        return ValueOf(query_.value(static_cast<int>(column)));
    }

  private:
    QSqlQuery query_;
    StoreSource source_;
};

}  // namespace

QtStore::~QtStore() { Close(); }

void QtStore::Open(const StoreAddress& address) {
    Close();
    const bool isFile = address.kind != StoreAddress::Kind::Server;
    source_.engine = isFile ? StoreEngine::Sqlite : StoreEngine::SqlServer;  // a server tells its own
    try {
        if (address.kind == StoreAddress::Kind::LocalFile) {
            OpenFile(address);
        } else if (address.kind == StoreAddress::Kind::NewFile) {
            OpenNewFile(address);
        } else {
            ConnectToServer(ToQt(address.location));
        }
        if (address.kind != StoreAddress::Kind::NewFile) RequireTables(*this, address.tables);
        if (isFile) source_.file = address.location;
    } catch (const DamagedStore& error) {
        Close();
        throw DamagedStore(WordsAt(address.location, error.Message()));
    } catch (const NoCatalogue& error) {
        Close();
        const Text words = WordsOnNoCatalogue(error);
        throw NoCatalogue(isFile ? WordsAt(address.location, words) : words);
    } catch (const RuntimeError& error) {
        Close();
        // The string of a server holds its password and is never shown.
        throw RuntimeError::OfStore(isFile ? WordsAt(address.location, error.Message()) : error.Message());
    }
}

void QtStore::OpenFile(const StoreAddress& address) {
    const QFileInfo file(ToQt(address.location));
    const QString obstacle = ObstacleTo(PathUse::Reading, file.filePath());
    if (!obstacle.isEmpty()) throw RuntimeError::OfStore(obstacle.toStdU16String());
    if (!file.isFile()) throw RuntimeError::OfStore(Words::tr("数据库文件不存在").toStdU16String());
    if (IsOlderCatalogue(file.filePath()))
        throw RuntimeError::OfStore(Words::tr("是旧格式的桌面数据库，未作任何改动").toStdU16String());
    const QString uri = UriOf(file);
    // The first look changes nothing: an immutable file is read without locks, journals and recovery.
    Connect(u"QSQLITE"_s, uri + u"?immutable=1"_s, u"QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI"_s);
    RequireTables(*this, address.tables);
    Close();
    ConnectToFile(uri);
}

void QtStore::OpenNewFile(const StoreAddress& address) {
    QFile file(ToQt(address.location));
    if (!file.open(QIODevice::NewOnly)) {
        if (file.exists()) throw RuntimeError::OfStore(Words::tr("文件已存在").toStdU16String());
        throw RuntimeError::OfStore(Words::tr("不能建立数据库文件，%1")
                                        .arg(ObstacleTo(PathUse::Writing, file.fileName()))
                                        .toStdU16String());
    }
    file.close();
    try {
        ConnectToFile(UriOf(QFileInfo(file)));
        RequireTables(*this, address.tables);
    } catch (const RuntimeError&) {
        Close();
        file.remove();
        throw;
    }
}

void QtStore::ConnectToFile(const QString& uri) {
    Connect(u"QSQLITE"_s, uri + u"?mode=rw"_s,
            u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(kPatienceSeconds * 1000));
    Execute(u"PRAGMA foreign_keys=ON");
}

void QtStore::ConnectToServer(const QString& connection) {
    Connect(u"QODBC"_s, connection, u"SQL_ATTR_LOGIN_TIMEOUT=%1"_s.arg(kPatienceSeconds));
    source_.engine = ServerEngineOf(*Connection().driver());
}

void QtStore::Connect(const QString& driver, const QString& database, const QString& options) {
    connection_ = UnlistedConnection(driver);
    connection_.setDatabaseName(database);
    connection_.setConnectOptions(options);
    RaiseUnless(connection_.open(), connection_, source_);
    open_ = true;
}

void QtStore::Close() {
    preparedRow_.reset();
    preparedRows_.clear();
    if (IsFile()) PassOverError([&] { BringLogIntoFile(); });
    open_ = false;
    source_.file.clear();
    commitsToLog_ = false;
    inTransaction_ = false;
    connection_ = UnlistedConnection();
}

// A commit to the log beside the file does not wait for the disk: with the power the last rows may go, the
// file stays whole. It pays where rows come one by one. Tried once: a locked file commits in the old way.
void QtStore::CommitToLog() {
    if (!IsFile() || inTransaction_ || commitsToLog_) return;
    commitsToLog_ = true;
    PassOverError([&] {
        Execute(u"PRAGMA journal_mode=WAL");
        Execute(u"PRAGMA synchronous=NORMAL");
    });
}

// At rest the catalogue is one file, which may be copied. Who has it open, too, keeps the log.
void QtStore::BringLogIntoFile() {
    if (Query(u"PRAGMA journal_mode").At(0, 0) != u"wal") return;
    Execute(u"PRAGMA journal_mode=DELETE");
}

StoreRows QtStore::Query(const Text& sql) { return RowsOf(Run(sql), source_); }

StoreRows QtStore::Query(const Text& sql, const std::vector<StoreValue>& values) {
    return RowsOf(Run(sql, values), source_);
}

std::unique_ptr<RowCursor> QtStore::OpenCursor(const Text& sql) {
    return std::make_unique<QueryCursor>(Run(sql), source_);
}

void QtStore::Execute(const Text& sql) { Run(sql); }

void QtStore::Execute(const Text& sql, const std::vector<StoreValue>& values) { Run(sql, values); }

QSqlQuery QtStore::Run(const Text& sql) {
    QSqlQuery query(Connection());
    query.setForwardOnly(true);
    if (!query.exec(ToQt(sql))) Raise(query.lastError(), source_);
    return query;
}

QSqlQuery QtStore::Run(const Text& sql, const std::vector<StoreValue>& values) {
    QSqlQuery query(Connection());
    query.setForwardOnly(true);
    if (!query.prepare(ToQt(sql))) Raise(query.lastError(), source_);
    for (const StoreValue& value : values) query.addBindValue(VariantOf(value));
    if (!query.exec()) Raise(query.lastError(), source_);
    return query;
}

void QtStore::AddRow(const Text& table, const std::vector<Text>& columns,
                     const std::vector<StoreValue>& values) {
    CommitToLog();
    PreparedRow& row = PreparedFor(table, columns);
    for (std::size_t i = 0; i < values.size(); ++i) row.Bind(i, values[i]);
    if (!row.query.exec()) Raise(row.query.lastError(), source_);
}

// Binding costs as much as storing, and neighbouring rows have many values in common.
void QtStore::PreparedRow::Bind(std::size_t column, const StoreValue& value) {
    if (!isBound[column] || values[column] != value) {
        isBound[column] = true;
        values[column] = value;
        query.bindValue(marks[static_cast<qsizetype>(column)], VariantOf(values[column]));
    }
}

QtStore::PreparedRow& QtStore::PreparedFor(const Text& table, const std::vector<Text>& columns) {
    if (preparedRow_ && preparedRow_->table == table && preparedRow_->columns == columns) {
        return *preparedRow_;
    }
    preparedRow_.reset();
    QStringList names;
    QStringList marks;
    for (const Text& column : columns) {
        names += ToQt(column);
        marks += u":v%1"_s.arg(marks.size());
    }
    QSqlQuery query =
        Prepared(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(ToQt(table), names.join(u','), marks.join(u',')));
    const std::size_t count = columns.size();
    return preparedRow_.emplace(PreparedRow{table, columns, std::move(marks), std::vector<bool>(count),
                                            std::vector<StoreValue>(count), std::move(query)});
}

std::size_t QtStore::RowsAStatement(const std::vector<Text>& columns) {
    constexpr std::size_t kMostValues = 2000;  // the engines take 2100 and more
    return kMostValues / columns.size();
}

void QtStore::AddRows(const Text& table, const std::vector<Text>& columns,
                      std::span<const std::vector<StoreValue>> rows) {
    while (!rows.empty()) {
        const std::size_t count = std::min(RowsAStatement(columns), rows.size());
        QSqlQuery& query = PreparedFor(table, columns, count);
        int place = 0;
        for (const std::vector<StoreValue>& row : rows.first(count))
            for (const StoreValue& value : row) query.bindValue(place++, VariantOf(value));
        if (!query.exec()) Raise(query.lastError(), source_);
        rows = rows.subspan(count);
    }
}

QSqlQuery& QtStore::PreparedFor(const Text& table, const std::vector<Text>& columns, std::size_t count) {
    const auto found =
        std::find_if(preparedRows_.begin(), preparedRows_.end(), [&](const PreparedRows& rows) {
            return rows.table == table && rows.columns == columns && rows.count == count;
        });
    return found != preparedRows_.end() ? found->query : PreparedAnew(table, columns, count);
}

QSqlQuery& QtStore::PreparedAnew(const Text& table, const std::vector<Text>& columns, std::size_t count) {
    constexpr std::size_t kMostKept = 8;
    if (preparedRows_.size() == kMostKept) preparedRows_.pop_front();
    QStringList names;
    for (const Text& column : columns) names += ToQt(column);
    const QString row = u"("_s + QStringList(names.size(), u"?"_s).join(u',') + u")"_s;
    const QStringList all(static_cast<qsizetype>(count), row);
    QSqlQuery query =
        Prepared(u"INSERT INTO %1 (%2) VALUES %3"_s.arg(ToQt(table), names.join(u','), all.join(u',')));
    return preparedRows_.emplace_back(PreparedRows{table, columns, count, std::move(query)}).query;
}

QSqlQuery QtStore::Prepared(const QString& sql) {
    QSqlQuery query(Connection());
    if (!query.prepare(sql)) Raise(query.lastError(), source_);
    return query;
}

void QtStore::BeginTransaction() {
    QSqlDatabase connection = Connection();
    RaiseUnless(connection.transaction(), connection, source_);
    inTransaction_ = true;
}

void QtStore::Commit() {
    QSqlDatabase connection = Connection();
    RaiseUnless(connection.commit(), connection, source_);
    inTransaction_ = false;
}

void QtStore::Rollback() {
    QSqlDatabase connection = Connection();
    inTransaction_ = false;
    RaiseUnless(connection.rollback(), connection, source_);
}

QSqlDatabase QtStore::Connection() const {
    if (!open_) throw RuntimeError::OfStore(Words::tr("数据库没有打开").toStdU16String());
    return connection_;
}

}  // namespace commtest
