// The instrument refuses with "**", and its check word is wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/instrument_bench.h"
#include "commands/toolbar_commands.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::InstrumentBench;

constexpr int kDynamicRow = 6;
constexpr int kRowBehindTheData = 8;  // where a refusal would be walked
// 200 and 100, a reply of code 11.
constexpr const char* kGoodReply = "@01RDC80064006E\r";

struct RefusalBench : InstrumentBench {
    explicit RefusalBench(int code = 11)
        : InstrumentBench(code, {{u"测量值", u"0010", u"2", u"D", u"0"},
                                 {u"流量", u"0012", u"2", u"D", u"0"},
                                 {u"上限", u"0020", u"2", u"RW", u"0"}}) {
        Form().CommandCode = 10;
        Form().ConAutoSave[1].Set(true);
        Press(toolbar::kStartStop);
    }

    std::vector<std::string> Cells() {
        std::vector<std::string> cells;
        for (int row = 0; row < Rows().Rows(); ++row) {
            for (int col = 0; col < Rows().Cols(); ++col) cells.push_back(Cell(row, col));
        }
        return cells;
    }
};

TEST(RefusalWithAWrongCheckWord, IsCountedOnceUnderEveryCode) {
    struct Row {
        int code;
        const char* reply;
    };
    // The right words: 01 exclusive, B5 summed, each of 30 31 2A 2A.
    for (const Row& row : {Row{11, "@01**02\r"}, Row{12, "@01**01\r"}, Row{13, "@01**B5\r"}}) {
        SCOPED_TRACE(row.code);
        RefusalBench bench(row.code);
        bench.WillReply({row.reply});
        bench.line.RunUntil(301);
        EXPECT_EQ(bench.Form().CheckErrorCount, 1);
        EXPECT_EQ(bench.Form().NoReplyCount, 0);
        EXPECT_EQ(bench.Form().IncompleteCount, 0);
        EXPECT_EQ(ToUtf8(bench.Form().ConCommMessage[0].Value()),
                  "数据不完整 0 次;校验出错 1 次;无应答 0 次; 错误率 100.00 %");
        EXPECT_EQ(ToUtf8(bench.Form().ReplyText), "");
    }
}

TEST(RefusalWithAWrongCheckWord, SaysBothInTheRecord) {
    RefusalBench bench;
    bench.WillReply({"@01**02\r"});
    bench.line.RunUntil(301);
    EXPECT_EQ(bench.Record(),
              "第 1 次, 向 仪表 发送: @01RD17\\0D   收到: \r\n@01**02\\0D\r\n"
              "CRC校验错误       注意： 1# 仪表的通讯出错\r\n\r\n");
}

TEST(RefusalWithAWrongCheckWord, IsAnErrorRecord) {
    RefusalBench bench;
    bench.WillReply({"@01**02\r"});
    bench.line.RunUntil(301);
    EXPECT_EQ(bench.ErrorRecords(),
              "2024-05-06 12:00:00第 1 次, 向 仪表 发送: @01RD17\\0D   收到: \r\n@01**02\\0D\r\n"
              "CRC校验错误       注意： 1# 仪表的通讯出错        串口设置: 9600,N,8,1\r\n\r\n");
}

// A refusal with the right word takes the number off its row.
TEST(RefusalWithAWrongCheckWord, LeavesTheGridAndTheRowOfPolling) {
    RefusalBench bench;
    bench.WillReply({kGoodReply, "@01**02\r"});
    bench.line.RunUntil(400);
    const auto row = bench.Form().CurrentRow;
    const std::vector<std::string> before = bench.Cells();
    bench.Form().CommandCode = 70;  // the same frame again, and no row of its own
    bench.line.RunUntil(402);
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    EXPECT_EQ(bench.Cells(), before);
    EXPECT_EQ(bench.Form().CurrentRow, row);
    EXPECT_EQ(bench.Cell(kRowBehindTheData, column::kNumber), "008 ");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kGroupRead), "C800");
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
}

TEST(RefusalWithAWrongCheckWord, LetsThePollingGoOn) {
    RefusalBench bench;
    bench.WillReply({"@01**02\r", kGoodReply});
    bench.line.RunUntil(402);
    EXPECT_THAT(bench.SentCharacters(), ElementsAre("@01RD17\r", "@01RD17\r"));
    EXPECT_EQ(bench.Cell(kDynamicRow, column::kValue), "200");
    EXPECT_TRUE(bench.dialogs.Shown.empty());
}

TEST(RefusalWithAWrongCheckWord, ThatIsAPartIsNotContinued) {
    RefusalBench bench;
    bench.WillReply({"@01**02\n"});
    bench.line.RunUntil(1600);
    EXPECT_THAT(bench.SentCharacters(), ElementsAre("@01RD17\r"));
    EXPECT_EQ(bench.Form().CheckErrorCount, 1);
    RefusalBench right;
    right.WillReply({"@01**01\n"});
    right.line.RunUntil(1600);
    EXPECT_THAT(right.SentCharacters(), ElementsAre("@01RD17\r", "\n"));
    EXPECT_EQ(right.Form().CheckErrorCount, 0);
}

}  // namespace
}  // namespace commtest
