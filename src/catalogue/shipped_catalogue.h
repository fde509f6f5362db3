#pragma once

#include <span>
#include <stdexcept>
#include <string_view>

#include "host/store.h"

namespace commtest {

// One text file of a catalogue; its format stands in data/catalogue/README.md.
struct CatalogueFile {
    std::string_view name;     // relative to data/catalogue, with "/" between folders
    std::string_view content;  // UTF-8
};

// A line of a catalogue file that is not as it should be: "FILE:LINE: expected ..., found ...".
class CatalogueFileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The files of data/catalogue, as they were when the program was built.
std::span<const CatalogueFile> ShippedCatalogueFiles();

// A kind of rows of a settings table.
enum class SettingsUse { Protocols, DataTypes, GridColumns };

// The rows that ship for the settings table of a face: 字段, 宽度, and of a grid column 列号, 合并, 对齐,
// too.
StoreRows ShippedSettings(TextView table, SettingsUse use);

// Makes the tables in an open and empty store and fills them from catalogue files, in one transaction: a
// failure (CatalogueFileError, or the store's run-time error) leaves the store as it was.
void FillCatalogue(Store& store, std::span<const CatalogueFile> files);

void FillWithShippedCatalogue(Store& store);

}  // namespace commtest
