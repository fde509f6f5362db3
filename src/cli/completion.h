#pragma once

#include <QString>
#include <span>

#include "cli/verb.h"

namespace commtest {

enum class Shell { Bash, Zsh };

// A script with which the shell completes the words of a call: verbs, actions, options, and what stands
// behind an option where that is a file, a folder or one of a few words. Ends in a line end.
QString CompletionScript(Shell shell, std::span<const Verb> verbs);

}  // namespace commtest
