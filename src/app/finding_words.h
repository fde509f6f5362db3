#pragma once

#include "catalogue/list_check.h"

// What is said of the findings in a parameter list, by every face alike.
namespace commtest {

TextView KeyOf(ListFinding::Kind kind);      // names it in data: "addressTwice"
TextView HeadOf(ListFinding::Kind kind);     // heads those of a kind: "地址相同"
TextView OutcomeOf(ListFinding::Kind kind);  // what will come of it: "两个参数都导入"

// What was found, with names and value as they stand in the finding.
Text WordsOnFinding(const ListFinding& finding);

}  // namespace commtest
