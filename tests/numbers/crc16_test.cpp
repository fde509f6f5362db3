#include "numbers/crc16.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

namespace commtest {
namespace {

using CheckBytes = std::pair<int, int>;

CheckBytes CrcOf(const std::vector<std::uint8_t>& bytes) {
    Crc16 crc;
    for (const std::uint8_t byte : bytes) crc.Fold(byte);
    return {crc.First(), crc.Second()};
}

TEST(CrcTables, BeginAsPublished) {
    const int first[] = {0x00, 0xC1, 0x81, 0x40};
    const int second[] = {0x00, 0xC0, 0xC1, 0x01};
    for (std::size_t i = 0; i < std::size(first); ++i) {
        EXPECT_EQ(kCrcFirstTable[i], first[i]) << i;
        EXPECT_EQ(kCrcSecondTable[i], second[i]) << i;
    }
}

TEST(CrcTables, HoldThePublishedEntriesFurtherOn) {
    struct Row {
        std::size_t index;
        int first;
        int second;
    };
    const Row rows[] = {{8, 1, 198},     {20, 0, 15},   {34, 128, 25},  {39, 64, 26},
                        {52, 1, 215},    {91, 65, 251}, {102, 128, 42}, {150, 128, 110},
                        {158, 129, 168}, {172, 0, 125}, {237, 192, 77}, {254, 129, 128}};
    for (const Row& row : rows) {
        EXPECT_EQ(kCrcFirstTable.at(row.index), row.first) << row.index;
        EXPECT_EQ(kCrcSecondTable.at(row.index), row.second) << row.index;
    }
}

TEST(CrcTables, NoTwoBytesLeaveTheSame) {
    std::set<CheckBytes> pairs;
    for (std::size_t i = 0; i < kCrcFirstTable.size(); ++i)
        pairs.emplace(kCrcFirstTable[i], kCrcSecondTable[i]);
    EXPECT_EQ(pairs.size(), 256U);
}

TEST(Crc16, StartsWithBothBytesFull) { EXPECT_EQ(CrcOf({}), CheckBytes(0xFF, 0xFF)); }

TEST(Crc16, FirstByteIsTheOneThatLeavesFirst) {
    EXPECT_EQ(CrcOf({0x00}), CheckBytes(0xBF, 0x40));
    EXPECT_EQ(CrcOf({0xFF}), CheckBytes(0xFF, 0x00));
    EXPECT_EQ(CrcOf({0x01, 0x03, 0x00, 0x10, 0x00, 0x01}), CheckBytes(0x85, 0xCF));
    EXPECT_EQ(CrcOf({0x01, 0x09, 0x00, 0x00, 0x00, 0x00}), CheckBytes(0xDD, 0xCB));
}

// The check value of CRC-16/MODBUS, 4B37.
TEST(Crc16, DigitsOneToNineGiveTheCheckValue) {
    EXPECT_EQ(CrcOf({'1', '2', '3', '4', '5', '6', '7', '8', '9'}), CheckBytes(0x37, 0x4B));
}

TEST(Crc16, FrameWithItsCheckBytesLeavesNothing) {
    EXPECT_EQ(CrcOf({0x01, 0x83, 0x02, 0xC0, 0xF1}), CheckBytes(0, 0));
    EXPECT_NE(CrcOf({0x01, 0x83, 0x02, 0xF1, 0xC0}), CheckBytes(0, 0));
}

}  // namespace
}  // namespace commtest
