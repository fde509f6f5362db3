#include "host_qt/store_thread.h"

#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <mutex>
#include <thread>

namespace commtest {

namespace {

using namespace std::chrono_literals;

constexpr auto kMomentForClosing = 250ms;

std::atomic<int> threadsThatRun = 0;

}  // namespace

struct StoreThread::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Call> calls;
    bool endIsWanted = false;
    bool hasEnded = false;

    // Nothing at the end.
    Call Next() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return endIsWanted || !calls.empty(); });
        if (calls.empty()) return {};
        Call call = std::move(calls.front());
        calls.pop_front();
        return call;
    }
};

StoreThread::StoreThread() : shared_(std::make_shared<Shared>()) {
    ++threadsThatRun;
    std::thread([shared = shared_] { Work(*shared); }).detach();
}

StoreThread::~StoreThread() {
    const std::lock_guard lock(shared_->mutex);
    shared_->endIsWanted = true;
    shared_->changed.notify_all();
}

void StoreThread::End() {
    std::unique_lock lock(shared_->mutex);
    shared_->endIsWanted = true;
    shared_->changed.notify_all();
    shared_->changed.wait_for(lock, kMomentForClosing, [this] { return shared_->hasEnded; });
}

void StoreThread::HandOver(Call call) {
    const std::lock_guard lock(shared_->mutex);
    shared_->calls.push_back(std::move(call));
    shared_->changed.notify_all();
}

void StoreThread::Work(Shared& shared) {
    {
        Connection connection;
        while (const Call call = shared.Next()) call(connection);
    }
    const std::lock_guard lock(shared.mutex);
    shared.hasEnded = true;
    --threadsThatRun;
    shared.changed.notify_all();
}

int EndedWith(int status) {
    if (threadsThatRun > 0) {
        std::cout.flush();
        std::fflush(nullptr);
        std::_Exit(status);
    }
    return status;
}

}  // namespace commtest
