#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/catalogue_connection.h"
#include "catalogue/recordings.h"
#include "cli/command_line_runner.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"

namespace commtest {

namespace {

using ::testing::HasSubstr;
using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;

const QString kIndicator = QString::fromUtf8("HX-D10智能数字显示控制仪");

// A program folder in which one exchange is recorded: 测量值 is -1234.
class ReplayVerb : public ::testing::Test {
  protected:
    ReplayVerb() {
        RunCommand({"catalogue", "create", folder.path()});
        store.Open(LocalCatalogue(FolderFiles(folder.path())));
        Recordings(store).Add(
            {{kIndicator.toStdU16String(), u"TQ仪表协议", u"BENCH", u"11000101", u"2024-05-06", u"6",
              u" 40 30 31 52 44 31 37 0D", u" 40 30 31 52 44 44 32 38 34 36 44 0D"}});
    }

    Outcome Replay(const QStringList& words) const {
        return RunCommand(
            QStringList{"replay", "--instrument", kIndicator, "--note", "bench", "--folder", folder.path()} +
            words);
    }

    QTemporaryDir folder;
    QtStore store;
};

TEST_F(ReplayVerb, PlaysWhatIsStoredAgainAndAgainAndFillsTheGrid) {
    const Outcome outcome = Replay({"--speed", "max", "--exchanges", "3"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.problems, "");
    EXPECT_THAT(outcome.results, HasSubstr("第 3 次, 向 HX-D10智能数字显示控制仪 发送: @01RD17\\0D   收到"));
    EXPECT_THAT(outcome.results, HasSubstr("D284        -1234"));
    EXPECT_THAT(outcome.results,
                HasSubstr("总计通讯: 3 次         数据不完整 0 次;校验出错 0 次;无应答 0 次"));
}

TEST_F(ReplayVerb, EnglishFaceSpeaksInTheRecordTheGridAndTheStatistics) {
    const Outcome outcome = Replay({"--speed", "max", "--exchanges", "3", "--face", "english"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.problems, "");
    EXPECT_THAT(outcome.results,
                HasSubstr("3 time, to HX-D10智能数字显示控制仪 send: @01RD17\\0D   receive: "));
    EXPECT_THAT(outcome.results, HasSubstr("parameter name"));
    EXPECT_THAT(outcome.results, HasSubstr("Times: 3         数据不完整 0 次;校验出错 0 次;无应答 0 次"));
}

TEST_F(ReplayVerb, FaceMayStandInFrontOfTheVerb) {
    const QStringList words = {"replay",      "--instrument", kIndicator, "--note",      "bench", "--folder",
                               folder.path(), "--speed",      "max",      "--exchanges", "1"};
    for (const QStringList& face : {QStringList{"--face", "english"}, QStringList{"--face=english"}})
        EXPECT_THAT(RunCommand(face + words).results, HasSubstr("Times: 1 "));
    EXPECT_THAT(RunCommand(QStringList{"--face", "chinese"} + words).results, HasSubstr("总计通讯: 1 次"));
}

TEST_F(ReplayVerb, SpeedIsAWholeNumberOrMax) {
    for (const char* speed : {"0", "1001", "fast", "1.5"}) {
        EXPECT_TRUE(
            IsProblem(Replay({"--speed", speed}), 2,
                      std::string("选项 --speed 的值 \"") + speed +
                          "\" 不对，应为 1 到 1000 的整数，或 max。用法请看 commtest-cli replay --help"));
    }
}

TEST_F(ReplayVerb, RecordingThatIsDeletedIsNotPlayed) {
    Recordings(store).SetValid(kIndicator.toStdU16String(), u"BENCH", false);
    EXPECT_TRUE(IsProblem(Replay({"--exchanges", "1"}), 2,
                          "没有仪表 \"HX-D10智能数字显示控制仪\"、说明 \"BENCH\" 的演示数据。已有的请看 "
                          "commtest-cli recordings list"));
}

TEST_F(ReplayVerb, PartOfTheNameIsEnoughWhereOneRecordingHasIt) {
    const QStringList play = {"replay",      "--instrument", "D10", "--note",      "bench", "--folder",
                              folder.path(), "--speed",      "max", "--exchanges", "1"};
    Outcome outcome = RunCommand(play);
    EXPECT_EQ(outcome.problems, "");
    EXPECT_THAT(outcome.results, HasSubstr("第 1 次, 向 HX-D10智能数字显示控制仪 发送: @01RD17\\0D   收到"));
    Recordings(store).Add(
        {{u"HX-D10B", u"TQ仪表协议", u"BENCH", u"11000101", u"2024-05-06", u"6", u" 40", u" 41"},
         {u"HX-D10C", u"TQ仪表协议", u"OTHER", u"11000101", u"2024-05-06", u"6", u" 40", u" 41"}});
    outcome = RunCommand(play);
    EXPECT_TRUE(
        IsProblem(outcome, 2, "名称中有 \"D10\" 的仪表有 2 种: HX-D10B、HX-D10智能数字显示控制仪。请写全"));
    Recordings(store).SetValid(u"HX-D10B", u"BENCH", false);
    EXPECT_EQ(RunCommand(play).status, 0) << "a deleted one is not meant";
}

TEST_F(ReplayVerb, InstrumentThatTheCatalogueDoesNotKnowIsTold) {
    Recordings(store).Rename(kIndicator.toStdU16String(), u"x");
    EXPECT_TRUE(
        IsProblem(RunCommand({"replay", "--instrument", "x", "--note", "bench", "--folder", folder.path()}),
                  2, "目录中没有仪表 \"x\"。可用名称请看 commtest-cli list instruments"));
}

TEST_F(ReplayVerb, CaptureUnderANoteWithDeletedPairsSaysSo) {
    Recordings(store).SetValid(kIndicator.toStdU16String(), u"BENCH", false);
    const Outcome outcome =
        RunCommand({"capture", "--protocol", QString::fromUtf8("TQ仪表协议"), "--instrument", kIndicator,
                    "--note", "bench", "--port", "COM1=/dev/no-port-to-capture", "--folder", folder.path()});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.problems,
                HasSubstr("说明 \"BENCH\" 下有 1 条已删除的数据，回送相同的不再采集。要恢复请用 commtest-cli "
                          "recordings undelete\n"));
}

TEST_F(ReplayVerb, CaptureNeedsANote) {
    EXPECT_TRUE(
        IsProblem(RunCommand({"capture"}), 2, "缺少选项 --note。用法请看 commtest-cli capture --help"));
}

}  // namespace

}  // namespace commtest
