#pragma once

#include <QSocketNotifier>
#include <QString>
#include <functional>
#include <memory>

namespace commtest {

// A bell between two instances of the program: a local socket, a file of the user's run-time folder.
class CallSocket {
  public:
    explicit CallSocket(QString path);
    CallSocket(const CallSocket&) = delete;
    CallSocket& operator=(const CallSocket&) = delete;
    ~CallSocket();

    // From the event loop of the one that listens.
    std::function<void()> IsCalled;

    // What stands at the path goes: only for the instance that holds the lock. A folder that takes no socket
    // leaves it deaf.
    void Listen();

    // Calls the one that listens; nothing happens where nobody does.
    void Call() const;

  private:
    QString path_;
    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace commtest
