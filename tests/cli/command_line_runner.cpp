#include "cli/command_line_runner.h"

#include <sstream>

#include "cli/command_line.h"

namespace commtest::testing {

Outcome RunCommand(const QStringList& words, const std::string& input, bool isTyped) {
    std::istringstream lines(input);
    std::ostringstream results;
    std::ostringstream problems;
    Outcome outcome;
    {
        Console console({lines, isTyped}, results, problems);
        outcome.status = RunCommandLine(words, console);
    }
    outcome.results = results.str();
    outcome.problems = problems.str();
    return outcome;
}

QString ShippedFolder() {
    static const QTemporaryDir kFolder;
    static const QString kPath = [] {
        const QString path = kFolder.filePath(QString::fromUtf8("程序 folder"));
        RunCommand({"catalogue", "create", path});
        return path;
    }();
    return kPath;
}

Outcome RunInFolder(QStringList words) {
    words += {"--folder", ShippedFolder()};
    return RunCommand(words);
}

::testing::AssertionResult IsProblem(const Outcome& outcome, int status, const std::string& line) {
    if (outcome.status == status && outcome.results.empty() && outcome.problems == line + "\n") {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "status " << outcome.status << ", results \"" << outcome.results << "\", problems \""
           << outcome.problems << "\", wanted \"" << line << "\"";
}

}  // namespace commtest::testing
