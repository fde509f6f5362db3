#include "window/record_stretches.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {
namespace {

using ::testing::ElementsAre;

// The block of an exchange whose parts are given one by one.
RecordBlock BlockOf(const Text& before, const Text& frame, const Text& behind, const Text& reply,
                    const Text& words, const Outcome& outcome) {
    RecordBlock block;
    block.text = before;
    block.parts.frameAt = block.text.size();
    block.text += frame;
    block.parts.frameEnd = block.text.size();
    block.text += behind;
    block.parts.replyAt = block.text.size();
    block.text += reply;
    block.parts.wordsAt = block.text.size();
    block.text += words;
    block.outcome = std::make_shared<Outcome>(outcome);
    return block;
}

Outcome OutcomeOf(Ending ending, CheckWord check, Answer answer) {
    Outcome outcome;
    outcome.exchange.ending = ending;
    outcome.verdict.check = check;
    outcome.verdict.answer = answer;
    return outcome;
}

// Each stretch behind what it is.
std::vector<std::string> Stretches(const RecordBlock& block) {
    std::vector<std::string> stretches;
    for (const RecordStretch& stretch : StretchesOf(block)) {
        const char* const kinds[] = {"plain:", "frame:", "quiet:", "failure:"};
        stretches.push_back(kinds[static_cast<int>(stretch.kind)] + ToUtf8(stretch.text));
    }
    return stretches;
}

RecordStretch::Kind KindOfWords(const Outcome& outcome) {
    return StretchesOf(BlockOf(u"a", u"b", u"c", u"d", u"e", outcome)).back().kind;
}

TEST(RecordStretches, WordsOfTheRequestAreQuietAroundItsFrame) {
    const Outcome good = OutcomeOf(Ending::Complete, CheckWord::Right, Answer::Data);
    EXPECT_THAT(Stretches(BlockOf(u"第 1286 次, 向 TQ智能 发送: ", u" 01 03", u"   收到: \r\n",
                                  u"01 03 02\r\n", u"CRC校验正确  成功读取\r\n\r\n", good)),
                ElementsAre("quiet:第 1286 次, 向 TQ智能 发送: ", "frame: 01 03", "quiet:   收到: \r\n",
                            "frame:01 03 02\r\n", "quiet:CRC校验正确  成功读取\r\n\r\n"));
}

// No word is looked at.
TEST(RecordStretches, InstrumentMayBeNamedLikeAFailure) {
    const Outcome good = OutcomeOf(Ending::Complete, CheckWord::Right, Answer::Data);
    EXPECT_THAT(Stretches(BlockOf(u"第 1 次, 向 无应答 发送: 出错 发送: ", u"01", u"   收到: \r\n", u"02\r\n",
                                  u"错误", good)),
                ElementsAre("quiet:第 1 次, 向 无应答 发送: 出错 发送: ", "frame:01", "quiet:   收到: \r\n",
                            "frame:02\r\n", "quiet:错误"));
}

TEST(RecordStretches, VerdictOfAFailureWarns) {
    using Kind = RecordStretch::Kind;
    for (const Outcome& failure : {OutcomeOf(Ending::Silent, CheckWord::NotJudged, Answer::Unknown),
                                   OutcomeOf(Ending::Incomplete, CheckWord::NotJudged, Answer::Unknown),
                                   OutcomeOf(Ending::Complete, CheckWord::Wrong, Answer::Data),
                                   OutcomeOf(Ending::Complete, CheckWord::Right, Answer::Refused),
                                   OutcomeOf(Ending::Complete, CheckWord::None, Answer::Refused)}) {
        EXPECT_EQ(KindOfWords(failure), Kind::Failure);
    }
}

TEST(RecordStretches, OtherVerdictsAreQuiet) {
    using Kind = RecordStretch::Kind;
    for (const Answer answer :
         {Answer::Data, Answer::Written, Answer::Test, Answer::Board, Answer::Unknown}) {
        EXPECT_EQ(KindOfWords(OutcomeOf(Ending::Complete, CheckWord::Right, answer)), Kind::Quiet);
        EXPECT_EQ(KindOfWords(OutcomeOf(Ending::Continued, CheckWord::Right, answer)), Kind::Quiet);
    }
}

TEST(RecordStretches, TextWithoutAnExchangeIsPlain) {
    EXPECT_THAT(Stretches({u"仪表搜索,接收到数据"}), ElementsAre("plain:仪表搜索,接收到数据"));
}

}  // namespace
}  // namespace commtest
