#include "window/simulated_instrument.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>

namespace commtest::testing {
namespace {

// A program in the simulator's place.
class SimulatedInstrumentTest : public ::testing::Test {
  protected:
    QTemporaryDir folder;

    QString Program(const QByteArray& script) {
        QFile file(folder.filePath("program"));
        file.open(QIODevice::WriteOnly);
        file.write("#!/bin/sh\necho $$ >" + folder.filePath("pid").toUtf8() + "\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }

    bool Runs() {
        QFile file(folder.filePath("pid"));
        return file.open(QIODevice::ReadOnly) && QFile::exists("/proc/" + file.readAll().trimmed());
    }
};

TEST_F(SimulatedInstrumentTest, IsThereAsSoonAsItsDeviceIs) {
    SimulatedInstrument instrument(Program("sleep 0.1; : >\"$4\"; exec sleep 60\n"), 10'000);
    EXPECT_TRUE(instrument.Start());
    EXPECT_TRUE(Runs());
}

TEST_F(SimulatedInstrumentTest, OneThatIsNotThereInTimeIsToldAndEnded) {
    SimulatedInstrument instrument(Program("exec sleep 60\n"), 300);
    EXPECT_FALSE(instrument.Start());
    EXPECT_EQ(instrument.Problem().toStdString(), "模拟仪表没有按时就绪");
    EXPECT_FALSE(Runs());
}

TEST_F(SimulatedInstrumentTest, OneThatDoesNotListenIsEndedAllTheSame) {
    SimulatedInstrument instrument(Program("trap '' TERM\nexec sleep 60\n"), 300);
    EXPECT_FALSE(instrument.Start());
    EXPECT_FALSE(Runs());
}

TEST_F(SimulatedInstrumentTest, OneThatEndsAtOnceIsToldWithoutAWait) {
    QElapsedTimer clock;
    clock.start();
    SimulatedInstrument instrument(Program("exit 1\n"), 60'000);
    EXPECT_FALSE(instrument.Start());
    EXPECT_EQ(instrument.Problem().toStdString(), "模拟仪表程序已退出");
    EXPECT_LT(clock.elapsed(), 30'000);
}

TEST_F(SimulatedInstrumentTest, ProgramThatIsNotThereIsTold) {
    SimulatedInstrument instrument(folder.filePath("none"), 300);
    EXPECT_FALSE(instrument.Start());
    EXPECT_FALSE(instrument.Problem().isEmpty());
}

}  // namespace
}  // namespace commtest::testing
