#pragma once

#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <functional>

namespace commtest::testing {

inline void RunEventLoopFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

// Runs the event loop until `holds` does, for two seconds at most.
inline bool Eventually(const std::function<bool()>& holds) {
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (holds()) loop.quit();
    });
    look.start(std::chrono::milliseconds(1));
    QTimer::singleShot(std::chrono::seconds(2), &loop, &QEventLoop::quit);
    loop.exec();
    return holds();
}

}  // namespace commtest::testing
