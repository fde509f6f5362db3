#include "cli/line_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <string>
#include <vector>

namespace commtest {

namespace {

using ::testing::ElementsAre;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class Pipe {
  public:
    Pipe() {
        int ends[2] = {-1, -1};
        if (pipe(ends) != 0) throw std::runtime_error("no pipe");
        reading_ = ends[0];
        writing_ = ends[1];
    }
    ~Pipe() {
        close(reading_);
        Close();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int Reading() const { return reading_; }
    int Writing() const { return writing_; }
    void Fill() const { ASSERT_EQ(write(writing_, "!", 1), 1); }
    void Empty() const {
        char byte = 0;
        ASSERT_EQ(read(reading_, &byte, 1), 1);
    }
    void Close() {
        if (writing_ >= 0) close(writing_);
        writing_ = -1;
    }

  private:
    int reading_ = -1;
    int writing_ = -1;
};

void StayBusyFor(Clock::duration time) {
    const auto end = Clock::now() + time;
    while (Clock::now() < end) {
    }
}

class LineLoopTest : public ::testing::Test {
  protected:
    LineLoopTest() {
        loop.Drive(limit, [this] {
            log.push_back("time is up");
            loop.Quit();
        });
        limit.SetEnabled(true);
    }

    // A word for each tick of the timer; behind so many words the run is over.
    void Log(Timer& timer, const std::string& word, std::size_t last) {
        loop.Drive(timer, [this, word, last] { Note(word, last); });
    }
    void Note(const std::string& word, std::size_t last) {
        log.push_back(word);
        if (log.size() >= last) loop.Quit();
    }

    // Runs until two timers of 1 and 2 ms are due in one round.
    void RunIntoARoundWithTwo(Timer& ofTwo, Timer& ofOne) {
        ofTwo.SetEnabled(true);
        ofOne.SetEnabled(true);
        StayBusyFor(3ms);
        loop.Run();
    }

    Pipe pipe;
    LineLoop loop;
    Timer limit{false, 2000};
    std::vector<std::string> log;
};

TEST_F(LineLoopTest, EarlierOfTwoDeadlinesTicksFirst) {
    Timer late{false, 20};
    Timer early{false, 5};
    Log(late, "late", 2);
    loop.Drive(early, [&] {
        early.SetEnabled(false);
        log.push_back("early");
    });
    const auto begin = Clock::now();
    late.SetEnabled(true);
    early.SetEnabled(true);
    loop.Run();
    EXPECT_THAT(log, ElementsAre("early", "late"));
    EXPECT_GE(Clock::now() - begin, 20ms);
}

TEST_F(LineLoopTest, TimerTicksAtEachOfItsEnds) {
    Timer timer{true, 5};
    Log(timer, "tick", 3);
    const auto begin = Clock::now();
    loop.Run();
    EXPECT_THAT(log, ElementsAre("tick", "tick", "tick"));
    EXPECT_GE(Clock::now() - begin, 14ms);
}

TEST_F(LineLoopTest, NewIntervalStartsTheCountAnew) {
    Timer timer{true, 60'000};
    Log(timer, "tick", 1);
    timer.SetInterval(1);
    loop.Run();
    EXPECT_THAT(log, ElementsAre("tick"));
}

TEST_F(LineLoopTest, IntervalOfZeroTicksInEachRoundAndLeavesNoDescriptorUnheard) {
    Timer timer{true, 0};
    Log(timer, "tick", 5);
    pipe.Fill();
    loop.Watch(pipe.Reading(), POLLIN, [this](short) { Note("ready", 5); });
    loop.Run();
    EXPECT_THAT(log, ElementsAre("ready", "tick", "ready", "tick", "ready"));
}

TEST_F(LineLoopTest, TimerOfIntervalZeroThatAnArrivalStartsTicksInTheSameRound) {
    Timer timer{false, 0};
    Log(timer, "tick", 2);
    pipe.Fill();
    loop.Watch(pipe.Reading(), POLLIN, [&](short) {
        log.push_back("ready");
        timer.SetEnabled(true);
    });
    loop.Run();
    EXPECT_THAT(log, ElementsAre("ready", "tick"));
}

TEST_F(LineLoopTest, WhatWasDueFirstTicksFirst) {
    Timer two{false, 2};
    Timer one{false, 1};
    Log(two, "two", 2);
    Log(one, "one", 2);
    RunIntoARoundWithTwo(two, one);
    EXPECT_THAT(log, ElementsAre("one", "two"));
}

TEST_F(LineLoopTest, TickThatStopsAnotherOneThatIsDueKeepsItSilent) {
    Timer two{false, 2};
    Timer one{false, 1};
    Log(two, "two", 1);
    loop.Drive(one, [&] {
        two.SetEnabled(false);
        Note("one", 2);
    });
    RunIntoARoundWithTwo(two, one);
    EXPECT_THAT(log, ElementsAre("one", "one"));
}

TEST_F(LineLoopTest, TimerThatAnothersTickStartsWaitsForTheNextRound) {
    Timer two{false, 2};
    Timer one{false, 1};
    loop.Watch(pipe.Reading(), POLLIN, [this](short) {
        pipe.Empty();
        log.push_back("ready");
    });
    Log(two, "two", 3);
    loop.Drive(one, [&] {
        one.SetEnabled(false);
        log.push_back("one");
        pipe.Fill();
        two.SetInterval(0);
    });
    RunIntoARoundWithTwo(two, one);
    EXPECT_THAT(log, ElementsAre("one", "ready", "two"));
}

TEST_F(LineLoopTest, TicksThatWereMissedAreNotMadeUpFor) {
    Timer timer{true, 2};
    std::vector<Clock::time_point> ticks;
    loop.Drive(timer, [&] {
        ticks.push_back(Clock::now());
        if (ticks.size() == 1) StayBusyFor(10ms);
        if (ticks.size() == 3) loop.Quit();
    });
    loop.Run();
    ASSERT_EQ(ticks.size(), 3U);
    EXPECT_GE(ticks[2] - ticks[1], 1900us);
}

TEST_F(LineLoopTest, WhatAQuitLeavesOverComesWithTheNextRun) {
    Timer two{false, 2};
    Timer one{false, 1};
    Log(two, "two", 2);
    loop.Drive(one, [&] {
        one.SetEnabled(false);
        Note("one", 1);
    });
    RunIntoARoundWithTwo(two, one);
    EXPECT_THAT(log, ElementsAre("one"));
    loop.Run();
    EXPECT_THAT(log, ElementsAre("one", "two"));
}

TEST_F(LineLoopTest, HangupIsToldUnasked) {
    loop.Watch(pipe.Reading(), 0, [this](short events) { Note((events & POLLHUP) != 0 ? "hangup" : "", 1); });
    pipe.Close();
    loop.Run();
    EXPECT_THAT(log, ElementsAre("hangup"));
}

TEST_F(LineLoopTest, DescriptorTellsOfTheEventsThatItWasLastAskedFor) {
    loop.Watch(pipe.Writing(), 0, [this](short) { Note("room", 2); });
    Timer timer{true, 1};
    loop.Drive(timer, [&] {
        timer.SetEnabled(false);
        log.push_back("asked");
        loop.SetEvents(pipe.Writing(), POLLOUT);
    });
    loop.Run();
    EXPECT_THAT(log, ElementsAre("asked", "room"));
}

TEST_F(LineLoopTest, DescriptorIsLeftAloneFromWithinItsOwnHandler) {
    Timer timer{false, 1};
    Log(timer, "tick", 2);
    pipe.Fill();
    loop.Watch(pipe.Reading(), POLLIN, [&](short) {
        loop.Unwatch(pipe.Reading());
        log.push_back("ready");
        timer.SetEnabled(true);
    });
    loop.Run();
    EXPECT_THAT(log, ElementsAre("ready", "tick"));
}

TEST_F(LineLoopTest, TimersMayGoBeforeIt) {
    Timer lasting{true, 5};
    Log(lasting, "lasting", 1);
    {
        Timer passing(true, 1);
        Log(passing, "passing", 1);
        passing.SetEnabled(false);
    }
    loop.Run();
    EXPECT_THAT(log, ElementsAre("lasting"));
}

// --- Signals ---

int pipeOfSignal = -1;

void WriteToPipe(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(pipeOfSignal, &byte, 1);
}

TEST_F(LineLoopTest, SignalInTheMiddleOfAWaitIsToldByItsPipe) {
    pipeOfSignal = pipe.Writing();
    std::signal(SIGUSR1, WriteToPipe);
    loop.Watch(pipe.Reading(), POLLIN, [this](short) { Note("signal", 1); });
    sigevent event = {};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGUSR1;
    timer_t alarm = {};
    ASSERT_EQ(timer_create(CLOCK_MONOTONIC, &event, &alarm), 0);
    const itimerspec soon = {{}, {0, 5'000'000}};
    ASSERT_EQ(timer_settime(alarm, 0, &soon, nullptr), 0);
    loop.Run();
    timer_delete(alarm);
    std::signal(SIGUSR1, SIG_DFL);
    EXPECT_THAT(log, ElementsAre("signal"));
}

}  // namespace

}  // namespace commtest
