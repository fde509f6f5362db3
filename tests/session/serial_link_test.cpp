#include "session/serial_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/runtime_error.h"
#include "session/events.h"
#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::BytesOfHex;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;
using ::testing::HasSubstr;
using testing::HexOfBytes;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;
namespace frames = testing::frames;

std::vector<std::string> ListOf(const ListControl& list) {
    std::vector<std::string> items;
    for (const Text& item : list.Items()) items.push_back(ToUtf8(item));
    return items;
}

// --- Sending ---

class SendingAFrame : public ::testing::Test {
  protected:
    SendingAFrame() {
        form.SendText = u" 40 30 31 52 44 31 37 0D";
        form.ConMeterName[0].Set(u"仪表甲");
    }

    FormBench bench;
    MainForm& form = bench.form;
};

struct Gate {
    bool isRunning;
    std::int32_t commandCode;
    bool isOpen;
};

TEST_F(SendingAFrame, GateIsOpenWhileTheSessionRunsOrAboveCommandCode1000) {
    for (const Gate& gate : {Gate{true, 31, true}, Gate{false, 31, false}, Gate{false, 999, false},
                             Gate{false, 1000, false}, Gate{false, 1001, true}, Gate{true, 1001, true}}) {
        SCOPED_TRACE(gate.commandCode);
        FormBench each;
        each.form.SendText = u" 40";
        each.form.SetRunning(gate.isRunning);
        each.form.CommandCode = gate.commandCode;
        SendFrame(each.form);
        EXPECT_EQ(each.line.Frames().size(), gate.isOpen ? 1u : 0u);
        EXPECT_EQ(each.form.SendCount, gate.isOpen ? 1 : 0);
    }
}

TEST_F(SendingAFrame, ClosedGateClosesThePortShowsItsStatusAndDisablesTheTick) {
    bench.line.SetPortOpen(true);
    form.Timer1[1].SetEnabled(true);
    SendFrame(form);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  关闭");
    EXPECT_EQ(ToUtf8(form.LogLine), "");
}

TEST_F(SendingAFrame, FrameIsCountedAndTheReceiveEventsBeginAnew) {
    form.SetRunning(true);
    form.SendCount = 41;
    form.RxEventCount = 3;
    SendFrame(form);
    EXPECT_EQ(form.SendCount, 42);
    EXPECT_EQ(form.RxEventCount, 0);
}

TEST_F(SendingAFrame, AsciiDisplayShowsTheFrameAsCharactersAndTheLineEndSpelledOut) {
    form.SetRunning(true);
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.ConSendOutString[0].Value()), "@01RD17\\0D");
    EXPECT_EQ(ToUtf8(form.LogLine), "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n");
    EXPECT_EQ(ToUtf8(form.SendText), " 40 30 31 52 44 31 37 0D");
}

TEST_F(SendingAFrame, HexadecimalDisplayShowsTheFrameAsItStands) {
    form.SetRunning(true);
    form.ShowMode.Choose(1);
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.ConSendOutString[0].Value()), " 40 30 31 52 44 31 37 0D");
    EXPECT_EQ(ToUtf8(form.LogLine), "第 1 次, 向 仪表甲 发送:  40 30 31 52 44 31 37 0D   收到: \r\n");
}

TEST_F(SendingAFrame, EachFrameBeginsTheRecordLineAnew) {
    form.SetRunning(true);
    form.LogLine = u"old";
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.LogLine), "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n");
}

TEST_F(SendingAFrame, PortIsOpenedWithTheFirstFrameAndItsStatusShown) {
    form.SetRunning(true);
    SendFrame(form);
    EXPECT_TRUE(bench.line.PortOpen());
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "串口设置:  COM1  9600,N,8,1   状态:  开启");
}

TEST_F(SendingAFrame, OpenPortStaysAndItsStatusIsNotShownAgain) {
    form.SetRunning(true);
    bench.line.SetPortOpen(true);
    form.StatusBar1[1].Set(u"arbitrary");
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.StatusBar1[1].Value()), "arbitrary");
}

TEST_F(SendingAFrame, SentFrameEnablesTheTick) {
    form.SetRunning(true);
    SendFrame(form);
    EXPECT_TRUE(form.Timer1[1].Enabled());
}

struct Destination {
    std::int32_t commandCode;
    std::size_t onTheLine;
    std::size_t replayed;
};

TEST_F(SendingAFrame, CommandCodeDecidesBetweenLineReplayAndNothing) {
    for (const Destination& row :
         {Destination{31, 1, 0}, Destination{1031, 1, 0}, Destination{10000, 1, 0}, Destination{10001, 0, 1},
          Destination{100000, 0, 1}, Destination{100001, 0, 0}}) {
        SCOPED_TRACE(row.commandCode);
        FormBench each;
        each.form.SetRunning(true);
        each.form.CommandCode = row.commandCode;
        each.form.SendText = u" 40";
        SendFrame(each.form);
        EXPECT_EQ(each.line.Frames().size(), row.onTheLine);
        EXPECT_EQ(each.companions.Calls.size(), row.replayed);
        EXPECT_EQ(each.line.PortOpen(), row.onTheLine == 1);
        EXPECT_EQ(each.form.SendCount, 1);
        EXPECT_EQ(ToUtf8(each.form.ConSendOutString[0].Value()), "@");
    }
}

TEST_F(SendingAFrame, ReplayThatFailsIsPassedOver) {
    form.CommandCode = 10031;
    bench.companions.Called = [] { throw RuntimeError(RuntimeError::kSubscript); };
    EXPECT_EQ(ErrorOf([&] { SendFrame(form); }), 0);
    EXPECT_THAT(bench.companions.Calls, ElementsAre("ReplayReply"));
}

TEST_F(SendingAFrame, CommandCode33ShowsTheLineFeedInTheFieldOfSentFrames) {
    form.SetRunning(true);
    form.CommandCode = 33;
    form.SendText = u" 0A";
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.ConSendOutString[0].Value()), "\\0A");
    EXPECT_EQ(HexOfBytes(bench.line.Frames().at(0).bytes), "0A");
}

TEST_F(SendingAFrame, CommandCode33OverwritesWhateverFrameIsShown) {
    form.SetRunning(true);
    form.CommandCode = 33;
    SendFrame(form);
    EXPECT_EQ(ToUtf8(form.ConSendOutString[0].Value()), "\\0A");
}

TEST_F(SendingAFrame, OccupiedPortIsToldAndEndsTheSession) {
    bench.line.Occupied = true;
    form.SetRunning(true);
    bench.files.OpenErrorFile();
    SendFrame(form);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("系统串口被占用,无法打开！"));
    EXPECT_FALSE(form.IsRunning());
    EXPECT_FALSE(bench.files.ErrorFileIsOpen());
    EXPECT_THAT(bench.line.Frames(), IsEmpty());
    EXPECT_FALSE(form.Timer1[1].Enabled());
}

TEST_F(SendingAFrame, OccupiedPortWhileStoppedStartsTheSession) {
    bench.line.Occupied = true;
    form.CommandCode = 1031;  // a search opens the gate
    SendFrame(form);
    EXPECT_TRUE(form.IsRunning());
    EXPECT_TRUE(bench.files.ErrorFileIsOpen());
    EXPECT_EQ(form.CycleStep, 1);
}

TEST_F(SendingAFrame, OverflowOfTheCountIsPassedOverAndTheFrameLeaves) {
    form.SetRunning(true);
    form.SendCount = 2147483647;
    SendFrame(form);
    EXPECT_EQ(form.SendCount, 2147483647);
    EXPECT_THAT(bench.line.Frames(), SizeIs(1));
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(SendingAFrame, BadPairIsToldAndOnlyTheBytesBeforeItLeave) {
    form.SetRunning(true);
    form.SendText = u" 40 30 4G 31";
    SendFrame(form);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("对不起，数据串中含有非法字符,无法完成数据转换！"));
    EXPECT_EQ(HexOfBytes(bench.line.Frames().at(0).bytes), "40 30");
    EXPECT_EQ(ToUtf8(form.ConSendOutString[0].Value()), " 40 30 4G 31");  // cannot be shown as characters
}

// --- Bytes of a frame ---

struct Conversion {
    Text frame;
    std::string bytes;
    bool isGood;
};

TEST(HexTextToBytesTest, PairsOfOneOrTwoDigitsFollowedOnlyByBlanksAreGood) {
    const Conversion rows[] = {
        {u" 40 30 31", "40 30 31", true},
        {u"40 30 31", "40 30 31", true},  // a blank is put in front
        {u" 0d", "0D", true},             // of the fill of code 13
        {u" ff 00", "FF 00", true},
        {u" 4  30", "04 30", true},
        {u" 40 3", "40 03", true},
        {u" 40 ", "40", false},
        {u" 40  3", "40", false},
        {u" 4G", "", false},
        {u" 40 G0 31", "40", false},
        {u" -1", "", false},
        {u" 40 ４0", "40", false},
        {u"\n", "", false},
        {u"", "", false},
    };
    for (const Conversion& row : rows) {
        SCOPED_TRACE(ToUtf8(row.frame));
        FormBench bench;
        std::string bytes = "old";
        EXPECT_EQ(HexTextToBytes(bench.form, row.frame, bytes), row.isGood);
        EXPECT_EQ(HexOfBytes(bytes), row.bytes);
        EXPECT_EQ(bench.dialogs.Shown.size(), row.isGood ? 0u : 1u);
    }
}

// --- Receiving ---

class ReceivingBytes : public ::testing::Test {
  protected:
    ReceivingBytes() { bench.line.SetPortOpen(true); }

    void Arrives(const std::string& hex) { bench.line.Arrives(BytesOfHex(hex)); }

    NativeBench bench;
    MainForm& form = bench.Form();
};

TEST_F(ReceivingBytes, BytesAreAppendedAsBlankAndTwoUpperCaseDigits) {
    Arrives("40 0b");
    Arrives("ff");
    EXPECT_EQ(ToUtf8(form.ReplyText), " 40 0B FF");
}

struct Chunk {
    std::string hex;
    int events;
};

TEST_F(ReceivingBytes, OnlyChunksOfTwoBytesOrMoreCountAsReceiveEvents) {
    for (const Chunk& chunk : {Chunk{"", 0}, Chunk{"40", 0}, Chunk{"40 30", 1}, Chunk{"40 30 31 52", 1}}) {
        SCOPED_TRACE(chunk.hex);
        NativeBench each;
        each.line.SetPortOpen(true);
        each.line.Arrives(BytesOfHex(chunk.hex));
        EXPECT_EQ(each.Form().RxEventCount, chunk.events);
    }
}

TEST_F(ReceivingBytes, EventWithNothingToReadChangesNothing) {
    form.CycleStep = 2;
    form.PartialReplyLength = 5;
    Arrives("");
    EXPECT_EQ(form.CycleStep, 2);
    EXPECT_EQ(form.PartialReplyLength, 5);
    EXPECT_EQ(ToUtf8(form.ReplyText), "");
}

TEST_F(ReceivingBytes, EventEnablesTheTickAlsoOfAStoppedSession) {
    Arrives("40");
    EXPECT_TRUE(form.Timer1[1].Enabled());
    EXPECT_FALSE(form.IsRunning());
}

TEST_F(ReceivingBytes, EventCountThatOverflowsEndsTheEventWithTheTickOff) {
    form.RxEventCount = 32767;
    form.Timer1[1].SetEnabled(true);
    Arrives("40 30");
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 6);
    EXPECT_FALSE(form.Timer1[1].Enabled());
}

TEST_F(ReceivingBytes, TickIsOffWhileTheReplyIsTaken) {
    std::vector<bool> states;
    form.Record().BlockFinished = [&](const RecordBlock&) { states.push_back(form.PollTimer().Enabled()); };
    form.PollTimer().SetEnabled(true);
    Arrives(frames::kDynamicReply);
    EXPECT_THAT(states, ElementsAre(false));
    EXPECT_TRUE(form.PollTimer().Enabled());
}

// --- Judging a reply ---

TEST_F(ReceivingBytes, UnfinishedReplyNotesItsLengthAndLeavesTheInterval) {
    form.Timer1[1].SetInterval(250);
    Arrives("40 30");
    EXPECT_EQ(form.PartialReplyLength, 6);
    EXPECT_EQ(form.CycleStep, 3);
    EXPECT_EQ(form.Timer1[1].Interval(), 250);
    EXPECT_THAT(form.ConSendOutString[0].Items(), IsEmpty());
}

TEST_F(ReceivingBytes, ReplyThatArrivesByteByByteIsJudgedWithItsLastByte) {
    form.SendText = u" 40 30 31 52 44 31 37 0D";
    for (const char byte : BytesOfHex(frames::kDynamicReply)) bench.line.Arrives(std::string(1, byte));
    EXPECT_EQ(bench.Cell(6, 7), "C800");
    EXPECT_EQ(bench.Cell(7, 7), "6400");
    EXPECT_EQ(form.CheckErrorCount, 0);
    EXPECT_EQ(form.CycleStep, 1);
}

TEST_F(ReceivingBytes, ReplyEndIn0DIsNoPart) {
    Arrives(frames::kDynamicReply);
    EXPECT_EQ(form.CycleStep, 1);
    EXPECT_EQ(form.SendCount, 0);
}

TEST_F(ReceivingBytes, TwoRepliesInOneChunkAreOneWithABadCheckWord) {
    Arrives(frames::kDynamicReply + " " + frames::kDynamicReply);
    EXPECT_EQ(form.CheckErrorCount, 1);
    EXPECT_EQ(bench.Cell(6, 7), "");
}

TEST_F(ReceivingBytes, ChatterBehindTheEndIsTakenAsANewReply) {
    Arrives(frames::kDynamicReply);
    Arrives("55");
    EXPECT_EQ(ToUtf8(form.ReplyText), " 55");
    EXPECT_EQ(form.CycleStep, 3);
    Arrives("0D");
    EXPECT_EQ(form.CheckErrorCount, 1);
}

TEST_F(ReceivingBytes, LineFeedMakesAPartOnlyInProtocolsThatContinue) {
    Protocol protocol;
    protocol.code = 21;
    protocol.replyIsComplete = [](const HexText&, const HexText&) { return true; };
    protocol.judge = [](const Exchange&) { return Verdict(); };
    protocol.words = [](const Exchange& exchange, const Verdict&, const Texts&) -> Text {
        return exchange.ending == Ending::Continued ? u"a part" : u"whole";
    };
    for (const bool continues : {true, false}) {
        protocol.continuesOnLineFeed = continues;
        ProtocolTable table;
        table.rows = {protocol};
        FormBench each(table);
        each.form.ProtocolCode = 21;
        each.form.MeterCodeText = u"21";
        each.line.SetPortOpen(true);
        each.line.Arrives("\x0A");
        EXPECT_EQ(ToUtf8(each.form.LogLine), continues ? "\\0A\r\na part" : "\\0A\r\nwhole");
    }
}

TEST_F(ReceivingBytes, EachDistinctFrameIsListedOnceInHexadecimal) {
    form.SendText = u" 40 30 31 52 44 31 37 0D";
    Arrives(frames::kDynamicReply);
    Arrives(frames::kDynamicReply);
    form.SendText = u" 40 30 31 52 52 30 31 0D";
    Arrives(frames::kStaticReply);
    EXPECT_THAT(ListOf(form.ConSendOutString[0]),
                ElementsAre(" 40 30 31 52 44 31 37 0D", " 40 30 31 52 52 30 31 0D"));
}

TEST_F(ReceivingBytes, FrameWithoutAReplyIsNotListed) {
    bench.Start();
    bench.line.RunUntil(1500);
    EXPECT_EQ(form.NoReplyCount, 1);
    EXPECT_THAT(form.ConSendOutString[0].Items(), IsEmpty());
}

TEST_F(ReceivingBytes, CaptureSeesTheReplyBeforeItIsTaken) {
    for (const bool captures : {true, false}) {
        FormBench each;
        each.form.ProtocolCode = 11;
        each.form.MeterCodeText = u"1101";
        each.form.ConSaveData.Set(captures);
        Text seen;
        each.companions.Called = [&] { seen = each.form.ReplyText; };
        each.line.SetPortOpen(true);
        each.line.Arrives("@\r");
        EXPECT_EQ(ToUtf8(seen), captures ? " 40 0D" : "");
        EXPECT_EQ(each.companions.Calls.size(), captures ? 1u : 0u);
    }
}

TEST_F(ReceivingBytes, CaptureComesBeforeTheStepOfAPart) {
    FormBench each;
    each.form.ProtocolCode = 11;
    each.form.ConSaveData.Set(true);
    std::int16_t step = 0;
    each.companions.Called = [&] { step = each.form.CycleStep; };
    each.line.SetPortOpen(true);
    each.line.Arrives("@\n");
    EXPECT_EQ(step, 1);
}

TEST_F(ReceivingBytes, IntervalThatIsNoNumberEndsTheEventWithTheTickOff) {
    form.ConDelayTime.Set(u"很快");
    form.Timer1[1].SetEnabled(true);
    Arrives(frames::kDynamicReply);
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 13);
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_EQ(bench.Cell(6, 8), "200");  // the parser passed over it
}

// --- The continue byte ---

TEST_F(ReceivingBytes, ContinueByteIsSentAsAFrameOfItsOwn) {
    bench.WillAnswer({frames::kDynamicPart});
    bench.Start();
    bench.line.RunUntil(300);
    form.RxEventCount = 5;
    bench.line.RunUntil(301);
    EXPECT_EQ(form.SendCount, 2);
    EXPECT_EQ(form.RxEventCount, 0);
    EXPECT_EQ(ToUtf8(form.SendText), " 0A");
    EXPECT_EQ(ToUtf8(form.LogLine), "第 2 次, 向 仪表甲 发送: \\0A   收到: \r\n");
}

TEST_F(ReceivingBytes, ContinueByteStandsInTheListOfSentFramesOnceItIsAnswered) {
    bench.WillAnswer({frames::kDynamicPart, frames::kDynamicLastPart});
    bench.Start();
    bench.line.RunUntil(301);
    EXPECT_THAT(ListOf(form.ConSendOutString[0]), ElementsAre(" 40 30 31 52 44 31 37 0D"));
    bench.line.RunUntil(302);
    EXPECT_THAT(ListOf(form.ConSendOutString[0]), ElementsAre(" 40 30 31 52 44 31 37 0D", " 0A"));
}

// --- Every fiftieth frame ---

class FiftiethFrame : public ::testing::Test {
  protected:
    // The reply to frame number `count` arrives, with an older block in the record.
    void ReplyToFrame(std::int32_t count, const std::string& reply = frames::kDynamicReply) {
        bench.line.SetPortOpen(true);
        form.SetRunning(true);
        form.SendCount = count;
        form.LogLine = u"line ";
        form.ConCommString[1].Replace(u"older");
        bench.line.Arrives(BytesOfHex(reply));
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

struct Housekeeping {
    std::int32_t sendCount;
    std::int32_t commandCode;
    bool clears;
};

TEST_F(FiftiethFrame, EmptiesTheRecordBelowCommandCode1000) {
    for (const Housekeeping& row :
         {Housekeeping{49, 31, false}, Housekeeping{50, 31, true}, Housekeeping{51, 31, false},
          Housekeeping{100, 31, true}, Housekeeping{50, 999, true}, Housekeeping{50, 1000, false},
          Housekeeping{50, 1031, false}}) {
        SCOPED_TRACE(row.sendCount);
        SCOPED_TRACE(row.commandCode);
        FormBench each;
        each.form.ProtocolCode = 11;
        each.form.SendCount = row.sendCount;
        each.form.CommandCode = row.commandCode;
        each.form.ConCommString[1].PutOnTop({u"older"});
        each.line.SetPortOpen(true);
        each.line.Arrives("@\r");
        EXPECT_EQ(each.form.ConCommString[1].Blocks().empty(), row.clears);
        EXPECT_THAT(each.files.SavedRecords, IsEmpty());
    }
}

TEST_F(FiftiethFrame, SavesTheRecordWithItsNewestBlockWhereThatIsTicked) {
    form.ConAutoSave[0].Set(true);
    ReplyToFrame(50);
    ASSERT_THAT(bench.files.SavedRecords, SizeIs(1));
    EXPECT_EQ(ToUtf8(bench.files.SavedRecords[0].first), "自动保存通讯记录/记录240506120000.rtf");
    EXPECT_EQ(ToUtf8(bench.files.SavedRecords[0].second),
              "line @01RDC80064006E\\0D\r\nCRC校验正确       读取 1# 仪表的动态数据\r\n\r\nolder");
    EXPECT_EQ(bench.Record(), "");
}

TEST_F(FiftiethFrame, WithoutARecordFolderTheEventEndsWithTheTickOffAndTheRecordKept) {
    form.ConAutoSave[0].Set(true);
    bench.files.HasRecordFolder = false;
    form.Timer1[1].SetEnabled(true);
    ReplyToFrame(50);
    EXPECT_EQ(bench.dialogs.Shown.at(0).number, 76);
    EXPECT_FALSE(form.Timer1[1].Enabled());
    EXPECT_TRUE(form.IsRunning());
    EXPECT_THAT(bench.Record(), HasSubstr("older"));
}

TEST_F(FiftiethFrame, ThatIsOnlyAPartIsJumpedOverByItsContinueByte) {
    ReplyToFrame(50, frames::kDynamicPart);
    EXPECT_EQ(form.SendCount, 51);
    EXPECT_THAT(bench.Record(), HasSubstr("older"));
}

TEST_F(FiftiethFrame, CanBeAContinueByte) {
    ReplyToFrame(49, frames::kDynamicPart);
    EXPECT_EQ(form.SendCount, 50);
    EXPECT_EQ(bench.Record(), "");
}

TEST_F(FiftiethFrame, ThatTimesOutKeepsTheRecord) {
    form.ConCommString[1].PutOnTop({u"older"});
    form.SendCount = 49;
    bench.Start();
    bench.line.RunUntil(1500);
    EXPECT_EQ(form.SendCount, 50);
    EXPECT_THAT(bench.Record(), HasSubstr("older"));
}

}  // namespace
}  // namespace commtest
