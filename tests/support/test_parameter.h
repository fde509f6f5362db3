#pragma once

#include <vector>

#include "runtime/text.h"

namespace commtest::testing {

// A parameter of an instrument under test, in the order of the grid's columns 1 to 5.
struct TestParameter {
    Text name;
    Text address;
    Text length;
    Text attribute;
    Text decimals;
};

// Five commands in rows 1 to 5, the parameters from row 6 on.
inline std::vector<TestParameter> BehindFiveCommands(const std::vector<TestParameter>& parameters) {
    std::vector<TestParameter> rows(5, {u"命令", u"0000", u"3", u"W", u"0"});
    rows.insert(rows.end(), parameters.begin(), parameters.end());
    return rows;
}

// Two bytes each, at 0010 to 0018; behind five commands the last one stands in row 14, the last of the grid.
inline std::vector<TestParameter> NineWords() {
    std::vector<TestParameter> words;
    for (const TextView address :
         {u"0010", u"0011", u"0012", u"0013", u"0014", u"0015", u"0016", u"0017", u"0018"}) {
        words.push_back({u"参数", Text(address), u"2", u"RW", u"0"});
    }
    return words;
}

}  // namespace commtest::testing
