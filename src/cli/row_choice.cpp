#include "cli/row_choice.h"

#include "cli/problem.h"
#include "cli/suggestion.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

std::vector<int> RowsNamed(const MainForm& form, const Text& name) {
    const Grid& grid = form.ParameterGrid();
    std::vector<int> rows;
    for (int row = 1; row < grid.Rows(); ++row) {
        if (grid.Cell(row, column::kName) == name) rows.push_back(row);
    }
    return rows;
}

QStringList NamesOf(const MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    QStringList names;
    for (int row = 1; row < grid.Rows(); ++row) {
        names += QString::fromStdU16String(grid.Cell(row, column::kName));
    }
    return names;
}

}  // namespace

int RowOfWord(const MainForm& form, const QString& word) {
    bool isNumber = false;
    const int row = word.toInt(&isNumber);
    if (isNumber && row >= 1 && row <= kLargestRow) return row;
    const std::vector<int> rows = RowsNamed(form, word.toStdU16String());
    if (rows.size() == 1) return rows.front();
    if (rows.empty()) {
        const QString meant = DidYouMean(word, NamesOf(form));
        throw Problem(ExitStatus::BadUsage,
                      u"没有参数 \"%1\"%2名称和行号请看 commtest-cli list parameters"_s.arg(
                          word, meant.isEmpty() ? u"。"_s : meant));
    }
    QStringList numbers;
    for (const int each : rows) numbers += QString::number(each);
    throw Problem(ExitStatus::BadUsage,
                  u"参数 \"%1\" 有多行: %2。请用行号"_s.arg(word, numbers.join(u"、"_s)));
}

std::vector<int> RowsOfWords(const MainForm& form, const QString& words) {
    std::vector<int> rows;
    for (const QString& word : words.split(u',')) {
        const int row = RowOfWord(form, word.trimmed());
        if (row > LastRow(form.ParameterGrid())) {
            throw Problem(ExitStatus::BadUsage,
                          u"没有第 %1 行。名称和行号请看 commtest-cli list parameters"_s.arg(row));
        }
        rows.push_back(row);
    }
    return rows;
}

}  // namespace commtest
