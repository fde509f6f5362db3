#include "window/saved_findings.h"

#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "window/core_words.h"
#include "window/list_words.h"
#include "window/pieces.h"

namespace commtest {

SavedFindings::SavedFindings(Store& store, const ProgramFiles& files, const QString& list,
                             const QString& path, const Switches& switches)
    : list_(list), file_(path) {
    if (!file_.open(QIODevice::WriteOnly)) {
        problem_ = file_.errorString();
        return;
    }
    file_.write("\xEF\xBB\xBF");
    try {
        check_ = std::make_unique<ListCheck>(
            InstrumentCatalogue(store), files.OpenBytes(list.toStdU16String()),
            [this](const ListFinding& finding) { Write(finding); }, switches);
    } catch (const RuntimeError& error) {
        problem_ = ToQt(error.StandardMessage());
    }
}

bool SavedFindings::Step() {
    try {
        if (check_ && check_->Step()) return true;
    } catch (const RuntimeError& error) {
        problem_ = ToQt(error.StandardMessage());
    }
    check_.reset();
    if (problem_.isEmpty() && !file_.commit()) problem_ = file_.errorString();
    return false;
}

void SavedFindings::Write(const ListFinding& finding) {
    const QString line = Words::tr("%1:%2：%3；%4")
                             .arg(list_)
                             .arg(finding.line)
                             .arg(WordsOn(finding), Translated(OutcomeOf(finding.kind)));
    file_.write(line.toUtf8() + "\r\n");
}

QString SavedFindings::Problem() const { return problem_; }

}  // namespace commtest
