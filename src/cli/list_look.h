#pragma once

#include "catalogue/list_check.h"
#include "cli/list_progress.h"
#include "cli/list_source.h"
#include "host/store.h"

namespace commtest {

// What a list holds.
struct ListContent {
    int instruments = 0;
    int parameters = 0;
    int findings = 0;
    bool endsImport = false;
};

// Looks through a list; findings go to `sink` as they come. A Problem where the list cannot be read, or the
// user ends it.
ListContent LookThrough(const ListSource& list, Store& store, const ListCheck::Sink& sink,
                        ListProgress& progress);

}  // namespace commtest
