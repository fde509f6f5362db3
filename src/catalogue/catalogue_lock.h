#pragma once

#include "host/store.h"
#include "runtime/runtime_error.h"

namespace commtest {

// Somebody else is rewriting the server's catalogue.
class RewrittenElsewhere : public RuntimeError {
  public:
    RewrittenElsewhere();
};

// Keeps others from rewriting a server's catalogue until the end of the transaction, in which this is called
// first. Raises RewrittenElsewhere, without waiting, where somebody does. Who reads, or adds recordings, is
// not kept from it. A file locks itself.
void KeepOthersFromRewriting(Store& store);

}  // namespace commtest
