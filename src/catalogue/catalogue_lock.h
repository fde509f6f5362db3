#pragma once

#include "host/store.h"

namespace commtest {

// Keeps others from rewriting a server's catalogue until the end of the transaction, in which this is called
// first. The store's error, without waiting, where somebody rewrites it. Who reads, or adds recordings, is
// not kept from it. A file locks itself.
void KeepOthersFromRewriting(Store& store);

}  // namespace commtest
