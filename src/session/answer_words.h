#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;
struct Outcome;

// What an instrument says in its answer, in the words of the protocol in use, without those on the check
// word; in one line, the words one blank apart.
Text AnswerWords(const MainForm& form, const Outcome& outcome);

}  // namespace commtest
