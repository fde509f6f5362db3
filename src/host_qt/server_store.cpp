#include "host_qt/server_store.h"

#include <algorithm>
#include <iterator>

#include "host_qt/words.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

using namespace std::chrono_literals;
using Connection = StoreThread::Connection;

constexpr auto kOpening = 5s;

// What is not limited takes years.
std::chrono::milliseconds LimitOf(Patience patience) {
    switch (patience) {
        case Patience::Usual: return 1s;
        case Patience::Capture: return 250ms;
        case Patience::Unlimited: break;
    }
    return std::chrono::hours(24 * 3650);
}

Text Silent() { return Words::tr("服务器没有应答").toStdU16String(); }
Text Broken() { return Words::tr("与服务器的连接已中断").toStdU16String(); }
Text Failed() { return Words::tr("这次改动已经失败").toStdU16String(); }

// A statement that the engine refuses leaves its connection alive.
bool IsAlive(QtStore& store) {
    return IsMet([&] {
        store.Query(u"SELECT 1");
        return true;
    });
}

// A part of the rows of a cursor, which pass from thread to thread in these.
struct RowBlock {
    std::size_t columns = 0;
    std::vector<std::vector<StoreValue>> rows;
    bool isLast = false;
};

RowBlock NextBlock(RowCursor& cursor) {
    constexpr std::size_t kRows = 500;
    RowBlock block;
    block.columns = cursor.Columns();
    while (block.rows.size() < kRows) {
        if (!cursor.Next()) {
            block.isLast = true;
            break;
        }
        std::vector<StoreValue>& row = block.rows.emplace_back();
        for (std::size_t column = 0; column < block.columns; ++column) row.push_back(cursor.ValueAt(column));
    }
    return block;
}

}  // namespace

// --- Calls ---

// In a transaction a refused statement leaves nothing that could be asked; its rollback will show.
template <typename Work>
auto ServerStore::Hand(Work work) {
    if (!isOpen_) throw RuntimeError::OfStore(Words::tr("数据库没有打开").toStdU16String());
    if (transaction_ == Transaction::Failed) throw LostStore(Failed());
    const Clock::time_point begin = Clock::now();
    if (thread_ == nullptr) BeginToConnect();
    if (opening_.valid()) FinishConnecting(begin + LimitOf(patience_) / 2);
    const bool isAlone = transaction_ == Transaction::None;
    auto guarded = [work = std::move(work), isAlone](Connection& connection) {
        try {
            return work(connection);
        } catch (const RuntimeError& error) {
            if (!isAlone || IsAlive(connection.store)) throw;
            throw LostStore(error.Message());
        }
    };
    return Awaited(thread_->Run(std::move(guarded)), begin + LimitOf(patience_));
}

// The rows that were added before go ahead of it.
template <typename Work>
auto ServerStore::Run(Work work) {
    if (collectedCount_ > 0) SendCollected(Amount::All);
    return Hand(std::move(work));
}

template <typename Result>
Result ServerStore::Awaited(std::future<Result> result, Clock::time_point until) {
    if (result.wait_until(until) != std::future_status::ready) GiveUp(Silent());
    try {
        return result.get();
    } catch (const LostStore& error) {
        GiveUp(error.Message());
    } catch (const RuntimeError&) {
        FailTransaction();
        throw;
    }
}

void ServerStore::GiveUp(const Text& words) {
    thread_.reset();
    opening_ = {};
    FailTransaction();
    throw LostStore(words);
}

// Who would commit what is left of it would not hear of what is missing.
void ServerStore::FailTransaction() {
    if (transaction_ == Transaction::Open) transaction_ = Transaction::Failed;
}

// --- The connection ---

void ServerStore::Open(const StoreAddress& address) {
    Close();
    address_ = address;
    BeginToConnect();
    try {
        engine_ = Awaited(std::move(opening_), openingEnds_);
    } catch (const RuntimeError&) {
        Close();
        throw;
    }
    isOpen_ = true;
    address_.tables.clear();  // they were there
}

void ServerStore::BeginToConnect() {
    thread_ = std::make_unique<StoreThread>();
    opening_ = thread_->Run([address = address_](Connection& connection) {
        connection.store.Open(address);
        return connection.store.Engine();
    });
    openingEnds_ = Clock::now() + kOpening;
}

void ServerStore::FinishConnecting(Clock::time_point until) {
    if (opening_.wait_until(std::min(until, openingEnds_)) != std::future_status::ready) {
        if (Clock::now() >= openingEnds_) GiveUp(Silent());
        throw LostStore(Silent());
    }
    try {
        engine_ = opening_.get();
    } catch (const RuntimeError& error) {
        GiveUp(error.Message());
    }
}

void ServerStore::ForgetCollected() {
    collected_.clear();
    collectedCount_ = 0;
}

void ServerStore::Close() {
    ForgetCollected();
    isOpen_ = false;
    transaction_ = Transaction::None;
    opening_ = {};
    if (thread_ != nullptr) thread_->End();
    thread_.reset();
}

// --- Statements ---

StoreRows ServerStore::Query(const Text& sql) {
    return Run([sql](Connection& connection) { return connection.store.Query(sql); });
}

StoreRows ServerStore::Query(const Text& sql, const std::vector<StoreValue>& values) {
    return Run([sql, values](Connection& connection) { return connection.store.Query(sql, values); });
}

void ServerStore::Execute(const Text& sql) {
    Run([sql](Connection& connection) { connection.store.Execute(sql); });
}

void ServerStore::Execute(const Text& sql, const std::vector<StoreValue>& values) {
    Run([sql, values](Connection& connection) { connection.store.Execute(sql, values); });
}

void ServerStore::AddRow(const Text& table, const std::vector<Text>& columns,
                         const std::vector<StoreValue>& values) {
    constexpr std::size_t kMostCollected = 2000;
    if (transaction_ != Transaction::Open) {
        return Run([table, columns, values](Connection& connection) {
            connection.store.AddRow(table, columns, values);
        });
    }
    CollectedFor(table, columns).rows.push_back(values);
    if (++collectedCount_ == kMostCollected) SendCollected(Amount::WholeStatements);
}

ServerStore::CollectedRows& ServerStore::CollectedFor(const Text& table, const std::vector<Text>& columns) {
    const auto found = std::find_if(collected_.begin(), collected_.end(), [&](const CollectedRows& rows) {
        return rows.table == table && rows.columns == columns;
    });
    return found != collected_.end() ? *found : collected_.emplace_back(CollectedRows{table, columns, {}});
}

void ServerStore::SendCollected(Amount amount) {
    Hand([taken = TakeCollected(amount)](Connection& connection) {
        for (const CollectedRows& one : taken) connection.store.AddRows(one.table, one.columns, one.rows);
    });
}

// What the others refer to goes first, so of the last table alone some rows may wait.
std::vector<ServerStore::CollectedRows> ServerStore::TakeCollected(Amount amount) {
    std::vector<CollectedRows> taken;
    collectedCount_ = 0;
    for (CollectedRows& one : collected_) {
        const bool mayWait = amount == Amount::WholeStatements && &one == &collected_.back();
        const std::size_t rest = mayWait ? one.rows.size() % QtStore::RowsAStatement(one.columns) : 0;
        std::vector<std::vector<StoreValue>> waiting(
            std::make_move_iterator(one.rows.end() - static_cast<std::ptrdiff_t>(rest)),
            std::make_move_iterator(one.rows.end()));
        one.rows.resize(one.rows.size() - rest);
        taken.push_back({one.table, one.columns, std::exchange(one.rows, std::move(waiting))});
        collectedCount_ += rest;
    }
    return taken;
}

// --- Transactions ---

void ServerStore::BeginTransaction() {
    Run([](Connection& connection) { connection.store.BeginTransaction(); });
    ForgetCollected();
    transaction_ = Transaction::Open;
}

void ServerStore::Commit() {
    Run([](Connection& connection) { connection.store.Commit(); });
    transaction_ = Transaction::None;
}

// A server rolls back by itself what a lost connection has begun.
void ServerStore::Rollback() {
    transaction_ = Transaction::None;
    ForgetCollected();
    if (thread_ == nullptr) return;
    try {
        Run([](Connection& connection) {
            connection.store.Rollback();
            if (!IsAlive(connection.store)) throw LostStore(Broken());
        });
    } catch (const LostStore&) {
    }
}

// --- Cursors ---

class ServerStore::Cursor : public RowCursor {
  public:
    Cursor(ServerStore& store, RowBlock block) : store_(store), block_(std::move(block)) {}
    ~Cursor() override {
        if (store_.thread_ != nullptr)
            store_.thread_->Run([](Connection& connection) { connection.cursor.reset(); });
    }

    std::size_t Columns() const override { return block_.columns; }

    bool Next() override {
        if (next_ == block_.rows.size() && !block_.isLast) Refill();
        if (next_ == block_.rows.size()) return false;
        ++next_;
        return true;
    }

    StoreValue ValueAt(std::size_t column) const override { return block_.rows[next_ - 1][column]; }

  private:
    void Refill() {
        next_ = 0;
        block_ = store_.Run([](Connection& connection) {
            if (connection.cursor == nullptr) throw LostStore(Broken());
            return NextBlock(*connection.cursor);
        });
    }

    ServerStore& store_;
    RowBlock block_;
    std::size_t next_ = 0;  // the row behind that of the values
};

std::unique_ptr<RowCursor> ServerStore::OpenCursor(const Text& sql) {
    RowBlock block = Run([sql](Connection& connection) {
        connection.cursor = connection.store.OpenCursor(sql);
        return NextBlock(*connection.cursor);
    });
    return std::make_unique<Cursor>(*this, std::move(block));
}

}  // namespace commtest
