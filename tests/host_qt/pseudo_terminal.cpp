#include "host_qt/pseudo_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <map>
#include <stdexcept>
#include <vector>

namespace commtest::testing {

namespace {

constexpr int kPatienceMs = 2000;

// Of who has hung up its line and not closed its port yet: the number of the line is free, its lock stands.
bool IsLocked(const QString& device) {
    const QString name = QString(device).remove(QStringLiteral("/dev/")).replace(u'/', u'_');
    return QFile::exists(QStringLiteral("/var/lock/LCK..") + name);
}

}  // namespace

PseudoTerminal::PseudoTerminal() {
    Make();
    std::vector<int> taken;  // by the port of another test
    while (IsLocked(device_)) {
        taken.push_back(master_);
        Make();
    }
    for (const int each : taken) close(each);
}

void PseudoTerminal::Make() {
    int slave = -1;
    char name[64] = {};
    if (openpty(&master_, &slave, name, nullptr, nullptr) != 0)
        throw std::runtime_error("no pseudo-terminal");
    termios raw = {};
    tcgetattr(slave, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave, TCSANOW, &raw);
    close(slave);
    fcntl(master_, F_SETFD, FD_CLOEXEC);
    device_ = QString::fromUtf8(name);
}

void PseudoTerminal::Write(const std::string& bytes) const {
    if (write(master_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        throw std::runtime_error("the pseudo-terminal takes nothing");
    }
}

std::string PseudoTerminal::Read(std::size_t count) const {
    std::string bytes;
    pollfd waiting = {master_, POLLIN, 0};
    while (bytes.size() < count && poll(&waiting, 1, kPatienceMs) > 0) {
        char chunk[1024];
        const ssize_t got = read(master_, chunk, sizeof chunk);
        if (got <= 0) break;
        bytes.append(chunk, static_cast<std::size_t>(got));
    }
    return bytes;
}

int PseudoTerminal::BaudRate() const {
    static const std::map<speed_t, int> kRates = {{B1200, 1200}, {B9600, 9600}, {B57600, 57600}};
    termios settings = {};
    tcgetattr(master_, &settings);
    const auto rate = kRates.find(cfgetospeed(&settings));
    return rate == kRates.end() ? 0 : rate->second;
}

void PseudoTerminal::HangUp() {
    if (master_ >= 0) close(master_);
    master_ = -1;
}

}  // namespace commtest::testing
