#include "commissioning/write_watch.h"

#include <algorithm>
#include <utility>

#include "session/main_form.h"

namespace commtest {

void WriteWatch::Begin(int row) {
    TakeIn();
    if (form_.ProtocolInUse().buildWrite == nullptr) return;
    epoch_ = form_.ParameterGrid().Epoch();
    protocol_ = form_.ProtocolCode;
    ParameterWrite write(row, form_.ParameterGrid().Cell(row, column::kNewValue));
    write.NoteEntry(form_);
    writes_.insert_or_assign(row, Watched{std::move(write)});
}

std::vector<int> WriteWatch::Follow() {
    TakeIn();
    const std::set<int> changed = std::exchange(changed_, {});
    return {changed.begin(), changed.end()};
}

const ParameterWrite* WriteWatch::Of(int row) const {
    const auto found = writes_.find(row);
    return found == writes_.end() ? nullptr : &found->second.write;
}

void WriteWatch::TakeIn() {
    DropWhatIsVoid();
    TakeOutcomes();
    Settle();
    NoteChanges();
}

void WriteWatch::DropWhatIsVoid() {
    const Grid& grid = form_.ParameterGrid();
    const bool isAnotherOne = epoch_ != grid.Epoch() || protocol_ != form_.ProtocolCode;
    std::erase_if(writes_, [&](const auto& entry) {
        const auto& [row, watched] = entry;
        const bool isVoid = isAnotherOne || grid.Cell(row, column::kNewValue) != watched.write.Value();
        if (isVoid) changed_.insert(row);
        return isVoid;
    });
}

void WriteWatch::TakeOutcomes() {
    const OutcomeRing& ring = form_.Outcomes;
    const auto news =
        std::min<std::uint64_t>(ring.Total() - std::exchange(outcomes_, ring.Total()), ring.Size());
    for (auto back = static_cast<std::size_t>(news); back > 0; --back) {
        for (auto& [row, watched] : writes_) watched.write.NoteOutcome(form_, ring.Last(back - 1));
    }
}

void WriteWatch::Settle() {
    for (auto& [row, watched] : writes_) {
        if (!watched.write.CanBeAnswered(form_)) watched.write.SettleWithoutAnswer();
    }
}

void WriteWatch::NoteChanges() {
    for (auto& [row, watched] : writes_) {
        const ParameterWrite& write = watched.write;
        if (watched.told == write.State() && watched.toldReadBack == write.ReadBack()) continue;
        watched.told = write.State();
        watched.toldReadBack = write.ReadBack();
        changed_.insert(row);
    }
}

}  // namespace commtest
