#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "app/list_problem.h"
#include "catalogue/list_check.h"
#include "host/program_files.h"

namespace commtest {

// What a list of the program folder holds, found out before an import, a line a step.
class ListLook {
  public:
    struct Quoted {
        ListFinding finding;
        Text line;  // as it stands in the list
    };
    static constexpr std::size_t kMostQuoted = 20;

    ListLook(Store& store, const ProgramFiles& files, Text name, const Switches& switches = {})
        : store_(store), files_(files), name_(std::move(name)), switches_(switches) {}

    // False at the end: all is known, or there is a problem.
    bool Step();

    int Instruments() const { return check_ ? check_->Instruments() : 0; }
    int Parameters() const { return check_ ? check_->Parameters() : 0; }
    int Findings() const { return check_ ? check_->Findings() : 0; }
    const std::map<ListFinding::Kind, int>& Kinds() const { return kinds_; }
    const std::vector<Quoted>& First() const { return first_; }

    // The finding that an import would end at, without a change.
    const std::optional<ListFinding>& Ending() const { return ending_; }
    // Of the file or the store.
    const std::optional<ListProblem>& Problem() const { return problem_; }

    double Share() const;  // 0 to 1

  private:
    void Begin();
    void Take(const ListFinding& finding);
    bool Quote();

    Store& store_;
    const ProgramFiles& files_;
    Text name_;
    Switches switches_;
    std::unique_ptr<ListCheck> check_;
    bool isChecked_ = false;
    std::unique_ptr<ListLines> lines_;  // for the quotations
    std::map<ListFinding::Kind, int> kinds_;
    std::vector<Quoted> first_;
    std::optional<ListFinding> ending_;
    std::optional<ListProblem> problem_;
};

}  // namespace commtest
