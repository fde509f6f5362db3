#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <optional>

#include "host/store.h"
#include "host_qt/store_thread.h"

namespace commtest {

// The store of a server. Its connection lives on a thread of its own, and a call waits no longer than its
// Patience: then, as where the connection breaks, it is given up, the call raises LostStore, and the next one
// connects anew. A call that finds no connection waits half of its time for one; the connecting goes on
// without it, for 5 s in all.
class ServerStore : public Store {
  public:
    ~ServerStore() override { Close(); }

    void Open(const StoreAddress& address) override;
    void Close() override;
    // Open until it is closed, whether there is a connection or not.
    bool IsOpen() const override { return isOpen_; }

    StoreEngine Engine() const override { return engine_; }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override;
    void Execute(const Text& sql) override;
    StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) override;
    void Execute(const Text& sql, const std::vector<StoreValue>& values) override;
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override;

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    std::unique_ptr<Store> Another() const override { return std::make_unique<ServerStore>(); }
    Patience Wait(Patience patience) override { return std::exchange(patience_, patience); }

  private:
    class Cursor;
    using Clock = std::chrono::steady_clock;
    enum class Transaction { None, Open, Failed };
    struct CollectedRows {
        Text table;
        std::vector<Text> columns;
        std::vector<std::vector<StoreValue>> rows;
    };

    template <typename Work>
    auto Hand(Work work);
    template <typename Work>
    auto Run(Work work);
    template <typename Result>
    Result Awaited(std::future<Result> result, Clock::time_point until);
    void BeginToConnect();
    void FinishConnecting(Clock::time_point until);
    [[noreturn]] void GiveUp(const Text& words);
    CollectedRows& CollectedFor(const Text& table, const std::vector<Text>& columns);
    enum class Amount { WholeStatements, All };
    void SendCollected(Amount amount);
    std::vector<CollectedRows> TakeCollected(Amount amount);
    void ForgetCollected();
    void FailTransaction();

    StoreAddress address_;
    bool isOpen_ = false;
    StoreEngine engine_ = StoreEngine::PostgreSql;
    Patience patience_ = Patience::Usual;
    Transaction transaction_ = Transaction::None;
    std::vector<CollectedRows> collected_;  // in the order in which the transaction has added to them first
    std::size_t collectedCount_ = 0;
    std::unique_ptr<StoreThread> thread_;  // none where the connection was given up
    std::future<StoreEngine> opening_;     // valid until the connection stands
    Clock::time_point openingEnds_;
};

}  // namespace commtest
