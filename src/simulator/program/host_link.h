#pragma once

#include <filesystem>
#include <string>

namespace simulator {

// A symbolic link to the line, for as long as it lives. A link that an earlier run left is replaced; anything
// else at its path is left alone.
class HostLink {
  public:
    // No link if `path` is empty. Raises std::filesystem::filesystem_error.
    HostLink(const std::string& path, const std::string& target);
    ~HostLink();
    HostLink(const HostLink&) = delete;
    HostLink& operator=(const HostLink&) = delete;

  private:
    std::filesystem::path path_;
    std::filesystem::path target_;
};

}  // namespace simulator
