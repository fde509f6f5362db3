#include "commissioning/parameter_write.h"

#include <gtest/gtest.h>

#include "session/start_stop.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::Happen;
using testing::NativeBench;
namespace frames = testing::frames;

// Row 1 of the native instrument, 给定值, takes the value 200; what comes of it is noted exchange by
// exchange.
struct WriteBench : NativeBench {
    explicit WriteBench(const Text& value = u"200") : write(1, value) { Form().CommandCode = 40; }

    void Enter() {
        write.Judge(Form());
        Happen(*this, [this](MainForm& form) { write.Enter(form); });
    }
    void ReadBack() {
        Happen(*this, [](MainForm& form) { ReadRowNext(form, 1); });
        StartInShortWay(Form());
    }
    // Lets one exchange come to its end and notes it.
    WriteOutcome NoteNext() {
        const auto before = Form().Outcomes.Total();
        line.RunWhile([&] { return Form().Outcomes.Total() == before; }, line.Time() + 10'000);
        write.NoteOutcome(Form(), Form().Outcomes.Last());
        return write.State();
    }

    ParameterWrite write;
};

TEST(ParameterWrite, IsHeldUntilItIsEntered) {
    WriteBench bench;
    EXPECT_EQ(bench.write.State(), WriteOutcome::Held);
    bench.write.Judge(bench.Form());
    EXPECT_FALSE(bench.write.Check().objection);
    EXPECT_TRUE(bench.SentFrames().empty());
}

TEST(ParameterWrite, AnsweredAndReadBackIsEqual) {
    WriteBench bench;
    bench.WillAnswer({frames::kTaken, frames::kFirstRowReply});
    bench.Enter();
    EXPECT_EQ(bench.write.State(), WriteOutcome::UnderWay);
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent);
    EXPECT_TRUE(bench.write.IsAnswered());
    bench.ReadBack();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Equal);
    EXPECT_EQ(ToUtf8(bench.write.ReadBack()), "200");
    EXPECT_EQ(bench.SentFrames().front(), frames::kWriteFirstRow);
}

TEST(ParameterWrite, OtherValueReadBackIsDifferentAndALaterReadDecidesAnew) {
    WriteBench bench(u"200");
    // 6400, low byte first, is 100.
    bench.WillAnswer({frames::kTaken, "40 30 31 52 45 36 34 30 30 31 34 0D", frames::kFirstRowReply});
    bench.Enter();
    bench.NoteNext();
    bench.ReadBack();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Different);
    EXPECT_EQ(ToUtf8(bench.write.ReadBack()), "100");
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Equal);
}

TEST(ParameterWrite, RefusalStaysWhateverIsReadLater) {
    WriteBench bench;
    bench.WillAnswer({frames::kRefused, frames::kFirstRowReply});
    bench.Enter();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Refused);
    EXPECT_EQ(bench.write.Reply()->verdict.answer, Answer::Refused);
    bench.ReadBack();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Refused);
    EXPECT_EQ(ToUtf8(bench.write.ReadBack()), "");
}

TEST(ParameterWrite, WithoutAnAnswerTheRowDecides) {
    WriteBench bench;
    bench.WillAnswer({"", frames::kFirstRowReply});
    bench.Enter();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Unconfirmed);
    EXPECT_FALSE(bench.write.IsAnswered());
    bench.ReadBack();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Equal);
}

TEST(ParameterWrite, AnswerWithAWrongCheckWordDoesNotConfirm) {
    WriteBench bench;
    bench.WillAnswer({"40 30 31 23 23 30 30 0D"});
    bench.Enter();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Unconfirmed);
}

TEST(ParameterWrite, RefusalWithAWrongCheckWordDoesNotRefuse) {
    WriteBench bench;
    bench.WillAnswer({"40 30 31 2A 2A 30 30 0D"});
    bench.Enter();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Unconfirmed);
}

TEST(ParameterWrite, ReadThatFailsIsNoReadBack) {
    WriteBench bench;
    bench.WillAnswer({frames::kTaken, frames::kRefused});
    bench.Enter();
    bench.NoteNext();
    bench.ReadBack();
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent);
    bench.write.SettleWithoutRead();
    EXPECT_EQ(bench.write.State(), WriteOutcome::Unconfirmed);
}

TEST(ParameterWrite, ReadOfAnotherRowDecidesNothing) {
    WriteBench bench;
    bench.WillAnswer({frames::kTaken, frames::kFirstRowReply});
    bench.Enter();
    bench.NoteNext();
    Happen(bench, [](MainForm& form) { ReadRowNext(form, 2); });
    StartInShortWay(bench.Form());
    EXPECT_EQ(bench.NoteNext(), WriteOutcome::Sent);
}

TEST(ParameterWrite, CommandCannotBeReadBack) {
    NativeBench bench;
    EXPECT_FALSE(ParameterWrite(3, u"0").CanBeReadBack(bench.Form()));
    EXPECT_TRUE(ParameterWrite(1, u"0").CanBeReadBack(bench.Form()));
}

TEST(ParameterWrite, EntryThatRaisesAnErrorStaysHeld) {
    WriteBench bench(u"x");
    bench.Enter();
    EXPECT_EQ(bench.write.State(), WriteOutcome::Held);
    EXPECT_EQ(bench.dialogs.Shown.back().number, 13);
    EXPECT_FALSE(bench.Form().IsRunning());
}

}  // namespace
}  // namespace commtest
