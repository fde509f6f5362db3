#pragma once

namespace commtest {

class MainForm;

// Columns of the chip list, grid 3.
namespace chip_column {
inline constexpr int kProtocol = 1;
inline constexpr int kClass = 2;
inline constexpr int kInstrument = 3;
inline constexpr int kFile = 4;
inline constexpr int kDay = 5;
inline constexpr int kCode = 9;
inline constexpr int kInstrumentKey = 10;
inline constexpr int kChip = 11;  // empty where the instrument has no chip record
}  // namespace chip_column

// Buttons of the panel.
namespace chip_button {
inline constexpr int kSaveNew = 0;
inline constexpr int kSaveChange = 1;
inline constexpr int kDelete = 2;
inline constexpr int kClose = 3;
}  // namespace chip_button

// Opens the panel of the chip records, fills its list and shows the record of row 1. Errors of the store pass
// through.
void ShowChipFilePanel(MainForm& form);

// Fills the fields with the record of the current row of the list: the first one of its instrument and file;
// where there is none, with its instrument and 编号 alone. A list without rows empties them. Errors of the
// store pass through.
void ShowChipRecord(MainForm& form);

// The button that closes hides the panel; the others do nothing.
void ConCpuDataCommand_Click(MainForm& form, int index);

}  // namespace commtest
