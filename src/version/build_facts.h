#pragma once

namespace commtest {

// What the programs of this build are: three numbers with points between them, which the project of the build
// names.
const char* VersionOfBuild();

// Twelve digits of the commit, "-dirty" behind them where something was changed since; "none" where the build
// was no checkout's.
const char* CommitOfBuild();

}  // namespace commtest
