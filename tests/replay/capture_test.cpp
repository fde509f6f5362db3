#include "replay/capture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/instrument_catalogue.h"
#include "support/error_of.h"
#include "support/native_instrument.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

class Capture : public ::testing::TestWithParam<testing::StoreUnderTest>, public NativeBench {
  protected:
    Capture() : NativeBench(kChineseFace, testing::MakeEmptyCatalogue(GetParam())) {
        Form().CommandCode = 10;
        Form().ConSaveData.Set(true);
        dialogs.Answers = {u"abc"};
    }

    std::vector<std::string> Rows() const {
        const StoreRows rows = store->Query(
            u"SELECT 说明,编码,采集日期,地址,指令,回送,仪表名称,协议,有效 FROM 通讯_仿真 ORDER BY ID");
        std::vector<std::string> texts;
        for (std::size_t row = 0; row < rows.rows.size(); ++row) {
            std::string text = ToUtf8(rows.At(row, 0));
            for (std::size_t i = 1; i < rows.columns.size(); ++i) text += "|" + ToUtf8(rows.At(row, i));
            texts.push_back(text);
        }
        return texts;
    }
};

TEST_P(Capture, StoresTheExchangeWithItsNoteInUpperCase) {
    WillAnswer({frames::kDynamicReply});
    Press(4);
    line.RunUntil(500);
    EXPECT_THAT(Rows(), ElementsAre("ABC|1101|2024-05-06|6| " + frames::kReadDynamic + "| " +
                                    frames::kDynamicReply + "|仪表甲|TQ仪表协议|1"));
    ASSERT_THAT(dialogs.Shown, SizeIs(1));
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].title), "数据说明");
    EXPECT_EQ(ToUtf8(dialogs.Shown[0].text), "请输入采集数据说明,以便今后区分");
}

TEST_P(Capture, ReplyIsStoredOnceWhateverWasAsked) {
    Form().ReplyText = u" 41";
    Form().SendText = u" 01";
    CaptureExchange(Form());
    Form().SendText = u" 02";
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(1));
    Form().ReplyText = u" 42";
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(2));
    EXPECT_THAT(dialogs.Shown, SizeIs(1)) << "the note stays for the run";
}

TEST_P(Capture, ReplyOfAnotherInstrumentOrNoteIsAnother) {
    Form().ReplyText = u" 41";
    CaptureExchange(Form());
    Form().CaptureNote = u"OTHER";
    CaptureExchange(Form());
    Form().InstrumentList().Set(u"仪表乙");
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(3));
}

TEST_P(Capture, EmptyNoteIsAskedForAgain) {
    dialogs.Answers = {u"", u"n2"};
    Form().ReplyText = u" 41";
    CaptureExchange(Form());
    EXPECT_EQ(ToUtf8(Form().CaptureNote), "");
    Form().ReplyText = u" 42";
    CaptureExchange(Form());
    EXPECT_THAT(dialogs.Shown, SizeIs(2));
    EXPECT_EQ(ToUtf8(Form().CaptureNote), "N2");
    EXPECT_THAT(Rows(), SizeIs(2));
}

TEST_P(Capture, NoteOutlastsTheTick) {
    Form().ReplyText = u" 41";
    CaptureExchange(Form());
    Form().ConSaveData.Set(false);
    Form().ConSaveData.Set(true);
    EXPECT_EQ(ToUtf8(Form().CaptureNote), "ABC");
}

TEST_P(Capture, EachClickOnTheTickBeginsTheListOfSentFramesAnew) {
    Form().SentFrames().Add(u" 41");
    Form().ConSaveData.Set(false);
    EXPECT_THAT(Form().SentFrames().Items(), IsEmpty());
    Form().SentFrames().Add(u" 41");
    Form().ConSaveData.Set(true);
    EXPECT_THAT(Form().SentFrames().Items(), IsEmpty());
}

TEST_P(Capture, SilenceIsNotStored) {
    Press(4);
    line.RunUntil(5000);
    EXPECT_THAT(Rows(), IsEmpty());
}

TEST_P(Capture, ApostropheInTheNameBreaksTheStatementAndTheEngineSaysSo) {
    Form().InstrumentList().Set(u"it's");
    Form().ReplyText = u" 41";
    EXPECT_EQ(ErrorOf([&] { CaptureExchange(Form()); }), RuntimeError::kStore);
    EXPECT_THAT(Rows(), IsEmpty());
}

TEST_P(Capture, QuestionStandsWithinTheReceiveEventWhileTheTimerIsOff) {
    bool wasEnabled = true;
    dialogs.Time = [this, &wasEnabled] {
        wasEnabled = Form().PollTimer().Enabled();
        return line.Time();
    };
    WillAnswer({frames::kDynamicReply});
    Press(4);
    line.RunUntil(400);
    ASSERT_THAT(dialogs.Shown, SizeIs(1));
    EXPECT_FALSE(wasEnabled);
}

TEST_P(Capture, WaitsWhileTheStoreIsWithinAnothersTransaction) {
    Form().CaptureWaits = true;
    Form().ReplyText = u" 41";
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    Form().CaptureWaits = false;
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(1));
}

TEST_P(Capture, PairIsMissedAndCountedWhileTheServerIsLost) {
    Form().CaptureNote = u"A";
    Form().ReplyText = u" 41";
    for (const int call : {1, 2}) {  // the look, and the first index
        storeCalls.LoseAt(call);
        CaptureExchange(Form());
        EXPECT_EQ(storeCalls.CallsSoFar(), call) << "nothing more is tried";
    }
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(Form().MissedPairCount, 2);
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(1));
    EXPECT_EQ(Form().MissedPairCount, 2);
    EXPECT_EQ(Form().CapturedCount, 1);
    Form().ConSaveData.Set(false);
    EXPECT_EQ(Form().MissedPairCount, 0);
}

TEST_P(Capture, PollingGoesOnWhileTheServerIsLost) {
    Form().CaptureNote = u"A";
    storeCalls.LoseAt(1);
    WillAnswer({frames::kDynamicReply, frames::kDynamicReply});
    Press(4);
    line.RunUntil(3000);
    EXPECT_TRUE(Form().IsRunning());
    EXPECT_THAT(dialogs.Shown, IsEmpty());
    EXPECT_EQ(Form().MissedPairCount, 1);
    EXPECT_THAT(Rows(), SizeIs(1));
}

TEST_P(Capture, DeletedPairCountsAsKnown) {
    Form().ReplyText = u" 41";
    CaptureExchange(Form());
    InstrumentCatalogue(*store).DeleteRecording(u"仪表甲", u"ABC");
    CaptureExchange(Form());
    EXPECT_THAT(Rows(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Each, Capture, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
