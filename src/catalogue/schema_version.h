#pragma once

#include "host/store.h"

namespace commtest {

// The version of the tables, views and indexes that this program makes. Version 1 lacks the settings table of
// the English face and some of the indexes; its catalogues do not say that they are of it.
inline constexpr int kSchemaVersion = 2;

inline constexpr TextView kParameterView = u"仪表参数";

// What the open catalogue says of itself. A file keeps it in its head, a server as a remark on the
// catalogue's view, or on its database. Not within a transaction.
int SchemaVersionOf(Store& store);

// Says of an open catalogue that it is of this version. Who may not say so raises the store's error.
void NoteSchemaVersion(Store& store, int version = kSchemaVersion);

// Keeps the connection to a file from writing it, whatever is asked. On a server each writer looks for
// himself.
void KeepFromWriting(Store& store);

}  // namespace commtest
