#pragma once

#include <vector>

#include "catalogue/instrument_catalogue.h"

namespace commtest {

// The settings of a face. 表格_设置 is in every catalogue; another face's table may be missing, or have no
// rows of the kind: then those that ship are taken, and the catalogue stays as it is. Errors of the store.
std::vector<ProtocolRecord> ProtocolsOfFace(Store& store, TextView table);
StoreRows DataTypesOfFace(Store& store, TextView table);    // 字段 first
StoreRows GridColumnsOfFace(Store& store, TextView table);  // as InstrumentCatalogue::GridLayout, by name

}  // namespace commtest
