#pragma once

#include "catalogue/list_check.h"

// What is said of the findings in a parameter list, by every face alike.
namespace commtest {

TextView KeyOf(ListFinding::Kind kind);      // names it in data: "addressTwice"
TextView HeadOf(ListFinding::Kind kind);     // heads those of a kind: "地址相同"
TextView OutcomeOf(ListFinding::Kind kind);  // what will come of it: "两个参数都导入"

// What is found: "\"%n\" 没有地址". %n stands for the name of a finding, %v for its value, %o for the other
// name.
TextView PatternOf(ListFinding::Kind kind);
Text FilledIn(TextView pattern, const ListFinding& finding);

// What was found, with names and value as they stand in the finding.
Text WordsOnFinding(const ListFinding& finding);

}  // namespace commtest
