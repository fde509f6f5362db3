#pragma once

#include <optional>
#include <vector>

#include "catalogue/schema_version.h"
#include "host/store.h"

namespace commtest {

// The catalogue was made, or brought up, by a newer program. It is read, and not written.
class NewerCatalogue : public RuntimeError {
  public:
    NewerCatalogue();
};

// What a store must hold to be taken for a catalogue: seven tables and the view 仪表参数. The settings table
// of the English face may be missing.
const std::vector<Text>& CatalogueTables();

// Makes the tables, that of the English face too, the view and the indexes in an open store that has none of
// them. On SQL Server the database needs a Chinese collation: the statements hold plain literals.
void CreateCatalogueTables(Store& store);

// The settings table of the English face, which an older catalogue lacks.
bool HasEnglishSettings(Store& store);
void CreateEnglishSettings(Store& store);

// The columns of a table in their order, spelled as the statements have them.
const std::vector<Text>& ColumnsOfTable(const Text& table);

// The key column of a table; empty for one without a key.
Text KeyOfTable(const Text& table);

// The statement that puts the counter of a table's own keys behind the highest key; nothing where the engine,
// or the table, needs none.
std::optional<Text> KeyCounterStatement(StoreEngine engine, const Text& table);

// While it stands, rows of the table bring their own keys, which one of the engines has to be told.
class OwnKeys {
  public:
    OwnKeys(Store& store, const Text& table);
    OwnKeys(const OwnKeys&) = delete;
    OwnKeys& operator=(const OwnKeys&) = delete;
    ~OwnKeys();

  private:
    Store& store_;
    Text table_;  // empty where nothing has to be told
};

// Makes the indexes that an older catalogue lacks; what the store does not allow is passed over. Not within a
// transaction.
void MakeMissingIndexes(Store& store);

// Who begins to write calls it, not within a transaction: raises NewerCatalogue, and makes the indexes that
// are missing.
void BeginWriting(Store& store);

}  // namespace commtest
