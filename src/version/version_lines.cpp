#include "version/version_lines.h"

#include "version/build_facts.h"

namespace commtest {

std::string VersionLines(const std::string& program, const Foundations& foundations) {
    return program + ' ' + VersionOfBuild() + "\ncommit: " + CommitOfBuild() +
           "\ntoolkit: " + foundations.toolkit + "\nstore: " + foundations.store + '\n';
}

}  // namespace commtest
