#include "app/list_problem.h"

#include "catalogue/catalogue_lock.h"

namespace commtest {

ListProblem ListProblem::Of(const RuntimeError& error, int line) {
    if (const auto* const unreadable = dynamic_cast<const UnreadableLine*>(&error)) {
        return {error.Number(), error.Message(), unreadable->Line(), unreadable->Why()};
    }
    const bool isRewritten = dynamic_cast<const RewrittenElsewhere*>(&error) != nullptr;
    return {error.Number(), error.Message(), line, {}, isRewritten};
}

}  // namespace commtest
