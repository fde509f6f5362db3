#pragma once

#include <vector>

#include "host/store.h"

namespace commtest {

inline constexpr TextView kParameterView = u"仪表参数";

// What a store must hold to be taken for a catalogue: the seven tables and the view 仪表参数.
const std::vector<Text>& CatalogueTables();

// Makes the tables, the view and the indexes in an open store that has none of them. On SQL Server the
// database needs a Chinese collation: the statements hold plain literals.
void CreateCatalogueTables(Store& store);

// Makes the indexes that an older catalogue lacks; what the store does not allow is passed over. Not within a
// transaction. Who begins to write calls it.
void MakeMissingIndexes(Store& store);

}  // namespace commtest
