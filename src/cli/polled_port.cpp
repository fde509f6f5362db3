#include "cli/polled_port.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace commtest {

namespace {

bool IsPassing(int error) { return error == EAGAIN || error == EINTR; }

}  // namespace

PolledPort::PolledPort(LineLoop& loop, DeviceMap devices) : QtSerialPort(std::move(devices)), loop_(loop) {
    loop_.Drive(loss_, [this] {
        loss_.SetEnabled(false);
        Lose();
    });
}

void PolledPort::SetPortOpen(bool open) {
    if (open == PortOpen()) return;
    loss_.SetEnabled(false);
    StopCarrying();
    QtSerialPort::SetPortOpen(open);
    if (!PortOpen()) return;
    descriptor_ = Descriptor();
    loop_.Watch(descriptor_, POLLIN, [this](short events) { Carry(events); });
}

void PolledPort::StopCarrying() {
    if (descriptor_ >= 0) loop_.Unwatch(std::exchange(descriptor_, -1));
    arrived_.clear();
    leaving_.clear();
    awaitsRoom_ = false;
}

// Nothing is carried any more: a device that is gone is ready without end.
void PolledPort::LoseSoon() {
    StopCarrying();
    loss_.SetEnabled(true);
}

void PolledPort::Carry(short events) {
    if ((events & POLLOUT) != 0) Write();
    if ((events & ~POLLOUT) != 0 && descriptor_ >= 0) Read();
}

void PolledPort::Output(const std::string& bytes) {
    if (descriptor_ < 0) return;
    leaving_ += bytes;
    if (!awaitsRoom_) Write();
}

void PolledPort::Write() {
    const ssize_t taken = write(descriptor_, leaving_.data(), leaving_.size());
    if (taken < 0 && !IsPassing(errno)) return NoteLoss();
    leaving_.erase(0, static_cast<std::size_t>(std::max<ssize_t>(taken, 0)));
    if (awaitsRoom_ == !leaving_.empty()) return;
    awaitsRoom_ = !awaitsRoom_;
    loop_.SetEvents(descriptor_, awaitsRoom_ ? POLLIN | POLLOUT : POLLIN);
}

void PolledPort::Read() {
    std::array<char, 4096> chunk;
    const ssize_t count = read(descriptor_, chunk.data(), chunk.size());
    if (count < 0 && IsPassing(errno)) return;
    if (count <= 0) return NoteLoss();
    arrived_.append(chunk.data(), static_cast<std::size_t>(count));
    if (Receives) Receives();
}

// What came in a turn of the toolkit, the toolkit has read; the session takes each arrival at once.
std::string PolledPort::Input() {
    return arrived_.empty() ? QtSerialPort::Input() : std::exchange(arrived_, {});
}

}  // namespace commtest
