#pragma once

namespace commtest {

class MainForm;

// The words on an RTU reply by its function code, behind LogLine: exceptions 81 to 88, answers to reads,
// writes, tests and board type, and by CycleStep, which becomes 1, on everything else. Exceptions 83 and 86
// stop the session. `mayDecode` is what the check word said; the result is whether the reply goes on to the
// grid.
bool JudgeRtuFunction(MainForm& form, bool mayDecode);

}  // namespace commtest
