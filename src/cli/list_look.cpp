#include "cli/list_look.h"

#include "cli/list_words.h"
#include "cli/problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

ListContent LookThrough(const ListSource& list, Store& store, const ListCheck::Sink& sink,
                        ListProgress& progress) {
    auto bytes = list.Open();
    try {
        ListCheck check(InstrumentCatalogue(store), std::move(bytes), sink);
        const auto place = [&check] {
            return ListPlace{check.Parameters(), check.Instruments(), check.BytesRead(), check.Size()};
        };
        if (!progress.Run([&check] { return check.Step(); }, place)) {
            throw Problem(ExitStatus::NoAccess, u"已中断，没有检查完"_s);
        }
        return {check.Instruments(), check.Parameters(), check.Findings(), check.EndsImport()};
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, WordsOnListError(error, list.Path(), 0));
    }
}

}  // namespace commtest
