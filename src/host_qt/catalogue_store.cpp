#include "host_qt/catalogue_store.h"

#include <utility>

namespace commtest {

void CatalogueStore::Open(const StoreAddress& address) {
    Close();
    if (address.kind == StoreAddress::Kind::Server) {
        inner_ = std::make_unique<ServerStore>();
    } else {
        inner_ = std::make_unique<QtStore>();
    }
    inner_->Open(address);
}

StoreRows CatalogueStore::Query(const Text& sql) {
    if (!keepsAnswers_) return inner_->Query(sql);
    auto answer = answers_.find(sql);
    if (answer == answers_.end()) answer = answers_.emplace(sql, inner_->Query(sql)).first;
    return answer->second;
}

bool CatalogueStore::KeepAnswers(bool keep) {
    answers_.clear();
    return std::exchange(keepsAnswers_, keep);
}

Store& CatalogueStore::Anew() {
    answers_.clear();
    return *inner_;
}

}  // namespace commtest
