#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <type_traits>
#include <utility>

#include "host_qt/qt_store.h"

namespace commtest {

// A connection on a thread of its own, to which calls are handed over, one behind the other. A call owns all
// that it touches: where the driver does not come back, the thread is left to itself and ends when it does.
class StoreThread {
  public:
    struct Connection {
        QtStore store;
        std::unique_ptr<RowCursor> cursor;  // of the query under way
    };

    StoreThread();
    StoreThread(const StoreThread&) = delete;
    StoreThread& operator=(const StoreThread&) = delete;
    // Does not wait: behind the calls handed over the connection is closed, and the thread ends.
    ~StoreThread();
    // The same, waited for a moment: orderly where the driver comes back.
    void End();

    // What `work` gives or raises. It can be gone without having been asked.
    template <typename Work>
    auto Run(Work work) -> std::future<std::invoke_result_t<Work&, Connection&>> {
        using Result = std::invoke_result_t<Work&, Connection&>;
        const auto task = std::make_shared<std::packaged_task<Result(Connection&)>>(std::move(work));
        std::future<Result> result = task->get_future();
        HandOver([task](Connection& connection) { (*task)(connection); });
        return result;
    }

  private:
    using Call = std::function<void(Connection&)>;
    struct Shared;

    void HandOver(Call call);
    static void Work(Shared& shared);

    std::shared_ptr<Shared> shared_;
};

// The exit status of a program, unless a thread still stands in a driver: then the program ends at once with
// it, without the clean-up of libraries that the thread is within. The last that `main` calls.
int EndedWith(int status);

}  // namespace commtest
