#include "cli/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>

namespace commtest {

namespace {

constexpr char kRecord[] =
    "第 1 次, 向 甲 发送: @01RD17\\0D   收到: \n@01RD0710\\0D\nCRC校验正确  读取 1# 仪表的动态数据\n\n";

class OutputFileTest : public ::testing::Test {
  protected:
    OutputFileTest() { QDir(outer.path()).mkdir(QString::fromUtf8("folder")); }

    QString Path(const QString& name) const { return outer.filePath(name); }

    void Put(const QString& name, const std::string& bytes) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    std::string Content(const QString& name) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    // The line of the refusal, empty where there is none.
    QString Refusal(const QString& name, OutputKind kind = OutputKind::Record) const {
        try {
            RequireOwnOutput({Path(name), kind, Path(QStringLiteral("folder"))});
            return {};
        } catch (const Problem& problem) {
            EXPECT_EQ(problem.Status(), ExitStatus::BadUsage);
            return problem.Line();
        }
    }

    QString RefusalBecause(const QString& name, const char* why) const {
        return Path(name) + QString::fromUtf8(why) + QString::fromUtf8("，没有改动。请给出另一个文件名");
    }

    QTemporaryDir outer;
};

TEST_F(OutputFileTest, NewAndEmptyFilesAndEarlierRecordsAreTaken) {
    Put("empty.txt", "");
    Put("record.txt", std::string(kRecord) + "第 2 次, cut in the mid");
    Put("silent.txt", "第 10 次, 向 甲 发送:  01 03   收到: \n\n仪表无应答\n\n");
    Put("english.txt", "1 time, to 甲 send: @01RD17\\0D   receive: \n@01RD0710\\0D\n\n");
    for (const char* name : {"new.txt", "empty.txt", "record.txt", "silent.txt", "english.txt"}) {
        EXPECT_EQ(Refusal(name), QString()) << name;
    }
}

TEST_F(OutputFileTest, StatisticsOfEitherFaceAreTaken) {
    const char* failures = "         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0%\n";
    Put("chinese.txt", std::string("总计通讯: 3 次") + failures);
    Put("english.txt", std::string("Times: 3") + failures);
    Put("other.txt", std::string("Time: 3") + failures);
    EXPECT_EQ(Refusal("chinese.txt", OutputKind::Statistics), QString());
    EXPECT_EQ(Refusal("english.txt", OutputKind::Statistics), QString());
    EXPECT_NE(Refusal("other.txt", OutputKind::Statistics), QString());
}

TEST_F(OutputFileTest, WhatIsNoWholeRecordIsRefused) {
    const std::string record = kRecord;
    const std::string contents[] = {
        "notes",
        "第 1 次, 向 甲 发送: a phrase   收到: nothing more",
        record.substr(0, record.size() - 1),
        " " + record,
        "第 x 次" + record.substr(record.find(" 次") + 4),
        std::string("SQLite format 3\0", 16),
        record + '\0',
    };
    for (const std::string& content : contents) {
        Put("other.txt", content);
        EXPECT_EQ(Refusal("other.txt"), RefusalBecause("other.txt", " 已存在，不是通讯记录")) << content;
    }
}

TEST_F(OutputFileTest, NamesThatTheProgramUsesInItsFolderAreRefused) {
    for (const char* name :
         {"通讯数据.mdb", "通讯数据.mdb.bak-20261122-100000", "通讯数据.mdb-journal", "ErrorComm.ini",
          "ErrorComm-2026.ini", "TQ.ini", "OutTQ.ini", "Setup.ini", "自动保存通讯记录"}) {
        const QString path = QString::fromUtf8("folder/") + QString::fromUtf8(name);
        EXPECT_EQ(Refusal(path), RefusalBecause(path, " 是程序自己用的文件"));
    }
    EXPECT_EQ(Refusal(QString::fromUtf8("通讯数据.mdb")), QString()) << "elsewhere it is a name like others";
}

TEST_F(OutputFileTest, ListMayHaveTheUsualNameOfALists) {
    EXPECT_EQ(Refusal("folder/OutTQ.ini", OutputKind::ParameterList), QString());
    EXPECT_EQ(Refusal("folder/OutTQ.Dev", OutputKind::ChannelTable), QString());
    EXPECT_EQ(Refusal("folder/OutTQ.Dev", OutputKind::ParameterList),
              RefusalBecause("folder/OutTQ.Dev", " 是程序自己用的文件"));
}

TEST_F(OutputFileTest, LinksAreLookedThrough) {
    Put("notes.txt", "notes");
    QFile::link(Path("notes.txt"), Path("link.txt"));
    QFile::link(Path(QString::fromUtf8("folder/通讯数据.mdb")), Path("hidden.txt"));
    EXPECT_EQ(Refusal("link.txt"), RefusalBecause("link.txt", " 已存在，不是通讯记录"));
    EXPECT_EQ(Refusal("hidden.txt"), RefusalBecause("hidden.txt", " 是程序自己用的文件"));
    EXPECT_TRUE(IsSameFile(Path("link.txt"), Path("notes.txt")));
    EXPECT_FALSE(IsSameFile(Path("hidden.txt"), Path("notes.txt")));
}

TEST_F(OutputFileTest, FolderIsNoFile) {
    EXPECT_EQ(Refusal("folder"), RefusalBecause("folder", " 是文件夹，不是文件"));
}

TEST_F(OutputFileTest, PipesAndDevicesAreTaken) {
    ASSERT_EQ(mkfifo(Path("pipe").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(Refusal("pipe"), QString());
    OutputFile null({QStringLiteral("/dev/null"), OutputKind::Record, {}});
    null.Write("a");
    null.Finish();
}

TEST_F(OutputFileTest, RecordingIsKnownByItsHeader) {
    Put("one",
        "{\"format\": 1, \"instrument\": \"a\", \"protocol\": \"b\", \"code\": \"1\", \"note\": \"N\"}\nx");
    Put("other", "{\"format\": 1}\n");
    EXPECT_EQ(Refusal("one", OutputKind::Recording), QString());
    EXPECT_EQ(Refusal("other", OutputKind::Recording), RefusalBecause("other", " 已存在，不是演示数据"));
}

TEST_F(OutputFileTest, WhatIsAppendedStandsBehindTheEarlierRecord) {
    Put("record.txt", kRecord);
    OutputFile file({Path("record.txt"), OutputKind::Record, {}, true});
    file.Write("more");
    EXPECT_EQ(Content("record.txt"), std::string(kRecord) + "more");
}

}  // namespace

}  // namespace commtest
