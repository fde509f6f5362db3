#include "protocol_modbus/row_manner.h"

#include <gtest/gtest.h>

#include "protocol_modbus/rtu_talk_bench.h"

namespace commtest {
namespace {

using testing::RtuTalkBench;

TEST(ModbusRowManner, ReadingBeginsAtRow6WhateverTheAttributes) {
    RtuTalkBench bench(31);
    bench.Talk().FirstDataRow = 9;
    for (const RowManner& manner : {kAsciiRowManner, kRtuRowManner}) {
        EXPECT_EQ(manner.firstRow(bench.Talk()), 6);
        for (const int row : {1, 5}) EXPECT_EQ(manner.whyUnreadable(bench.Talk(), row), Unreadable::Fixed);
        for (const int row : {6, 14}) EXPECT_EQ(manner.whyUnreadable(bench.Talk(), row), Unreadable::No);
    }
}

TEST(RtuRowManner, DecimalsStandInTheFirstRowAtTheirAddressThatIsNotOfAttributeS) {
    RtuTalkBench bench(31);
    const auto decimalsRow = [&] { return kRtuRowManner.decimalsRow(bench.Talk(), 6); };
    EXPECT_EQ(decimalsRow(), 0) << "decimals of 0";
    bench.SetCell(6, column::kDecimals, u"0012");
    EXPECT_EQ(decimalsRow(), 8);
    bench.SetCell(8, column::kAttribute, u"S");
    EXPECT_EQ(decimalsRow(), 0);
    bench.SetCell(11, column::kAddress, u"12");
    EXPECT_EQ(decimalsRow(), 11);
}

TEST(RtuRowManner, EightCharactersOfAPhaseInstrumentShowAConstant) {
    RtuTalkBench bench(31);
    const auto showsConstant = [&] { return kRtuRowManner.showsConstant(bench.Talk(), 6); };
    bench.SetCell(6, column::kSingleRead, u"42C80000");
    EXPECT_FALSE(showsConstant());
    bench.SetName(u"三相电量表");
    EXPECT_TRUE(showsConstant());
    bench.SetCell(6, column::kSingleRead, u"0064");
    EXPECT_FALSE(showsConstant());
}

TEST(AsciiRowManner, RowHasItsOwnDecimalsAndShowsWhatWasRead) {
    RtuTalkBench bench(31);
    bench.SetCell(6, column::kDecimals, u"0012");
    EXPECT_EQ(kAsciiRowManner.decimalsRow(bench.Talk(), 6), 0);
    EXPECT_EQ(kAsciiRowManner.showsConstant, nullptr);
}

}  // namespace
}  // namespace commtest
