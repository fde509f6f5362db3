#pragma once

#include <QCoreApplication>

namespace commtest {

// What the program says beyond the fixed texts, in the language of its face: Words::tr("已停止"). The Chinese
// text is its own source, translations/ has the others. What is made before the program runs is not
// translated.
class Words {
    Q_DECLARE_TR_FUNCTIONS(Words)
};

}  // namespace commtest
