#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <sstream>

#include "catalogue/catalogue_connection.h"
#include "catalogue/recordings.h"
#include "cli/command_line.h"
#include "cli/command_line_runner.h"
#include "cli/console.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"

namespace commtest {

namespace {

using ::testing::HasSubstr;
using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;

// A program folder with three pairs under BENCH and one under O'NOTE.
class RecordingsVerb : public ::testing::Test {
  protected:
    RecordingsVerb() {
        RunCommand({"catalogue", "create", folder.path()});
        store.Open(LocalCatalogue(FolderFiles(folder.path())));
        RecordedExchange deleted = Pair(u"B", u"BENCH", u" 43");
        deleted.isValid = false;
        Recordings(store).Add({Pair(u"A", u"BENCH", u" 41"), Pair(u"A", u"BENCH", u" 42"), deleted,
                               Pair(u"A'", u"O'NOTE", u" 44")});
    }

    static RecordedExchange Pair(const Text& instrument, const Text& note, const Text& reply) {
        return {instrument, u"P", note, u"1101", u"2024-05-06", u"6", u" 40", reply};
    }

    Outcome Run(const QStringList& words) const {
        return RunCommand(QStringList("recordings") + words + QStringList{"--folder", folder.path()});
    }

    QString FileWith(const std::string& bytes) const {
        const QString name = folder.filePath("in.jsonl");
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        return name;
    }

    std::string List() const { return Run({"list", "--format", "csv"}).results; }

    QTemporaryDir folder;
    QtStore store;
};

constexpr const char* kHeadings = "instrument,note,protocol,firstDate,lastDate,exchanges,deleted\n";
constexpr const char* kAll =
    "instrument,note,protocol,firstDate,lastDate,exchanges,deleted\n"
    "A,BENCH,P,2024-05-06,2024-05-06,2,0\n"
    "A',O'NOTE,P,2024-05-06,2024-05-06,1,0\n"
    "B,BENCH,P,2024-05-06,2024-05-06,1,1\n";
const std::string kHead =
    R"({"format": 1, "instrument": "A", "protocol": "P", "code": "1101", "note": "bench"})"
    "\n";
const std::string kKnown =
    R"({"date": "2024-05-06", "row": 6, "request": " 40", "reply": " 42", "valid": true})"
    "\n";
const std::string kNew =
    R"({"date": "2024-05-07", "row": 7, "request": " 40", "reply": " 45", "valid": true})"
    "\n";

TEST_F(RecordingsVerb, ListCountsThePairsAndTheDeletedOnes) { EXPECT_EQ(List(), kAll); }

TEST_F(RecordingsVerb, ShowGivesThePairsOfANoteInAnyCase) {
    EXPECT_EQ(Run({"show", "--instrument", "A", "--note", "bench", "--format", "csv"}).results,
              "date,row,request,reply,valid\n2024-05-06,6,40,41,是\n2024-05-06,6,40,42,是\n");
    EXPECT_EQ(Run({"show", "--instrument", "A'", "--note", "o'note", "--format", "csv"}).results,
              "date,row,request,reply,valid\n2024-05-06,6,40,44,是\n");
}

TEST_F(RecordingsVerb, WhatIsNotThereIsBadUsage) {
    EXPECT_TRUE(
        IsProblem(Run({"show", "--instrument", "A", "--note", "none"}), 2,
                  "没有仪表 \"A\"、说明 \"NONE\" 的演示数据。已有的请看 commtest-cli recordings list"));
    EXPECT_EQ(Run({"delete", "--instrument", "C", "--note", "bench"}).status, 2);
    EXPECT_EQ(Run({"rename", "--instrument", "C", "--to", "D", "--yes"}).status, 2);
    EXPECT_EQ(Run({"note", "--note", "none", "--to", "D", "--yes"}).status, 2);
    EXPECT_TRUE(IsProblem(Run({"sing"}), 2,
                          "没有动作 \"sing\"，应为 list、show、rename、note、delete、undelete、export 或 "
                          "import。用法请看 commtest-cli recordings --help"));
    EXPECT_TRUE(IsProblem(Run({"export"}), 2, "缺少参数: 文件。用法请看 commtest-cli recordings --help"));
    EXPECT_EQ(List(), kAll);
}

TEST_F(RecordingsVerb, ChangeOfANoteNamesEachInstrumentAndWaitsForAYes) {
    const Outcome refused = Run({"note", "--note", "bench", "--to", "new"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.problems,
              "仪表 \"A\"、说明 \"BENCH\": 2 条\n"
              "仪表 \"B\"、说明 \"BENCH\": 1 条\n"
              "说明改为 \"NEW\"? 没有更改。确实要改请加 --yes\n");
    EXPECT_EQ(List(), kAll);
    EXPECT_EQ(Run({"note", "--note", "bench", "--to", "new", "--yes"}).status, 0);
    EXPECT_EQ(List(), std::string(kHeadings) +
                          "A,NEW,P,2024-05-06,2024-05-06,2,0\n"
                          "A',O'NOTE,P,2024-05-06,2024-05-06,1,0\n"
                          "B,NEW,P,2024-05-06,2024-05-06,1,1\n");
}

TEST_F(RecordingsVerb, UserAtATerminalIsAskedAndAnswers) {
    const auto answer = [this](const std::string& typed) {
        std::istringstream lines(typed);
        std::ostringstream results;
        std::ostringstream problems;
        Console console({lines, true}, results, problems);
        RunCommandLine({"recordings", "note", "--note", "bench", "--to", "new", "--folder", folder.path()},
                       console);
        return problems.str();
    };
    EXPECT_THAT(answer("n\n"), HasSubstr("说明改为 \"NEW\"? 输入 y 或 是 表示同意\n没有更改\n"));
    answer("");
    EXPECT_EQ(List(), kAll);
    answer("Y\n");
    EXPECT_THAT(List(), HasSubstr("A,NEW,P,2024-05-06,2024-05-06,2,0\n"));
}

TEST_F(RecordingsVerb, RenamedInstrumentKeepsItsLetters) {
    EXPECT_EQ(Run({"rename", "--instrument", "A", "--to", "x'y"}).status, 2);
    const Outcome done = Run({"rename", "--instrument", "A", "--to", "x'y", "--yes"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.problems, "仪表 \"A\"、说明 \"BENCH\": 2 条\n");
    EXPECT_THAT(List(), HasSubstr("x'y,BENCH,P,2024-05-06,2024-05-06,2,0\n"));
}

TEST_F(RecordingsVerb, EveryActionTakesANoteInAnyCase) {
    const QString out = folder.filePath("out.jsonl");
    for (const QStringList& action :
         {QStringList{"show", "--instrument", "A"}, QStringList{"delete", "--instrument", "A"},
          QStringList{"undelete", "--instrument", "A"}, QStringList{"export", out, "--instrument", "A"},
          QStringList{"note", "--to", "new", "--yes"}}) {
        EXPECT_EQ(Run(action + QStringList{"--note", "bEnch"}).status, 0) << action.join(' ').toStdString();
    }
    EXPECT_EQ(List(), std::string(kHeadings) +
                          "A,NEW,P,2024-05-06,2024-05-06,2,0\n"
                          "A',O'NOTE,P,2024-05-06,2024-05-06,1,0\n"
                          "B,NEW,P,2024-05-06,2024-05-06,1,1\n");
}

TEST_F(RecordingsVerb, RenamedInstrumentKeepsItsNotes) {
    Run({"rename", "--instrument", "A", "--to", "x", "--yes"});
    EXPECT_EQ(Run({"show", "--instrument", "x", "--note", "bench"}).status, 0);
    EXPECT_EQ(Run({"show", "--instrument", "X", "--note", "bench"}).status, 2);
}

TEST_F(RecordingsVerb, DeletedPairsComeBack) {
    EXPECT_EQ(Run({"delete", "--instrument", "A", "--note", "bench"}).results,
              "已删除 2 条，可以用 undelete 恢复\n");
    EXPECT_THAT(List(), HasSubstr("A,BENCH,P,2024-05-06,2024-05-06,2,2\n"));
    EXPECT_EQ(Run({"undelete", "--instrument", "A", "--note", "bench"}).results, "已恢复 2 条\n");
    EXPECT_EQ(List(), kAll);
}

TEST_F(RecordingsVerb, ExportIsALineAPairBehindItsHeader) {
    const QString name = folder.filePath("out.jsonl");
    EXPECT_EQ(Run({"export", name, "--instrument", "A'", "--note", "o'note"}).status, 0);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(),
              R"({"format": 1, "instrument": "A'", "protocol": "P", "code": "1101", "note": "O'NOTE"})"
              "\n"
              R"({"date": "2024-05-06", "row": 6, "request": " 40", "reply": " 44", "valid": true})"
              "\n");
    EXPECT_EQ(Run({"export", "/dev/null/x", "--instrument", "A", "--note", "bench"}).status, 3);
}

TEST_F(RecordingsVerb, ImportIntoAKnownNoteAsksAddsWhatIsNewAndCanBeRepeated) {
    const QString file = FileWith(kHead + kKnown + kNew + kNew);
    EXPECT_TRUE(
        IsProblem(Run({"import", file}), 2,
                  "仪表 \"A\"、说明 \"BENCH\" 下已有 2 条，再加入 1 条? 没有更改。确实要改请加 --yes"));
    EXPECT_EQ(List(), kAll);
    EXPECT_EQ(Run({"import", file, "--yes"}).results, "已导入 1 条，2 条已有\n");
    EXPECT_THAT(List(), HasSubstr("A,BENCH,P,2024-05-06,2024-05-07,3,0\n"));
    EXPECT_EQ(Run({"import", file}).results, "已导入 0 条，3 条已有\n");
    EXPECT_THAT(List(), HasSubstr("A,BENCH,P,2024-05-06,2024-05-07,3,0\n"));
}

TEST_F(RecordingsVerb, ImportThatDoesNotFitNamesItsLineAndAddsNothing) {
    const QString file = FileWith(kHead + kNew + "{\"date\": \"2024-05-07\"}\n");
    EXPECT_TRUE(IsProblem(Run({"import", file, "--yes"}), 2,
                          file.toStdString() + " 第 3 行: 缺少 \"row\"。没有导入任何数据"));
    EXPECT_EQ(List(), kAll);
    EXPECT_EQ(Run({"import", folder.filePath("none")}).status, 3);
}

}  // namespace

}  // namespace commtest
