#pragma once

namespace commtest {

class MainForm;

// 多台通讯: asks for the number of instruments and the address of each; a running session stops for the
// questions. Error 13 for an answer that is no number.
void Check1_Click(MainForm& form);

// Brings the parameter grid into view.
void WriteType_Click(MainForm& form);

}  // namespace commtest
