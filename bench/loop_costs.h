#pragma once

#include <sys/resource.h>

#include <chrono>
#include <cstdio>

// What a loop costs from here on: seconds of wall clock and of processor time.
class LoopCosts {
  public:
    void Print(int exchanges) const {
        const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start_;
        std::printf("%f %f %d\n", wall.count(), ProcessorSeconds() - processorAtStart_, exchanges);
    }

  private:
    static double ProcessorSeconds() {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval& t) {
            return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    }

    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    double processorAtStart_ = ProcessorSeconds();
};
