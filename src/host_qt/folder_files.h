#pragma once

#include <QFile>
#include <QString>

#include "host/program_files.h"

namespace commtest {

// The files of a program folder on the disk. What cannot be opened for another reason than a missing folder
// raises error 52.
class FolderFiles : public ProgramFiles {
  public:
    explicit FolderFiles(const QString& folder);

    bool Exists(const Text& name) const override;
    Text PathOf(const Text& name) const override;
    FileText ReadText(const Text& name) const override;
    void SaveRichText(const Text& name, const Text& text) override;

    void OpenErrorFile() override;
    void CloseErrorFile() override;
    bool ErrorFileIsOpen() const override { return errorFile_.isOpen(); }
    void WriteToErrorFile(const std::string& bytes) override;
    void EmptyErrorFile() override;

  private:
    QString FullPath(const Text& name) const;

    QString folder_;
    QFile errorFile_;
};

}  // namespace commtest
