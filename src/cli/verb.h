#pragma once

#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"

namespace commtest {

// One word of the command line: arguments in, exit status out, texts to the console. One that has actions
// does nothing itself: the word behind it names the action, which is called "verb action".
struct Verb {
    QStringView name;
    QStringView usage;    // what stands behind the name
    QStringView purpose;  // one sentence
    OptionList options;
    ExitStatus (*run)(const Arguments&, Console&);
    QStringView notes = {};  // for the help, behind the options
    std::vector<Verb> actions = {};
};

Verb PollVerb();
Verb SearchVerb();
Verb CaptureVerb();
Verb ReplayVerb();
Verb RecordingsVerb();
Verb WriteVerb();
Verb ListVerb();
Verb CatalogueVerb();
Verb ConvertVerb();
Verb CheckVerb();

}  // namespace commtest
