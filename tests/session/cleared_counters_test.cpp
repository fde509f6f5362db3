// The counters are cleared while a frame is in flight: its reply then counts as a fiftieth one, since 0 is a
// multiple of 50.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/records.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::NativeBench;
namespace frames = testing::frames;

// Each reply comes 50 ms behind its frame; the counters are cleared before the second one.
class ClearedCounters : public ::testing::Test {
  protected:
    ClearedCounters() {
        form.CommandCode = 10;
        bench.AnswersEachFrame(frames::kDynamicReply, 50);
        bench.Start();
        bench.line.RunUntil(450);  // the second frame
        EXPECT_EQ(form.SendCount, 2);
        ConCommMessage_DblClick(form);
    }

    NativeBench bench;
    MainForm& form = bench.Form();
};

constexpr const char* kBothBlocks =
    "第 2 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n@01RDC80064006E\\0D\r\n"
    "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n"
    "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n@01RDC80064006E\\0D\r\n"
    "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n";

TEST_F(ClearedCounters, ReplyBehindThemSavesTheRecordAndEmptiesIt) {
    form.ConAutoSave[0].Set(true);
    bench.line.RunUntil(500);
    EXPECT_EQ(form.SendCount, 0);
    EXPECT_EQ(bench.Record(), "");
    EXPECT_THAT(
        bench.files.SavedRecords,
        ElementsAre(std::pair(Text(u"自动保存通讯记录/记录240506120000.rtf"), FromUtf8(kBothBlocks))));
}

TEST_F(ClearedCounters, ReplyBehindThemEmptiesTheRecordAlsoWhereNothingIsSaved) {
    bench.line.RunUntil(500);
    EXPECT_EQ(bench.Record(), "");
    EXPECT_THAT(bench.files.SavedRecords, IsEmpty());
}

TEST_F(ClearedCounters, ReplyBehindThemIsDecodedAndShowsNoRate) {
    form.ParameterGrid().SetCell(6, 8, u"");
    bench.line.RunUntil(500);
    EXPECT_EQ(bench.Cell(6, 8), "200");
    EXPECT_EQ(ToUtf8(form.ConCommMessage[2].Value()),
              "总计通讯: 0 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 ");
}

TEST_F(ClearedCounters, NextFrameIsTheFirstAndItsReplyStaysInTheRecord) {
    form.ConAutoSave[0].Set(true);
    bench.line.RunUntil(650);
    EXPECT_EQ(form.SendCount, 1);
    EXPECT_EQ(bench.Record(),
              "第 1 次, 向 仪表甲 发送: @01RD17\\0D   收到: \r\n@01RDC80064006E\\0D\r\n"
              "CRC校验正确       读取 1# 仪表的动态数据\r\n\r\n");
    EXPECT_THAT(bench.files.SavedRecords, ::testing::SizeIs(1));
}

TEST_F(ClearedCounters, ReplyBehindThemLeavesTheRecordOfASearch) {
    form.ConAutoSave[0].Set(true);
    form.CommandCode = 1010;
    bench.line.RunUntil(500);
    EXPECT_THAT(bench.Record(), HasSubstr("第 1 次, 向 仪表甲"));
    EXPECT_THAT(bench.Record(), HasSubstr("第 2 次, 向 仪表甲"));
    EXPECT_THAT(bench.files.SavedRecords, IsEmpty());
}

TEST(ClearedCountersOfASilentInstrument, LeaveTheRecordAtTheTimeOut) {
    NativeBench silent;
    silent.Form().ConAutoSave[0].Set(true);
    silent.Start();
    silent.line.RunUntil(700);
    ConCommMessage_DblClick(silent.Form());
    silent.line.RunUntil(1500);
    EXPECT_EQ(silent.Form().SendCount, 0);
    EXPECT_THAT(silent.Record(), HasSubstr("第 1 次, 向 仪表甲"));
    EXPECT_THAT(silent.files.SavedRecords, IsEmpty());
}

}  // namespace
}  // namespace commtest
