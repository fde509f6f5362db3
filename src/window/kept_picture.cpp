#include "window/kept_picture.h"

#include "runtime/runtime_error.h"
#include "session/grid_rows.h"
#include "session/main_form.h"
#include "window/grid_columns.h"

namespace commtest {

namespace {

constexpr int kEmptyRows = 15;

// As in the shipped catalogue: numbers right, codes in the middle.
int FirstAlignmentOfColumn(int col) {
    constexpr int kLeft = 1;
    constexpr int kCentre = 4;
    constexpr int kRight = 7;
    if (col >= column::kValue) return kRight;
    return col == column::kName || col > column::kDecimals ? kLeft : kCentre;
}

// What the choice of an instrument fills.
struct Picture {
    explicit Picture(const MainForm& form)
        : grid(form.ParameterGrid()), limits(form.Limits), code(form.MeterCodeText) {}

    void PutBack(MainForm& form, const Text& name) const {
        form.ParameterGrid() = grid;
        form.Limits = limits;
        form.MeterCodeText = code;
        form.InstrumentList().Set(name);
    }

    Grid grid;
    std::vector<ParameterLimits> limits;
    Text code;
};

}  // namespace

void LayOutEmptyGrid(MainForm& form) {
    Grid& grid = form.ParameterGrid();
    grid.SetSize(kEmptyRows + 1, column::kCount);
    SetUpParameterGrid(form, form.texts.parameterHeadings);
    for (int col = 0; col < column::kCount; ++col) {
        GridColumn& look = grid.Column(col);
        if (look.width > 0) continue;
        look.width = FirstWidthOfColumn(0, col);
        look.alignment = FirstAlignmentOfColumn(col);
    }
}

void KeepPictureOverFailures(MainForm& form) {
    Handler& click = form.InstrumentList().Click;
    click = [&form, click, shown = Text()]() mutable {
        const Picture former(form);
        try {
            click();
            shown = form.InstrumentName();
        } catch (const RuntimeError&) {
            if (shown.empty()) {
                LayOutEmptyGrid(form);
            } else {
                former.PutBack(form, shown);
            }
            throw;
        }
    };
}

}  // namespace commtest
