#include "cli/line_transport.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <atomic>
#include <csignal>
#include <thread>

#include "cli/interrupt.h"
#include "host_qt/event_loop.h"
#include "host_qt/pseudo_terminal.h"

namespace commtest {

namespace {

using testing::PseudoTerminal;
using testing::RunEventLoopFor;
using namespace std::chrono_literals;

class LineTransportTest : public ::testing::Test {
  protected:
    LineTransportTest() {
        transport->Port().Receives = [this] { received += transport->Port().Input(); };
        transport->Port().IsLost = [this](const Text&) { isLost = true; };
    }

    PseudoTerminal line;
    std::unique_ptr<LineTransport> transport = MakeLineTransport({{1, line.Device()}});
    std::string received;
    bool isLost = false;
};

TEST_F(LineTransportTest, WhatTheToolkitHasComesMeanwhile) {
    QTimer timer;
    int ticks = 0;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(1);
    transport->Run([&] {
        if (ticks > 1) transport->Quit();
    });
    EXPECT_GT(ticks, 1);
}

TEST_F(LineTransportTest, InterruptComesMeanwhile) {
    int looks = 0;
    const Interrupt interrupt([this] { transport->Quit(); });
    std::raise(SIGINT);
    transport->Run([&looks] { ++looks; });
    EXPECT_LE(looks, 1);
}

TEST_F(LineTransportTest, RunBehindAnInterruptNeedsNone) {
    {
        const Interrupt interrupt([this] { transport->Quit(); });
        std::raise(SIGINT);
        transport->Run({});
    }
    int looks = 0;
    transport->Run([&] {
        ++looks;
        transport->Quit();
    });
    EXPECT_EQ(looks, 1);
}

TEST_F(LineTransportTest, WhatTheDeviceDoesNotTakeAtOnceFollowsInOrder) {
    const std::string first(60'000, 'a');
    const std::string second(60'000, 'b');
    transport->Port().SetPortOpen(true);
    transport->Port().Output(first);
    transport->Port().Output(second);
    std::string far;
    std::atomic<bool> isRead = false;
    std::thread reader([&] {
        far = line.Read(first.size() + second.size());
        isRead = true;
    });
    transport->Run([&] {
        if (isRead) transport->Quit();
    });
    reader.join();
    EXPECT_EQ(far.size(), 120'000U);
    EXPECT_TRUE(far == first + second);
    EXPECT_FALSE(isLost);
}

TEST_F(LineTransportTest, BytesThatATurnOfTheToolkitReadsAreReceived) {
    transport->Port().SetPortOpen(true);
    line.Write("@01RD");
    RunEventLoopFor(20ms);
    EXPECT_EQ(received, "@01RD");
    EXPECT_FALSE(isLost);
}

}  // namespace

}  // namespace commtest
