#include "cli/record_stream.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <sstream>

#include "cli/problem.h"

namespace commtest {

namespace {

constexpr char kEarlierRun[] = "第 1 次, 向 甲 发送: a   收到: \nb\nCRC校验正确\n\n";

class RecordStreamTest : public ::testing::Test {
  protected:
    std::string FileContent() const {
        QFile file(fileName);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    QTemporaryDir folder;
    QString fileName = folder.filePath(QString::fromUtf8("记录.txt"));
    std::istringstream input;
    std::ostringstream results;
    std::ostringstream problems;
    Console console{{input}, results, problems};
};

TEST_F(RecordStreamTest, BlocksComeOutOldestFirst) {
    RecordStream record(console, true, {});
    record.Add(u"第 1 次\r\n\r\n");
    record.Add(u"第 2 次\r\n\r\n");
    EXPECT_TRUE(record.Flush());
    EXPECT_EQ(results.str(), "第 1 次\n\n第 2 次\n\n");
}

TEST_F(RecordStreamTest, BlocksWaitForAFlush) {
    RecordStream record(console, true, {fileName, OutputKind::Record, {}});
    record.Add(u"a");
    EXPECT_EQ(results.str(), "");
    record.Flush();
    record.Flush();
    EXPECT_EQ(results.str(), "a");
    EXPECT_EQ(FileContent(), "a");
}

TEST_F(RecordStreamTest, ManyBlocksGoOutWithoutAFlushAndOnce) {
    RecordStream record(console, true, {fileName, OutputKind::Record, {}});
    std::string all;
    for (int i = 0; i < 2000; ++i) {
        record.Add(u"0123456789");
        all += "0123456789";
    }
    EXPECT_GE(FileContent().size(), 16384U);
    EXPECT_TRUE(record.Flush());
    EXPECT_EQ(FileContent(), all);
    EXPECT_EQ(results.str(), all);
}

TEST_F(RecordStreamTest, FileHoldsTheSameTextAndBeginsAnew) {
    QFile file(fileName);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(kEarlierRun);
    file.close();
    RecordStream record(console, false, {fileName, OutputKind::Record, {}});
    record.Add(u"收到: \x1B\r\n");
    record.Finish();
    EXPECT_EQ(FileContent(), "收到: \\1B\n");
    EXPECT_EQ(results.str(), "");
}

TEST_F(RecordStreamTest, FileOfAnEarlierRunStaysUntilTheFirstBlock) {
    QFile file(fileName);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(kEarlierRun);
    file.close();
    RecordStream record(console, false, {fileName, OutputKind::Record, {}});
    record.Finish();
    EXPECT_EQ(FileContent(), kEarlierRun);
}

TEST_F(RecordStreamTest, ResultsThatTakeNoMoreEndTheFlushing) {
    results.setstate(std::ios::badbit);
    RecordStream record(console, true, {});
    record.Add(u"a");
    EXPECT_FALSE(record.Flush());
}

TEST_F(RecordStreamTest, FileThatCannotBeOpenedIsAProblem) {
    const QString wrong = folder.filePath(QStringLiteral("none/record.txt"));
    try {
        RecordStream record(console, true, {wrong, OutputKind::Record, {}});
        FAIL() << "opened";
    } catch (const Problem& problem) {
        EXPECT_EQ(problem.Status(), ExitStatus::NoAccess);
        EXPECT_TRUE(problem.Line().startsWith(QString::fromUtf8("%1 写不进去: ").arg(wrong)));
    }
}

TEST_F(RecordStreamTest, FileThatTakesNoMoreIsAProblemAtTheEnd) {
    RecordStream record(console, false, {QStringLiteral("/dev/full"), OutputKind::Record, {}});
    record.Add(u"a");
    EXPECT_FALSE(record.Flush());
    EXPECT_THROW(record.Finish(), Problem);
}

}  // namespace

}  // namespace commtest
