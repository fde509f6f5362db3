#pragma once

#include <QString>

namespace commtest {

class MainForm;
struct Outcome;

// What an instrument says in its answer, in the words of its protocol, without those on the check word.
QString WordsOnAnswer(const MainForm& form, const Outcome& outcome);

// The numbers of its exception, "83 02"; empty where it gives none.
QString NumbersOfException(const Outcome& outcome);

}  // namespace commtest
