#pragma once

#include <map>

#include "host_qt/qt_store.h"
#include "host_qt/server_store.h"

namespace commtest {

// The store of the programs: a file is spoken to directly, a server through a thread.
class CatalogueStore : public Store {
  public:
    void Open(const StoreAddress& address) override;
    void Close() override { Anew().Close(); }
    bool IsOpen() const override { return inner_->IsOpen(); }

    StoreEngine Engine() const override { return inner_->Engine(); }

    StoreRows Query(const Text& sql) override;
    std::unique_ptr<RowCursor> OpenCursor(const Text& sql) override { return inner_->OpenCursor(sql); }
    void Execute(const Text& sql) override { Anew().Execute(sql); }
    StoreRows Query(const Text& sql, const std::vector<StoreValue>& values) override {
        return inner_->Query(sql, values);
    }
    void Execute(const Text& sql, const std::vector<StoreValue>& values) override {
        Anew().Execute(sql, values);
    }
    void AddRow(const Text& table, const std::vector<Text>& columns,
                const std::vector<StoreValue>& values) override {
        Anew().AddRow(table, columns, values);
    }

    void BeginTransaction() override { Anew().BeginTransaction(); }
    void Commit() override { Anew().Commit(); }
    void Rollback() override { Anew().Rollback(); }

    std::unique_ptr<Store> Another() const override { return std::make_unique<CatalogueStore>(); }
    Patience Wait(Patience patience) override { return inner_->Wait(patience); }
    bool KeepAnswers(bool keep) override;

  private:
    // The store, of which no answer counts any more.
    Store& Anew();

    std::unique_ptr<Store> inner_ = std::make_unique<QtStore>();
    bool keepsAnswers_ = false;
    std::map<Text, StoreRows> answers_;  // by statement
};

}  // namespace commtest
