#pragma once

#include "support/fakes.h"

namespace commtest::testing {

// A program folder on the disk, made empty and removed with this, for stores that need real files. Its texts
// stay in memory.
class DiskFiles : public FakeProgramFiles {
  public:
    DiskFiles();
    DiskFiles(const DiskFiles&) = delete;
    DiskFiles& operator=(const DiskFiles&) = delete;
    ~DiskFiles() override;

    const Text& Folder() const { return folder_; }

    // From now on the files are those of another folder; the own one is still removed.
    void MoveTo(const Text& folder) { current_ = folder; }

    void Write(const Text& name, const std::string& bytes) const;
    std::string Read(const Text& name) const;

    bool Exists(const Text& name) const override;
    Text PathOf(const Text& name) const override;
    std::vector<Text> NamesBeginning(const Text& beginning) const override;
    void Remove(const Text& name) override;
    void Rename(const Text& name, const Text& newName) override;

  private:
    Text folder_;
    Text current_;
};

}  // namespace commtest::testing
