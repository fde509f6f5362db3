#include "cli/traced_port.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDateTime>
#include <QTemporaryDir>

#include "support/virtual_line.h"

namespace commtest {

namespace {

using ::testing::ElementsAre;

class TracedPortTest : public ::testing::Test {
  protected:
    TracedPortTest() {
        line.Answer = [](const std::string&) {
            return std::vector<testing::Arrival>{{5, "\x01\xFF"}, {12, "z"}};
        };
        line.Receives = [this] { received += port.Input(); };
        port.SetPortOpen(true);
    }

    // The fields of a line of the trace.
    static std::vector<QStringList> LinesOf(const QString& path) {
        QFile trace(path);
        EXPECT_TRUE(trace.open(QIODevice::ReadOnly));
        std::vector<QStringList> lines;
        for (const QByteArray& text : trace.readAll().split('\n')) lines.push_back(QString(text).split(u','));
        return lines;
    }

    std::vector<QStringList> Lines() const { return LinesOf(path); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("trace.csv"));
    testing::VirtualLine line;
    TracedPort port{line, line};
    OutputFile file{{path, OutputKind::Trace, {}}};
    std::string received;
};

TEST_F(TracedPortTest, EachChunkHasItsGapDirectionAndBytes) {
    port.TraceInto(file);
    line.RunUntil(3);
    port.Output("@\r");
    line.RunUntil(100);
    port.Flush();
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_THAT(lines[0], ElementsAre("time", "microseconds", "gap", "direction", "bytes"));
    EXPECT_THAT(lines[1].mid(2), ElementsAre("3000", "sent", "40 0D"));
    EXPECT_THAT(lines[2].mid(2), ElementsAre("5000", "received", "01 FF"));
    EXPECT_THAT(lines[3].mid(2), ElementsAre("7000", "received", "7A"));
    EXPECT_THAT(lines[4], ElementsAre(""));
}

TEST_F(TracedPortTest, MomentsAreThoseOfTheWallClock) {
    const QDateTime before = QDateTime::currentDateTime();
    port.TraceInto(file);
    line.RunUntil(1500);
    port.Output("a");
    port.Flush();
    const QStringList chunk = Lines()[1];
    const QDateTime moment = QDateTime::fromString(chunk[0], Qt::ISODateWithMs);
    const qint64 distance = before.addMSecs(1500).msecsTo(moment);
    EXPECT_GE(distance, 0);
    EXPECT_LT(distance, 60000);
    EXPECT_EQ(chunk[1].toInt() / 1000, moment.time().msec());
}

TEST_F(TracedPortTest, BytesPassUnchanged) {
    port.TraceInto(file);
    port.Output("@\r");
    line.RunUntil(100);
    EXPECT_EQ(line.Frames().at(0).bytes, "@\r");
    EXPECT_EQ(received, "\x01\xFFz");
}

TEST_F(TracedPortTest, EmptyReadIsNoChunk) {
    port.TraceInto(file);
    port.Input();
    port.Flush();
    EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(TracedPortTest, WithoutAFileNothingIsWritten) {
    port.Output("@\r");
    line.RunUntil(100);
    port.Flush();
    EXPECT_EQ(QFileInfo(path).size(), 0);
    EXPECT_EQ(received, "\x01\xFFz");
}

TEST_F(TracedPortTest, ManyChunksGoOutWithoutAFlush) {
    port.TraceInto(file);
    for (int i = 0; i < 1000; ++i) port.Output("0123456789");
    EXPECT_GT(QFileInfo(path).size(), 16384);
}

}  // namespace

}  // namespace commtest
