#include "host_qt/call_socket.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <cstring>
#include <utility>

namespace commtest {

namespace {

// No family where the path is too long.
sockaddr_un AddressOf(const QString& path) {
    const QByteArray bytes = QFile::encodeName(path);
    sockaddr_un address = {};
    if (bytes.size() >= static_cast<qsizetype>(sizeof address.sun_path)) return address;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return address;
}

int MakeSocket() { return socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

const sockaddr* Plain(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

}  // namespace

CallSocket::CallSocket(QString path) : path_(std::move(path)) {}

CallSocket::~CallSocket() {
    if (socket_ < 0) return;
    notifier_.reset();
    close(socket_);
    QFile::remove(path_);
}

void CallSocket::Listen() {
    QFile::remove(path_);
    const sockaddr_un address = AddressOf(path_);
    const int made = MakeSocket();
    if (made < 0 || bind(made, Plain(address), sizeof address) != 0) {
        if (made >= 0) close(made);
        return;
    }
    socket_ = made;
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        char call = 0;
        while (recv(socket_, &call, sizeof call, 0) >= 0) {
            if (IsCalled) IsCalled();
        }
    });
}

void CallSocket::Call() const {
    const sockaddr_un address = AddressOf(path_);
    const int made = MakeSocket();
    if (made < 0) return;
    sendto(made, "!", 1, 0, Plain(address), sizeof address);
    close(made);
}

}  // namespace commtest
