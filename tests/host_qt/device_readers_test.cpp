#include "host_qt/device_readers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <csignal>

#include "host_qt/pseudo_terminal.h"
#include "host_qt/qt_serial_port.h"

namespace commtest {

namespace {

using testing::PseudoTerminal;

// Another program that has a device open as its standard input.
class Holder {
  public:
    Holder(const QString& device, int mode) {
        posix_spawn_file_actions_t actions = {};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, QFile::encodeName(device), mode | O_NOCTTY,
                                         0);
        char name[] = "sleep";
        char seconds[] = "60";
        char* words[] = {name, seconds, nullptr};
        EXPECT_EQ(posix_spawnp(&process_, name, &actions, nullptr, words, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

    QString Name() const { return QString::fromUtf8("sleep (进程 %1)").arg(process_); }

  private:
    pid_t process_ = 0;
};

TEST(OtherReaders, ProgramThatHasTheDeviceOpenIsOne) {
    const PseudoTerminal line;
    const Holder reader(line.Device(), O_RDONLY);
    const Holder both(line.Device(), O_RDWR);
    QStringList readers = {reader.Name(), both.Name()};
    QStringList found = OtherReadersOf(line.Device());
    readers.sort();
    found.sort();
    EXPECT_EQ(found, readers);
}

TEST(OtherReaders, ProgramThatOnlyWritesIsNone) {
    const PseudoTerminal line;
    const Holder writer(line.Device(), O_WRONLY);
    EXPECT_EQ(OtherReadersOf(line.Device()), QStringList());
}

TEST(OtherReaders, ThisProgramIsNone) {
    const PseudoTerminal line;
    const int own = open(QFile::encodeName(line.Device()), O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_EQ(OtherReadersOf(line.Device()), QStringList());
    close(own);
}

TEST(OtherReaders, ReaderOfAnotherDeviceIsNone) {
    const PseudoTerminal line;
    const PseudoTerminal other;
    const Holder reader(other.Device(), O_RDONLY);
    EXPECT_EQ(OtherReadersOf(line.Device()), QStringList());
}

TEST(OtherReaders, WhoHoldsTheFarEndIsNone) {
    int master = -1;
    int slave = -1;
    char name[64] = {};
    ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
    {
        const Holder instrument(QString::fromUtf8(name), O_RDWR);  // which has the open ends of this program
        EXPECT_EQ(OtherReadersOf(QString::fromUtf8(name)), QStringList());
    }
    close(master);
    close(slave);
}

TEST(OtherReaders, AreToldAtTheOpening) {
    const PseudoTerminal line;
    QtSerialPort port({{1, line.Device()}});
    {
        const Holder reader(line.Device(), O_RDONLY);
        port.SetPortOpen(true);
        ASSERT_TRUE(port.PortOpen());
        EXPECT_EQ(ToUtf8(port.LastProblem()),
                  "程序 " + reader.Name().toStdString() + " 没有锁住串口，也在读它，会取走应答，请先结束它");
        port.SetPortOpen(false);
    }
    port.SetPortOpen(true);
    EXPECT_EQ(ToUtf8(port.LastProblem()), "");
}

}  // namespace

}  // namespace commtest
