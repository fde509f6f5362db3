#pragma once

#include <functional>
#include <vector>

#include "host/store.h"

namespace commtest {

// The tables of a catalogue in the order in which they are filled: who is referred to comes first.
const std::vector<Text>& TablesToFill();

// Those of them that a catalogue has: an older one lacks the settings of the English face.
std::vector<Text> TablesOf(Store& store);

// Called behind each row with its table and how many of it stand so far.
using RowProgress = std::function<void(const Text& table, int rows)>;

// Adds the rows of a table to that of another store, in their order and with their keys; the number of them.
// A value that a number column there does not take is a null.
int CopyTable(Store& from, Store& to, const Text& table, const RowProgress& progress = {});

// A store's own keys stand behind the highest key from now on. Within the transaction that has added the
// rows.
void CountKeysOnwards(Store& store, const Text& table);

// From here to the end of the transaction that it begins, all that is read is of one moment.
void BeginReading(Store& store);

struct TableSize {
    Text table;
    int rows = 0;
};

// True if a store holds a catalogue.
bool HoldsCatalogue(Store& store);

// How much stands in each table of a catalogue.
std::vector<TableSize> SizesOfTables(Store& store);

// Puts everything that a catalogue holds in the place of what another one does; a store without a catalogue
// gets its tables. All in one transaction: an error leaves the store as it was. What was copied.
std::vector<TableSize> CopyCatalogueInto(Store& from, Store& to, const RowProgress& progress = {});

// The same where the other store is known to be empty.
std::vector<TableSize> CopyCatalogueIntoNew(Store& from, Store& to);

}  // namespace commtest
