#include "session/cell_explanation.h"

#include "numbers/comm_code_explainer.h"
#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kMostCuts = 10;

// Q74: of a text of more than eleven words the rest stays together.
Text LastWord(Text text) {
    for (int cut = 0; cut < kMostCuts && Contains(text, u" "); ++cut) text = Trim(Behind(text, u' '));
    return text;
}

Text CodeOfCurrentRow(const MainForm& form) {
    const Grid& grid = form.ParameterGrid();
    if (ExplainerNumberOf(form.MeterCodeText) == kExplainerOfDisplayCode) {
        return LastWord(grid.Cell(grid.Row, column::kGroupRead));
    }
    return grid.Cell(grid.Row, grid.Col == column::kSingleRead ? column::kSingleRead : column::kGroupRead);
}

}  // namespace

void MSHFlexGrid1_MouseUp(MainForm& form, int index) {
    if (index != 0) return;
    const Text code = CodeOfCurrentRow(form);
    if (Len(code) <= 1) return;
    Text explanation;
    ExplainCommCode(form.MeterCodeText, code, explanation);
    form.Explanation().Replace(explanation);
}

}  // namespace commtest
