#pragma once

#include "cli/arguments.h"
#include "cli/console.h"

namespace commtest {

// One word of the command line: arguments in, exit status out, texts to the console.
struct Verb {
    QStringView name;
    QStringView usage;    // what stands behind the name
    QStringView purpose;  // one sentence
    OptionList options;
    ExitStatus (*run)(const Arguments&, Console&);
    QStringView notes = {};  // for the help, behind the options
};

Verb PollVerb();
Verb WriteVerb();
Verb ListVerb();
Verb CatalogueVerb();
Verb ConvertVerb();
Verb CheckVerb();

}  // namespace commtest
