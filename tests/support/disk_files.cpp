#include "support/disk_files.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "runtime/runtime_error.h"

namespace commtest::testing {

namespace fs = std::filesystem;

DiskFiles::DiskFiles() {
    std::string form = fs::temp_directory_path() / "a 'folder' XXXXXX";
    folder_ = FromUtf8(mkdtemp(form.data()));
    current_ = folder_;
}

DiskFiles::~DiskFiles() { fs::remove_all(fs::path(folder_)); }

void DiskFiles::Write(const Text& name, const std::string& bytes) const {
    std::ofstream(fs::path(PathOf(name)), std::ios::binary) << bytes;
}

std::string DiskFiles::Read(const Text& name) const {
    std::ifstream file(fs::path(PathOf(name)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool DiskFiles::Exists(const Text& name) const { return fs::exists(fs::path(PathOf(name))); }

Text DiskFiles::PathOf(const Text& name) const { return (fs::path(current_) / fs::path(name)).u16string(); }

std::vector<Text> DiskFiles::NamesBeginning(const Text& beginning) const {
    std::vector<Text> names;
    for (const auto& entry : fs::directory_iterator(fs::path(current_))) {
        Text name = entry.path().filename().u16string();
        if (entry.is_regular_file() && name.starts_with(beginning)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

void DiskFiles::Rename(const Text& name, const Text& newName) {
    std::error_code failure;
    fs::rename(fs::path(PathOf(name)), fs::path(PathOf(newName)), failure);
    if (failure) throw RuntimeError(RuntimeError::kBadFile);
}

void DiskFiles::Remove(const Text& name) {
    if (!fs::remove(fs::path(PathOf(name)))) throw RuntimeError(RuntimeError::kBadFile);
}

}  // namespace commtest::testing
