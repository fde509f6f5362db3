#include "cli/read_repetition.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

class ReadRepetitionTest : public ::testing::Test {
  protected:
    static LineOptions Options() {
        LineOptions options;
        options.folder = testing::ShippedFolder();
        options.protocol = u"TQ仪表协议";
        options.instrument = u"HX-D10智能数字显示控制仪";
        options.address = u"1";
        options.port = u"COM1";
        options.settings = u"9600,N,8,1";
        options.interval = u"0";
        return options;
    }

    // A frame goes out, and the builder of the next one has moved on.
    void Send(std::int32_t command = 31) {
        form.CommandCode = command;
        form.CurrentRow = 6;
        repetition.BeforeFrame();
        form.CommandCode = command + 1;
        form.CurrentRow = 7;
    }

    void End(Ending ending, CheckWord check = CheckWord::Right, Answer answer = Answer::Data) {
        Outcome outcome;
        outcome.exchange.number = 4;
        outcome.exchange.ending = ending;
        outcome.verdict.check = check;
        outcome.verdict.answer = answer;
        repetition.Note(outcome);
    }

    void Fail() { End(Ending::Silent, CheckWord::NotJudged, Answer::Unknown); }

    std::istringstream input;
    std::ostringstream results;
    std::ostringstream problems;
    Console console{{input}, results, problems};
    LineSession line{Options(), console};
    MainForm& form = line.Form();
    ReadRepetition repetition{line, 2, console};
};

TEST_F(ReadRepetitionTest, GoodReadIsNotRepeated) {
    Send();
    End(Ending::Complete);
    EXPECT_FALSE(repetition.IsDue());
    EXPECT_FALSE(repetition.HasFailed());
    EXPECT_EQ(form.CommandCode, 32);
    EXPECT_EQ(problems.str(), "");
}

TEST_F(ReadRepetitionTest, FailedReadStandsWhereItStoodInFrontOfItsFrame) {
    form.SendText = u" 01";
    form.ReadFrameCommand = u" RD";
    form.ReadAttribute = u"D";
    Send();
    form.SendText = u" 02";
    form.ReadFrameCommand = u" RR";
    form.ReadAttribute = u"S";
    Fail();
    EXPECT_TRUE(repetition.IsDue());
    EXPECT_EQ(form.CommandCode, 31);
    EXPECT_EQ(form.CurrentRow, 6);
    EXPECT_EQ(form.SendText, u" 01");
    EXPECT_EQ(form.ReadFrameCommand, u" RD");
    EXPECT_EQ(form.ReadAttribute, u"D");
}

TEST_F(ReadRepetitionTest, EachReasonIsTold) {
    Send();
    Fail();
    EXPECT_EQ(problems.str(), "第 4 次通讯无应答，重复第 1 次\n");
    problems.str({});
    Send();
    End(Ending::Incomplete, CheckWord::NotJudged, Answer::Unknown);
    EXPECT_EQ(problems.str(), "第 4 次通讯数据不完整，重复第 2 次\n");
    Send();
    End(Ending::Complete);
    problems.str({});
    Send();
    End(Ending::Complete, CheckWord::Wrong);
    EXPECT_EQ(problems.str(), "第 4 次通讯校验出错，重复第 1 次\n");
}

TEST_F(ReadRepetitionTest, RepetitionsAreCountedAsTheyGoOut) {
    Send();
    Fail();
    EXPECT_EQ(repetition.Count(), 0);
    Send();
    EXPECT_EQ(repetition.Count(), 1);
    EXPECT_FALSE(repetition.IsDue());
}

TEST_F(ReadRepetitionTest, WhatNoRepetitionMendedHasFailedAndTheNextReadHasItsOwn) {
    for (int turn = 0; turn < 2; ++turn) {
        Send();
        Fail();
        EXPECT_TRUE(repetition.IsDue());
    }
    Send();
    Fail();
    EXPECT_FALSE(repetition.IsDue());
    EXPECT_TRUE(repetition.HasFailed());
    Send();
    Fail();
    EXPECT_TRUE(repetition.IsDue());
}

TEST_F(ReadRepetitionTest, RunThatEndsInFrontOfARepetitionHasFailed) {
    Send();
    Fail();
    EXPECT_TRUE(repetition.HasFailed());
    Send();
    End(Ending::Complete);
    EXPECT_FALSE(repetition.HasFailed());
}

TEST_F(ReadRepetitionTest, RefusalFailsAndIsNotRepeated) {
    Send();
    End(Ending::Complete, CheckWord::Right, Answer::Refused);
    EXPECT_FALSE(repetition.IsDue());
    EXPECT_TRUE(repetition.HasFailed());
}

TEST_F(ReadRepetitionTest, WritesAndTestsOfTheLineAreNotRepeated) {
    for (const std::int32_t command : {90, 91, 110, 131}) {
        Send(command);
        Fail();
        EXPECT_FALSE(repetition.IsDue()) << command;
    }
    EXPECT_TRUE(repetition.HasFailed());
}

TEST_F(ReadRepetitionTest, PartsOfAnAnswerKeepTheRowOfRepetitions) {
    Send();
    Fail();
    Send();
    End(Ending::Continued);
    Fail();
    EXPECT_TRUE(repetition.IsDue());
    Send();
    Fail();
    EXPECT_FALSE(repetition.IsDue());
}

TEST_F(ReadRepetitionTest, PortThatGoesUnderAReadIsAReasonWithoutAWord) {
    Send();
    repetition.NoteLoss();
    EXPECT_TRUE(repetition.IsDue());
    EXPECT_EQ(problems.str(), "");
}

TEST_F(ReadRepetitionTest, PortThatGoesBetweenReadsIsNone) {
    Send();
    End(Ending::Complete);
    repetition.NoteLoss();
    EXPECT_FALSE(repetition.IsDue());
    EXPECT_FALSE(repetition.HasFailed());
}

}  // namespace

}  // namespace commtest
