#pragma once

#include <QString>

#include "host/program_files.h"

namespace commtest {

// The files of a program folder on the disk. What cannot be opened for another reason than a missing folder
// raises error 52.
class FolderFiles : public ProgramFiles {
  public:
    explicit FolderFiles(const QString& folder);

    // From now on the files are those of another folder.
    void MoveTo(const QString& folder);
    const QString& Folder() const { return folder_; }

    bool Exists(const Text& name) const override;
    Text PathOf(const Text& name) const override;
    Text ReadWhole(const Text& name) const override;
    FileText ReadEnd(const Text& name) const override;
    std::unique_ptr<LineReader> ReadLines(const Text& name) const override;
    std::unique_ptr<ByteReader> OpenBytes(const Text& name) const override;
    std::vector<Text> NamesBeginning(const Text& beginning) const override;
    void Remove(const Text& name) override;
    void Rename(const Text& name, const Text& newName) override;
    std::unique_ptr<GrowingFile> OpenForAppend(const Text& name) override;
    void SaveRichText(const Text& name, const Text& text) override;
    void EmptyErrorFile() override;
    Text KeepErrorFile(const Text& moment) override;

  private:
    QString FullPath(const Text& name) const;
    QString FreeKeptName(const Text& moment) const;
    void DropOldestKept() const;

    QString folder_;
};

}  // namespace commtest
