#include "host_qt/catalogue_store.h"

namespace commtest {

void CatalogueStore::Open(const StoreAddress& address) {
    inner_->Close();
    if (address.kind == StoreAddress::Kind::Server) {
        inner_ = std::make_unique<ServerStore>();
    } else {
        inner_ = std::make_unique<QtStore>();
    }
    inner_->Open(address);
}

}  // namespace commtest
