#include "app/recording_addition.h"

#include <gtest/gtest.h>

#include "replay/recording_file.h"
#include "support/sqlite_store.h"

namespace commtest::testing {
namespace {

class RecordingAdditionTest : public ::testing::Test {
  protected:
    std::unique_ptr<Store> store = MakeEmptyCatalogue();
    Recordings recordings{*store};

    static std::string Head(const std::string& note) {
        return R"({"format": 1, "instrument": "A", "protocol": "P", "code": "1101", "note": ")" + note +
               "\"}\n";
    }
    static std::string Line(const std::string& reply, bool isValid = true) {
        return R"({"date": "2024-05-06", "row": 6, "request": " 40", "reply": ")" + reply +
               R"(", "valid": )" + (isValid ? "true" : "false") + "}\n";
    }
    static std::vector<std::string> Replies(const RecordingAddition& addition) {
        std::vector<std::string> replies;
        for (const RecordedExchange& one : addition.pairs) replies.push_back(ToUtf8(one.reply));
        return replies;
    }
};

TEST_F(RecordingAdditionTest, PairsOfAnUnknownNoteAreAllNewAndNothingIsAsked) {
    const RecordingAddition addition = AdditionOf(Head("bench") + Line("41") + Line("42"), recordings);
    EXPECT_EQ(addition.instrument, u"A");
    EXPECT_EQ(addition.note, u"BENCH");
    EXPECT_EQ(Replies(addition), (std::vector<std::string>{" 41", " 42"}));
    EXPECT_EQ(addition.pairs[0].note, u"BENCH");
    EXPECT_EQ(addition.known, 0U);
    EXPECT_FALSE(addition.GoesToAnExistingNote());
}

TEST_F(RecordingAdditionTest, KnownAndRepeatedRepliesAreLeftOutAndCounted) {
    recordings.Add(AdditionOf(Head("BENCH") + Line("41") + Line("42", false), recordings).pairs);
    const RecordingAddition addition =
        AdditionOf(Head("bench") + Line("42") + Line("43") + Line("43"), recordings);
    EXPECT_EQ(Replies(addition), (std::vector<std::string>{" 43"}));
    EXPECT_EQ(addition.known, 2U);
    EXPECT_EQ(addition.present.all, 2);
    EXPECT_EQ(addition.present.deleted, 1);
    EXPECT_TRUE(addition.GoesToAnExistingNote());
}

TEST_F(RecordingAdditionTest, NothingIsAskedWhereNothingIsNew) {
    recordings.Add(AdditionOf(Head("BENCH") + Line("41"), recordings).pairs);
    EXPECT_FALSE(AdditionOf(Head("BENCH") + Line("41"), recordings).GoesToAnExistingNote());
}

TEST_F(RecordingAdditionTest, SameReplyUnderAnotherNoteIsNew) {
    recordings.Add(AdditionOf(Head("OTHER") + Line("41"), recordings).pairs);
    const RecordingAddition addition = AdditionOf(Head("BENCH") + Line("41"), recordings);
    EXPECT_EQ(addition.pairs.size(), 1U);
    EXPECT_EQ(addition.present.all, 0);
}

TEST_F(RecordingAdditionTest, FileThatIsNoRecordingAddsNothing) {
    try {
        AdditionOf(Head("BENCH") + Line("4"), recordings);
        FAIL();
    } catch (const RecordingFileError& error) {
        EXPECT_EQ(error.Fault(), (RecordingFault{RecordingFault::Kind::WrongValue, 2, "reply"}));
    }
}

}  // namespace
}  // namespace commtest::testing
