#pragma once

#include <cstdint>

#include "catalogue/table_copy.h"

namespace commtest {

// What an open catalogue is.
struct CatalogueFacts {
    StoreEngine engine = StoreEngine::Sqlite;
    Text version;            // of the engine
    int schema = 1;          // the version of the tables
    std::int64_t bytes = 0;  // of the file, or of the server's database
    std::vector<TableSize> tables;
};

CatalogueFacts FactsOf(Store& store);

}  // namespace commtest
