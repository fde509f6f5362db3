#pragma once

#include <QString>
#include <string>
#include <vector>

namespace commtest {

class MainForm;
class ScaledValues;
struct Outcome;

// An exchange and what came of it as one JSON object in a line of its own. Of the rows that its data went to
// it has those of `rows`, or all where there is none; their values are those of the grid as it stands.
std::string ExchangeLine(const MainForm& form, const Outcome& outcome, const std::vector<int>& rows,
                         const ScaledValues& scaled, const QString& time);

}  // namespace commtest
