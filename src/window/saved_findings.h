#pragma once

#include <QSaveFile>

#include "catalogue/list_check.h"
#include "host/program_files.h"

namespace commtest {

// All findings of a list, written into a file of the user's choice, a line of the list a step.
class SavedFindings {
  public:
    SavedFindings(Store& store, const ProgramFiles& files, const QString& list, const QString& path,
                  const Switches& switches);

    // False at the end.
    bool Step();

    // Why they are not saved; empty where they are.
    QString Problem() const;

  private:
    void Write(const ListFinding& finding);

    QString list_;
    QSaveFile file_;
    std::unique_ptr<ListCheck> check_;
    QString problem_;
};

}  // namespace commtest
