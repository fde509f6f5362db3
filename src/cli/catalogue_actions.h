#pragma once

#include "cli/verb.h"

namespace commtest {

// The actions of the catalogue verb, a file each.
Verb CatalogueCreate();
Verb CatalogueImport();
Verb CatalogueExport();
Verb CatalogueChannels();
Verb CatalogueCheck();
Verb CatalogueRestore();
Verb CatalogueSpreadsheet();
Verb CatalogueInfo();
Verb CatalogueTransfer();
Verb CatalogueLoad();
Verb CatalogueDump();

}  // namespace commtest
