#include "simulator/program/line_device.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "simulator/program/terminal_rate.h"

namespace simulator {

namespace {

[[noreturn]] void Fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void MakeRaw(int handle, const std::string& name) {
    termios settings{};
    if (tcgetattr(handle, &settings) != 0) Fail(name);
    cfmakeraw(&settings);
    if (tcsetattr(handle, TCSANOW, &settings) != 0) Fail(name);
}

}  // namespace

LineDevice::LineDevice(const std::string& device, const std::string& link) : path_(device) {
    if (device.empty()) {
        OpenTerminal();
        if (!link.empty()) MakeLink(link);
        return;
    }
    handle_ = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (handle_ < 0) Fail(device);
    MakeRaw(handle_, device);
}

LineDevice::~LineDevice() {
    if (!link_.empty()) unlink(link_.c_str());
    if (hostSide_ >= 0) close(hostSide_);
    if (handle_ >= 0) close(handle_);
}

void LineDevice::OpenTerminal() {
    handle_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (handle_ < 0 || grantpt(handle_) != 0 || unlockpt(handle_) != 0) Fail("a pseudo-terminal");
    char name[128];
    if (ptsname_r(handle_, name, sizeof name) != 0) Fail("a pseudo-terminal");
    path_ = name;
    hostSide_ = open(name, O_RDWR | O_NOCTTY);
    if (hostSide_ < 0) Fail(path_);
    MakeRaw(hostSide_, path_);
}

void LineDevice::MakeLink(const std::string& link) {
    if (std::filesystem::is_symlink(link)) unlink(link.c_str());
    if (symlink(path_.c_str(), link.c_str()) != 0) Fail(link);
    link_ = link;
}

int LineDevice::Rate() const { return hostSide_ >= 0 ? RateOfTerminal(hostSide_) : 0; }

std::string LineDevice::Read() const {
    char buffer[1024];
    const ssize_t count = read(handle_, buffer, sizeof buffer);
    if (count == 0) errno = ENODEV;
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) Fail(path_);
    return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : std::string();
}

void LineDevice::Write(const std::string& bytes) const {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = write(handle_, bytes.data() + sent, bytes.size() - sent);
        if (count > 0) {
            sent += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN) {
            return;
        } else if (errno != EINTR) {
            Fail(path_);
        }
    }
}

}  // namespace simulator
