#include "cli/interrupt.h"

#include <gtest/gtest.h>

#include <csignal>

#include "host_qt/event_loop.h"

namespace commtest {

namespace {

using testing::Eventually;

class InterruptTest : public ::testing::TestWithParam<int> {};

TEST_P(InterruptTest, SignalBecomesAnEvent) {
    int events = 0;
    const Interrupt interrupt([&events] { ++events; });
    std::raise(GetParam());
    EXPECT_EQ(events, 0);
    EXPECT_TRUE(Eventually([&events] { return events > 0; }));
    EXPECT_EQ(events, 1);
}

TEST_P(InterruptTest, SecondSignalEndsTheProgram) {
    EXPECT_EXIT(
        {
            const Interrupt interrupt([] {});
            std::raise(GetParam());
            std::raise(GetParam());
        },
        ::testing::KilledBySignal(GetParam()), "");
}

TEST_P(InterruptTest, HandlerThatStoodBeforeComesBack) {
    std::signal(GetParam(), SIG_IGN);
    {
        const Interrupt interrupt([] {});
    }
    EXPECT_EQ(std::signal(GetParam(), SIG_DFL), SIG_IGN);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptTest, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

}  // namespace

}  // namespace commtest
