#include "simulator/register_codes.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"

namespace simulator {
namespace {

struct Case {
    RegisterForm form;
    int size;
    double value;
    const char* bytes;
};

const Case kCases[] = {{RegisterForm::TwosComplement, 2, 1000, "03 E8"},
                       {RegisterForm::TwosComplement, 2, -1234, "FB 2E"},
                       {RegisterForm::TwosComplement, 4, -2, "FF FF FF FE"},
                       {RegisterForm::TwosComplement, 4, 65536, "00 01 00 00"},
                       {RegisterForm::SignMagnitude, 2, -1234, "84 D2"},
                       {RegisterForm::SignMagnitude, 2, 1234, "04 D2"},
                       {RegisterForm::SwappedSignMagnitude, 2, -1234, "D2 84"},
                       {RegisterForm::OneByte, 2, 200, "C8 00"},
                       {RegisterForm::IeeeSingle, 4, 100, "42 C8 00 00"},
                       {RegisterForm::IeeeSingle, 4, -0.5, "BF 00 00 00"},
                       {RegisterForm::SwappedIeeeSingle, 4, 100, "00 00 42 C8"},
                       {RegisterForm::HouseFloat, 4, 100.5, "07 C9 00 00"},
                       {RegisterForm::LowBytes, 2, 100, "00 64"},
                       {RegisterForm::LowBytes, 4, 4660, "00 12 00 34"}};

TEST(BytesOfValue, EachFormHasItsBytes) {
    for (const Case& one : kCases) EXPECT_EQ(Pairs(BytesOfValue(one.value, one.form, one.size)), one.bytes);
}

TEST(ValueOfBytes, ReadsWhatBytesOfValueWrites) {
    for (const Case& one : kCases)
        EXPECT_EQ(ValueOfBytes(FromPairs(one.bytes), one.form), one.value) << one.bytes;
}

TEST(BytesOfValue, PackedDecimalTellsSignAndDecimals) {
    const Case cases[] = {{RegisterForm::PackedDecimal, 5, 759.73, "02 00 07 59 73"},
                          {RegisterForm::PackedDecimal, 5, -12.34, "0A 00 00 12 34"},
                          {RegisterForm::PackedDecimal, 5, -123.0, "08 00 00 01 23"},
                          {RegisterForm::PackedDecimal, 5, 0.125, "03 00 00 01 25"},
                          {RegisterForm::PackedDecimal, 5, 12345678.9, "00 12 34 56 78"},
                          {RegisterForm::PackedDecimal, 5, 1e9, "00 99 99 99 99"},
                          {RegisterForm::PackedDecimal, 4, 12.34, "02 00 12 34"},
                          {RegisterForm::PackedDecimal, 5, 0, "00 00 00 00 00"}};
    for (const Case& one : cases) EXPECT_EQ(Pairs(BytesOfValue(one.value, one.form, one.size)), one.bytes);
}

TEST(BytesOfValue, ValueBeyondTheRangeIsHeldAtItsEnd) {
    EXPECT_EQ(Pairs(BytesOfValue(1e6, RegisterForm::TwosComplement, 2)), "7F FF");
    EXPECT_EQ(Pairs(BytesOfValue(-1e6, RegisterForm::TwosComplement, 2)), "80 00");
    EXPECT_EQ(Pairs(BytesOfValue(300, RegisterForm::LowBytes, 2)), "00 FF");
    EXPECT_EQ(Pairs(BytesOfValue(-1, RegisterForm::LowBytes, 2)), "00 00");
    EXPECT_EQ(Pairs(BytesOfValue(300, RegisterForm::OneByte, 2)), "FF 00");
}

TEST(BytesOfValue, WhatTheFormDoesNotFillIsZero) {
    EXPECT_EQ(Pairs(BytesOfValue(100, RegisterForm::IeeeSingle, 8)), "42 C8 00 00 00 00 00 00");
}

TEST(ValueOfBytes, NothingForAHighByteWhereOnlyLowOnesCount) {
    EXPECT_EQ(ValueOfBytes(FromPairs("01 00"), RegisterForm::LowBytes), std::nullopt);
}

TEST(ValueOfBytes, NothingForAFloatThatIsNoNumber) {
    EXPECT_EQ(ValueOfBytes(FromPairs("7F 80 00 00"), RegisterForm::IeeeSingle), std::nullopt);
    EXPECT_EQ(ValueOfBytes(FromPairs("00 01 FF C0"), RegisterForm::SwappedIeeeSingle), std::nullopt);
}

Parameter Of(const char* length, const char* attribute = "R") {
    return {"value", "0010", length, attribute, "0", {}, {}, {}};
}

TEST(FormOf, LengthAndFormatDecideUnderRtu) {
    EXPECT_EQ(FormOf({31, 1}, Of("2")), RegisterForm::TwosComplement);
    EXPECT_EQ(FormOf({31, 1}, Of("1")), RegisterForm::OneByte);
    EXPECT_EQ(FormOf({31, 7}, Of("2")), RegisterForm::OneByte);
    EXPECT_EQ(FormOf({31, 1}, Of("4")), RegisterForm::TwosComplement);
    EXPECT_EQ(FormOf({34, 0}, Of("2")), RegisterForm::SwappedSignMagnitude);
    EXPECT_EQ(FormOf({34, 0}, Of("4")), RegisterForm::HouseFloat);
    EXPECT_EQ(FormOf({31, 2}, Of("4")), RegisterForm::HouseFloat);
    EXPECT_EQ(FormOf({35, 3}, Of("4", "RW")), RegisterForm::IeeeSingle);
    EXPECT_EQ(FormOf({31, 3}, Of("5")), RegisterForm::IeeeSingle);
    EXPECT_EQ(FormOf({31, 6}, Of("2")), RegisterForm::SignMagnitude);
    EXPECT_EQ(FormOf({31, 11}, Of("4")), RegisterForm::SwappedIeeeSingle);
}

TEST(FormOf, AttributeDecidesUnderAscii) {
    EXPECT_EQ(FormOf({21, 1}, Of("2", "R")), RegisterForm::TwosComplement);
    EXPECT_EQ(FormOf({21, 1}, Of("2", "RW")), RegisterForm::LowBytes);
    EXPECT_EQ(FormOf({22, 5}, Of("5", "R")), RegisterForm::PackedDecimal);
}

}  // namespace
}  // namespace simulator
