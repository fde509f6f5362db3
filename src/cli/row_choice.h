#pragma once

#include <QString>
#include <vector>

namespace commtest {

class MainForm;

inline constexpr int kLargestRow = 32767;

// The row that a word names: by its number, whether the grid has it or not, or by the name of its parameter.
// A Problem for a name that no row has, or several.
int RowOfWord(const MainForm& form, const QString& word);

// The rows that words between commas name, each of which the grid has to have.
std::vector<int> RowsOfWords(const MainForm& form, const QString& words);

}  // namespace commtest
