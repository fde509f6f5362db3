#include "app/list_problem.h"

#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"

namespace commtest {

ListProblem ListProblem::Of(const RuntimeError& error, int line) {
    if (const auto* const unreadable = dynamic_cast<const UnreadableLine*>(&error)) {
        return {error.Number(), error.Message(), unreadable->Line(), unreadable->Why()};
    }
    return {.number = error.Number(),
            .message = error.Message(),
            .line = line,
            .isRewrittenElsewhere = dynamic_cast<const RewrittenElsewhere*>(&error) != nullptr,
            .isOfNewerCatalogue = dynamic_cast<const NewerCatalogue*>(&error) != nullptr};
}

}  // namespace commtest
