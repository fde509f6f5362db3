#include "host_qt/qt_program.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <optional>

#include "host_qt/event_loop.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::Eventually;
using namespace std::chrono_literals;

// With a run-time folder of its own for the user.
class QtProgramTest : public ::testing::Test {
  protected:
    QtProgramTest() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path())); }
    ~QtProgramTest() override {
        qputenv("XDG_RUNTIME_DIR", formerFolder);
        QCoreApplication::setApplicationVersion(formerVersion);
    }

    QString PathOf(const QString& name) const { return folder.filePath(name); }

    void Write(const QString& name, const QByteArray& content) const {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    std::string ContentOf(const QString& name) const {
        QFile file(PathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    QByteArray formerFolder = qgetenv("XDG_RUNTIME_DIR");
    QString formerVersion = QCoreApplication::applicationVersion();
    QTemporaryDir folder;
    QtProgram program;
};

TEST_F(QtProgramTest, VersionHasThreeParts) {
    QCoreApplication::setApplicationVersion(QStringLiteral("2.3.14"));
    const ProgramVersion version = program.Version();
    EXPECT_EQ(version.major, 2);
    EXPECT_EQ(version.minor, 3);
    EXPECT_EQ(version.revision, 14);
}

// --- One instance for a user ---

TEST_F(QtProgramTest, SecondInstanceSeesTheFirstUntilItIsGone) {
    std::optional<QtProgram> first(std::in_place);
    EXPECT_FALSE(first->PrevInstance());
    EXPECT_TRUE(program.PrevInstance());
    EXPECT_TRUE(program.PrevInstance());
    EXPECT_FALSE(first->PrevInstance());
    first.reset();
    EXPECT_FALSE(program.PrevInstance());
}

TEST_F(QtProgramTest, InstanceThatHasNotAskedIsSeenByNobody) {
    const QtProgram silent;
    EXPECT_FALSE(program.PrevInstance());
}

TEST_F(QtProgramTest, InstanceOfAnotherUserDoesNotCount) {
    EXPECT_FALSE(program.PrevInstance());
    const QTemporaryDir others;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(others.path()));
    EXPECT_FALSE(QtProgram().PrevInstance());
}

TEST_F(QtProgramTest, InstanceThatCrashedDoesNotCount) {
    const pid_t child = fork();
    if (child == 0) {
        const QtProgram crashing;
        _exit(crashing.PrevInstance() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(QFile::exists(PathOf(QStringLiteral("CommTest.lock"))));
    EXPECT_FALSE(program.PrevInstance());
}

TEST_F(QtProgramTest, LaterInstanceCallsTheFirst) {
    int calls = 0;
    program.IsCalled = [&calls] { ++calls; };
    EXPECT_FALSE(program.PrevInstance());
    const QtProgram later;
    EXPECT_TRUE(later.PrevInstance());
    later.CallFirst();
    EXPECT_TRUE(Eventually([&calls] { return calls == 1; }));
    program.CallFirst();
    testing::RunEventLoopFor(50ms);
    EXPECT_EQ(calls, 1);
}

// --- Files ---

TEST_F(QtProgramTest, FileTimeIsLocalAndItsPathMayHaveBackslashes) {
    QFile file(PathOf(QStringLiteral("程序.EXE")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(
        file.setFileTime(QDateTime(QDate(2024, 5, 6), QTime(12, 30, 59)), QFileDevice::FileModificationTime));
    file.close();
    const Text path = folder.path().toStdU16String();
    for (const Text& name : {path + u"/程序.EXE", path + u"\\程序.EXE"}) {
        const DateTime time = program.FileTime(name);
        EXPECT_EQ((std::vector{time.year, time.month, time.day, time.hour, time.minute, time.second}),
                  (std::vector{2024, 5, 6, 12, 30, 59}));
    }
}

TEST_F(QtProgramTest, FileTimeOfAMissingFileIsError53) {
    const Text path = PathOf(QStringLiteral("missing.EXE")).toStdU16String();
    EXPECT_EQ(ErrorOf([&] { program.FileTime(path); }), 53);
}

TEST_F(QtProgramTest, OwnFileIsTheOneThatRuns) {
    EXPECT_TRUE(program.OwnFile().ends_with(u"/host_qt_tests"));
    EXPECT_GE(program.FileTime(program.OwnFile()).year, 2024);
}

// --- Other programs ---

TEST_F(QtProgramTest, StartedProgramRunsInItsOwnFolder) {
    const QString script = QString::fromUtf8("更新.exe");
    Write(script, "#!/bin/sh\npwd > draft\nmv draft folder\n");
    ASSERT_TRUE(QFile::setPermissions(PathOf(script), QFile::ReadOwner | QFile::ExeOwner));
    program.Start(PathOf(script).toStdU16String());
    ASSERT_TRUE(Eventually([this] { return QFile::exists(PathOf(QStringLiteral("folder"))); }));
    EXPECT_EQ(ContentOf(QStringLiteral("folder")), folder.path().toStdString() + "\n");
    EXPECT_FALSE(program.HasEnded());
}

TEST_F(QtProgramTest, StartOfWhatIsNoProgramIsError53) {
    Write(QStringLiteral("text"), "no program");
    for (const char* name : {"missing.exe", "text"}) {
        const Text path = PathOf(QString::fromUtf8(name)).toStdU16String();
        EXPECT_EQ(ErrorOf([&] { program.Start(path); }), 53) << name;
    }
}

// --- The end ---

TEST_F(QtProgramTest, EndLeavesTheEventPump) {
    EXPECT_FALSE(program.HasEnded());
    QTimer end;
    QTimer tooLate;
    QObject::connect(&end, &QTimer::timeout, [this] { program.End(); });
    QObject::connect(&tooLate, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    end.start(1ms);
    tooLate.start(2s);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(program.HasEnded());
}

}  // namespace
}  // namespace commtest
