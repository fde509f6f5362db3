#include "protocol_native/row_manner.h"

#include <gtest/gtest.h>

#include "protocol_native/native_talk_bench.h"

namespace commtest {
namespace {

// Rows 6 and 7 are dynamic, row 8 is the first with "RW", row 12 a command.
struct MannerBench : testing::NativeTalkBench {
    MannerBench()
        : NativeTalkBench(11, {{u"测量值", u"0010", u"2", u"D", u"0"},
                               {u"编号", u"0012", u"2", u"S", u"0"},
                               {u"上限", u"0020", u"2", u"RW", u"0024"},
                               {u"下限", u"0022", u"2", u"RW", u"2"},
                               {u"小数点", u"0024", u"1", u"RW", u"0"},
                               {u"版本", u"0026", u"1", u"S", u"0"},
                               {u"校零", u"0000", u"4", u"W", u"0"},
                               {u"修正", u"0028", u"1", u"W", u"0"}}) {}

    Unreadable WhyUnreadable(int row) { return kNativeRowManner.whyUnreadable(Talk(), row); }
    int DecimalsRow(int row) { return kNativeRowManner.decimalsRow(Talk(), row); }
};

TEST(NativeRowManner, ReadingBeginsAtTheFirstRowOfAttributeRWAndBelowTheHeadings) {
    MannerBench bench;
    EXPECT_EQ(kNativeRowManner.firstRow(bench.Talk()), 8);
    bench.Talk().FirstDataRow = 0;
    EXPECT_EQ(kNativeRowManner.firstRow(bench.Talk()), 1);
}

TEST(NativeRowManner, RowThatIsNotReachedHasItsReason) {
    struct Case {
        int row;
        Unreadable reason;
    };
    MannerBench bench;
    for (const Case& one :
         {Case{1, Unreadable::Command}, Case{6, Unreadable::BeforeFirstRow},
          Case{7, Unreadable::BeforeFirstRow}, Case{8, Unreadable::No}, Case{9, Unreadable::No},
          Case{11, Unreadable::No}, Case{12, Unreadable::Command}, Case{13, Unreadable::NoReadAttribute}}) {
        EXPECT_EQ(bench.WhyUnreadable(one.row), one.reason) << one.row;
    }
}

TEST(NativeRowManner, DecimalsStandInTheRowAtTheirAddressIfItsNameSaysSo) {
    MannerBench bench;
    EXPECT_EQ(bench.DecimalsRow(8), 10);
    EXPECT_EQ(bench.DecimalsRow(9), 0) << "two decimals, no address";
    EXPECT_EQ(bench.DecimalsRow(10), 0) << "none";
    bench.SetCell(10, column::kName, u"虚拟位");
    EXPECT_EQ(bench.DecimalsRow(8), 10);
    bench.SetCell(10, column::kName, u"方式");
    EXPECT_EQ(bench.DecimalsRow(8), 0);
}

TEST(NativeRowManner, FirstRowAtTheAddressDecides) {
    MannerBench bench;
    bench.SetCell(9, column::kAddress, u"24");
    EXPECT_EQ(bench.DecimalsRow(8), 0) << "its name says nothing of decimals";
}

TEST(NativeRowManner, ValueShownIsTheOneRead) { EXPECT_EQ(kNativeRowManner.showsConstant, nullptr); }

}  // namespace
}  // namespace commtest
