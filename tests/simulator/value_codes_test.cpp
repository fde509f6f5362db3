#include "simulator/value_codes.h"

#include <gtest/gtest.h>

namespace simulator {
namespace {

struct Code {
    double value;
    int size;
    std::string code;
};

TEST(CodeOfValue, FollowsTheSizeOfTheParameter) {
    const Code codes[] = {
        {200, 1, "C8"},
        {0, 1, "00"},
        {1234, 2, "D204"},
        {-1234, 2, "D284"},
        {0, 2, "0000"},
        {10, 4, "04A00000"},
        {100.5, 4, "07C90000"},
        {1, 4, "01800000"},
        {0.5, 4, "00800000"},
        {0.75, 4, "00C00000"},
        {0.25, 4, "41800000"},
        {0.3, 4, "41999999"},
        {-0.3, 4, "C1999999"},
        {0.1, 4, "43CCCCCC"},
        {-1234.5678, 4, "8B9A522B"},
        {1000000, 4, "14F42400"},
        {0, 4, "00000000"},
        {1100.5, 8, "04B0000000800000"},
        {0, 8, "0000000000000000"},
    };
    for (const auto& [value, size, code] : codes) {
        EXPECT_EQ(CodeOfValue(value, size), code) << value << " in " << size;
    }
}

TEST(CodeOfValue, WholeNumbersAreRoundedAndHeldInTheirRange) {
    EXPECT_EQ(CodeOfValue(12.5, 1), "0D");
    EXPECT_EQ(CodeOfValue(300, 1), "FF");
    EXPECT_EQ(CodeOfValue(-1, 1), "00");
    EXPECT_EQ(CodeOfValue(1233.6, 2), "D204");
    EXPECT_EQ(CodeOfValue(40000, 2), "FF7F");
    EXPECT_EQ(CodeOfValue(-40000, 2), "FFFF");
}

TEST(CodeOfValue, NegativeValueThatRoundsToZeroHasNoSign) { EXPECT_EQ(CodeOfValue(-0.3, 2), "0000"); }

TEST(CodeOfValue, OtherSizesAreWholeNumbersHighByteFirst) {
    EXPECT_EQ(CodeOfValue(5, 3), "000005");
    EXPECT_EQ(CodeOfValue(66051, 3), "010203");
    EXPECT_EQ(CodeOfValue(1e9, 3), "FFFFFF");
    EXPECT_EQ(ValueOfCode("010203", 3), 66051);
    EXPECT_EQ(ValueOfCode("01020G", 3), std::nullopt);
}

TEST(ValueOfCode, ReadsWhatIsWritten) {
    const Code codes[] = {
        {200, 1, "C8"},
        {1234, 2, "D204"},
        {-1234, 2, "D284"},
        {10, 4, "04A00000"},
        {-0.75, 4, "80C00000"},
        {0.25, 4, "41800000"},
        {1100.5, 8, "04A0000007C90000"},
    };
    for (const auto& [value, size, code] : codes) EXPECT_EQ(ValueOfCode(code, size), value) << code;
}

TEST(ValueOfCode, RefusesTextsThatAreNoCodeOfTheSize) {
    EXPECT_EQ(ValueOfCode("D2", 2), std::nullopt);
    EXPECT_EQ(ValueOfCode("421000000", 4), std::nullopt);
    EXPECT_EQ(ValueOfCode("12.34567", 4), std::nullopt);
    EXPECT_EQ(ValueOfCode("d204", 2), std::nullopt);
    EXPECT_EQ(ValueOfCode("", 1), std::nullopt);
}

}  // namespace
}  // namespace simulator
