#pragma once

#include <memory>
#include <optional>

#include "host/store.h"

namespace commtest::testing {

// The calls with which who begins to write asks for the version and makes missing indexes; it does without an
// index that fails.
inline constexpr int kIndexCalls = 10;

// A store over another one, of whose calls one fails with the text "call N failed" and without reaching it.
// Counted are opening, every statement, every row of a cursor, begin and commit, also those of the stores
// that it gives; not closing and rolling back.
class FailingStore : public Store {
  public:
    explicit FailingStore(Store& inner) : FailingStore(inner, nullptr, std::make_shared<Calls>()) {}

    // Of the calls from now on the n-th fails, 1 for the next; none with 0.
    void FailAt(int call) { *calls_ = {0, call}; }
    // The same as a server that is lost.
    void LoseAt(int call) { *calls_ = {0, call, true}; }
    int CallsSoFar() const { return calls_->count; }

    // The engine that it says it is; those that it gives stay what they are. The open store tells as a server
    // does which tables it has now.
    void PretendToBe(StoreEngine engine);

    void Open(const StoreAddress& address) override;
    void Close() override { inner_.Close(); }
    bool IsOpen() const override { return inner_.IsOpen(); }
    StoreEngine Engine() const override { return pretended_.value_or(inner_.Engine()); }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override;
    void Execute(const Text& sql) override;
    StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) override;
    void Execute(const Text& sql, const std::vector<StoreValue>& values) override;
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override;

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override { inner_.Rollback(); }

    std::unique_ptr<Store> Another() const override;
    Patience Wait(Patience patience) override { return inner_.Wait(patience); }
    bool KeepAnswers(bool keep) override { return inner_.KeepAnswers(keep); }

  private:
    struct Calls {
        int count = 0;
        int failing = 0;
        bool isLost = false;

        void Count();
    };
    class Cursor;

    FailingStore(Store& inner, std::unique_ptr<Store> owned, std::shared_ptr<Calls> calls)
        : owned_(std::move(owned)), inner_(inner), calls_(std::move(calls)) {}

    std::unique_ptr<Store> owned_;  // the inner one, of a store that another one gave
    Store& inner_;
    std::shared_ptr<Calls> calls_;
    std::optional<StoreEngine> pretended_;
};

}  // namespace commtest::testing
