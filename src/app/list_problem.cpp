#include "app/list_problem.h"

namespace commtest {

ListProblem ListProblem::Of(const RuntimeError& error, int line) {
    if (const auto* const unreadable = dynamic_cast<const UnreadableLine*>(&error)) {
        return {error.Number(), error.Message(), unreadable->Line(), unreadable->Why()};
    }
    return {error.Number(), error.Message(), line};
}

}  // namespace commtest
