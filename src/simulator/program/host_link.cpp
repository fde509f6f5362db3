#include "simulator/program/host_link.h"

#include <system_error>

namespace simulator {

namespace fs = std::filesystem;

HostLink::HostLink(const std::string& path, const std::string& target) : path_(path), target_(target) {
    if (path_.empty()) return;
    if (fs::is_symlink(path_)) fs::remove(path_);
    fs::create_symlink(target_, path_);
}

HostLink::~HostLink() {
    std::error_code ignored;
    if (!path_.empty() && fs::read_symlink(path_, ignored) == target_) fs::remove(path_, ignored);
}

}  // namespace simulator
