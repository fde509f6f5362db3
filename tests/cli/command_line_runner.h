#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>
#include <string>

namespace commtest::testing {

// What a call of the command line has given.
struct Outcome {
    int status = -1;
    std::string results;
    std::string problems;
};

// Runs the command line in this process. `input` is its standard input, which a terminal gives if it is
// typed; what comes out goes to none.
Outcome RunCommand(const QStringList& words, const std::string& input = {}, bool isTyped = false);

// A program folder with the shipped catalogue, made once for a test program.
QString ShippedFolder();

// RunCommand with that folder.
Outcome RunInFolder(QStringList words);

// One line of a problem, and nothing beside it.
::testing::AssertionResult IsProblem(const Outcome& outcome, int status, const std::string& line);

}  // namespace commtest::testing
