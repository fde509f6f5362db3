#include "protocol_special/row_manner.h"

#include <gtest/gtest.h>

#include "protocol_special/novax_talk_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NovaxTalkBench;

TEST(NovaxRowManner, ReadingBeginsAtRowTen) {
    NovaxTalkBench bench;
    EXPECT_EQ(kNovaxRowManner.firstRow(bench.Talk()), 10);
}

TEST(NovaxRowManner, RowThatIsNotReadHasItsReason) {
    NovaxTalkBench bench;
    for (const int row : {1, 5})
        EXPECT_EQ(kNovaxRowManner.whyUnreadable(bench.Talk(), row), Unreadable::Fixed) << row;
    for (const int row : {6, 9, 10, 14})
        EXPECT_EQ(kNovaxRowManner.whyUnreadable(bench.Talk(), row), Unreadable::No) << row;
    EXPECT_EQ(kNovaxRowManner.whyUnreadable(bench.Talk(), 12), Unreadable::NoReadAttribute);
}

TEST(NovaxRowManner, DecimalsStandInTheRowAtTheirAddressIfItsNameSaysSo) {
    NovaxTalkBench bench;
    bench.SetCell(10, column::kDecimals, u"0015");
    EXPECT_EQ(kNovaxRowManner.decimalsRow(bench.Talk(), 10), 0);
    bench.SetCell(13, column::kName, u"小数点位置");
    EXPECT_EQ(kNovaxRowManner.decimalsRow(bench.Talk(), 10), 13);
    EXPECT_EQ(kNovaxRowManner.decimalsRow(bench.Talk(), 11), 0);
}

TEST(NovaxRowManner, CodeIsTheFourCharactersOnTheLineHighByteFirst) {
    NovaxTalkBench bench;
    EXPECT_EQ(ToUtf8(kNovaxRowManner.codeOf(bench.Talk(), 14, u"1.25")), "007D");
    bench.SetFormat(u"03");
    EXPECT_EQ(ToUtf8(kNovaxRowManner.codeOf(bench.Talk(), 13, u"100")), "42C8");
    EXPECT_EQ(ErrorOf([&] { kNovaxRowManner.codeOf(bench.Talk(), 13, u"x"); }), 13);
}

// 4E20 is 20000; FF9C is -100 of 16 bits, whatever the format.
TEST(NovaxRowManner, ValueOfACodeIsItsSignedWordWithDecimals) {
    NovaxTalkBench bench;
    EXPECT_EQ(ToUtf8(kNovaxRowManner.valueOf(bench.Talk(), 14, u"4E20")), "200.00");
    EXPECT_EQ(ToUtf8(kNovaxRowManner.valueOf(bench.Talk(), 13, u"FF9C")), "-100");
    bench.SetFormat(u"06");
    EXPECT_EQ(ToUtf8(kNovaxRowManner.valueOf(bench.Talk(), 13, u"FF9C")), "-100");
}

TEST(NovaxRowManner, DigitsAndDecimalsOfARow) {
    NovaxTalkBench bench;
    EXPECT_EQ(ToUtf8(kNovaxRowManner.withDecimals(bench.Talk(), 11, u"3000")), "300.0");
    EXPECT_EQ(ToUtf8(kNovaxRowManner.digitsOf(bench.Talk(), 11, u"30.5")), "305.0");
    EXPECT_EQ(kNovaxRowManner.formatOf(bench.Talk(), 11), 1);
    EXPECT_EQ(kNovaxRowManner.showsConstant, nullptr);
}

TEST(Hct615dRowManner, ReadingBeginsAtRowSix) {
    NovaxTalkBench bench;
    EXPECT_EQ(kHct615dRowManner.firstRow(bench.Talk()), 6);
}

}  // namespace
}  // namespace commtest
