#include "app/list_look.h"

#include <algorithm>

namespace commtest {

bool ListLook::Step() {
    if (problem_) return false;
    try {
        if (!check_) Begin();
        if (isChecked_) return Quote();
        isChecked_ = !check_->Step();
        return !isChecked_ || !first_.empty();
    } catch (const RuntimeError& error) {
        problem_ = ListProblem::Of(error, 0);
        return false;
    }
}

void ListLook::Begin() {
    check_ = std::make_unique<ListCheck>(
        InstrumentCatalogue(store_), files_.OpenBytes(name_),
        [this](const ListFinding& finding) { Take(finding); }, switches_);
}

void ListLook::Take(const ListFinding& finding) {
    ++kinds_[finding.kind];
    if (finding.EndsImport()) ending_ = finding;
    if (first_.size() < kMostQuoted) first_.push_back({finding, {}});
}

// The lines of the first findings are read once more; one that cannot be read is not quoted.
bool ListLook::Quote() {
    if (!lines_) lines_ = std::make_unique<ListLines>(files_.OpenBytes(name_));
    std::optional<Text> line;
    PassOverError([&] { line = lines_->Next(); });
    if (!line) return false;
    int last = 0;
    for (Quoted& quoted : first_) {
        last = std::max(last, quoted.finding.line);
        if (quoted.finding.line == lines_->Line()) quoted.line = *line;
    }
    return lines_->Line() < last;
}

double ListLook::Share() const {
    if (!check_ || check_->Size() == 0) return 0;
    return static_cast<double>(check_->BytesRead()) / static_cast<double>(check_->Size());
}

}  // namespace commtest
