#include "support/failing_store.h"

#include <string>

#include "runtime/runtime_error.h"

namespace commtest::testing {

void FailingStore::Calls::Count() {
    if (++count != failing) return;
    if (isLost) throw LostStore(u"lost");
    throw RuntimeError::OfStore(FromUtf8("call " + std::to_string(count) + " failed"));
}

class FailingStore::Cursor : public RowCursor {
  public:
    Cursor(std::unique_ptr<RowCursor> inner, std::shared_ptr<Calls> calls)
        : inner_(std::move(inner)), calls_(std::move(calls)) {}

    bool Next() override {
        calls_->Count();
        return inner_->Next();
    }
    std::size_t Columns() const override { return inner_->Columns(); }
    StoreValue ValueAt(std::size_t column) const override { return inner_->ValueAt(column); }

  private:
    std::unique_ptr<RowCursor> inner_;
    std::shared_ptr<Calls> calls_;
};

void FailingStore::PretendToBe(StoreEngine engine) {
    const bool isFirst = !pretended_;
    pretended_ = engine;
    if (!isFirst) return;
    inner_.Execute(u"ATTACH ':memory:' As information_schema");
    inner_.Execute(
        u"CREATE TABLE information_schema.tables As SELECT name As table_name From main.sqlite_master");
}

void FailingStore::Open(const StoreAddress& address) {
    calls_->Count();
    inner_.Open(address);
}

StoreRows FailingStore::Query(const Text& sql) {
    calls_->Count();
    return inner_.Query(sql);
}

std::unique_ptr<RowCursor> FailingStore::OpenCursor(const Text& sql) {
    calls_->Count();
    return std::make_unique<Cursor>(inner_.OpenCursor(sql), calls_);
}

void FailingStore::Execute(const Text& sql) {
    calls_->Count();
    inner_.Execute(sql);
}

StoreRows FailingStore::Query(const Text& sql, const std::vector<StoreValue>& values) {
    calls_->Count();
    return inner_.Query(sql, values);
}

void FailingStore::Execute(const Text& sql, const std::vector<StoreValue>& values) {
    calls_->Count();
    inner_.Execute(sql, values);
}

void FailingStore::AddRow(const Text& table, const std::vector<Text>& columns,
                          const std::vector<StoreValue>& values) {
    calls_->Count();
    inner_.AddRow(table, columns, values);
}

void FailingStore::BeginTransaction() {
    calls_->Count();
    inner_.BeginTransaction();
}

void FailingStore::Commit() {
    calls_->Count();
    inner_.Commit();
}

std::unique_ptr<Store> FailingStore::Another() const {
    std::unique_ptr<Store> another = inner_.Another();
    Store& inner = *another;
    return std::unique_ptr<Store>(new FailingStore(inner, std::move(another), calls_));
}

}  // namespace commtest::testing
