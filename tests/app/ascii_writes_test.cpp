#include <gtest/gtest.h>

#include "app/ascii_bench.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

using testing::AsciiBench;

const std::vector<testing::TestParameter> kParameters = {{u"上限", u"0010", u"2", u"RW", u"0"}};
constexpr int kTwoBytes = 6;

TEST(AsciiWriteOnTheLine, FrameGoesOutAtTheNextPollAndSeveralRowsAreReadFromThenOn) {
    AsciiBench bench(21, kParameters);
    bench.Form().ConDataNub.Set(u"4");
    bench.Click(kTwoBytes, column::kNewValue);
    bench.TypeAndEnter(u"1000");
    EXPECT_EQ(bench.Form().CommandCode, 160);
    bench.WillReply({":0106001003E8FE\r\n"});
    bench.line.RunUntil(600);
    EXPECT_EQ(bench.SentCharacters(), (std::vector<std::string>{":0106001003E8FE\r", ":010300100001EB\r\n"}));
    EXPECT_EQ(bench.Form().CommandCode, 60);
}

TEST(AsciiWriteOnTheLine, CustomFormsSendTheFormerFrameAgain) {
    for (const int code : {22, 23}) {
        AsciiBench bench(code, kParameters);
        bench.Form().SendText = testing::FrameOf(":01031001\r\n");
        bench.Click(kTwoBytes, column::kNewValue);
        bench.TypeAndEnter(u"1000");
        EXPECT_EQ(bench.Form().CommandCode, 131);
        bench.line.RunUntil(300);
        EXPECT_EQ(bench.SentCharacters(), std::vector<std::string>{":01031001\r\n"});
    }
}

TEST(AsciiCheckWord, OfCode21IsAWriteOfTheCurrentRow) {
    AsciiBench bench(21, {{u"上限", u"0010", u"2", u"RW", u"0"}});
    bench.Rows().Select(6, column::kNewValue);
    bench.Form().InputText.Set(u"1000");
    HexText frame = u"3A 30";
    MakeCRCWord(bench.Form(), frame);
    EXPECT_EQ(ToUtf8(frame), " 3A 30");
    EXPECT_EQ(bench.Frame(), ":0106001003E8FE\r");
}

TEST(AsciiCheckWord, OfTheCustomFormsIsNone) {
    for (const int code : {22, 23}) {
        AsciiBench bench(code, {});
        bench.Form().SendText = u" 41";
        HexText frame = u"3A 30";
        MakeCRCWord(bench.Form(), frame);
        EXPECT_EQ(ToUtf8(frame), " 3A 30");
        EXPECT_EQ(ToUtf8(bench.Form().SendText), " 41");
    }
}

}  // namespace
}  // namespace commtest
