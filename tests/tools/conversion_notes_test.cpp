#include "tools/conversion_notes.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

ConversionNotes NotesOfConversion(const Conversion& conversion, const Text& input) {
    Text result = input;
    Convert(conversion, result);
    return NotesOf(conversion, input, result);
}

ConversionNotes NotesOfValue(int format, const Text& value) {
    return NotesOfConversion({format, Direction::ToCode}, value);
}

ConversionNotes NotesOfCode(int format, const Text& code) {
    return NotesOfConversion({format, Direction::ToValue}, code);
}

TEST(ConversionNotes, LossIsThatOfTheDirection) {
    EXPECT_EQ(NotesOfValue(0, u"203392").loss->reason, LossReason::BeyondSignMagnitude);
    EXPECT_EQ(NotesOfCode(0, u"FF").loss->reason, LossReason::WrittenInFourCharacters);
    EXPECT_FALSE(NotesOfValue(0, u"-1234").loss);
    EXPECT_FALSE(NotesOfCode(0, u"d204").loss);
}

TEST(ConversionNotes, ExplanationThatReadsTheCodeInAnotherWayIsTold) {
    const struct {
        int format;
        Text code;
    } rows[] = {{7, u"8000"}, {7, u"0C8"}, {5, u"8001"}, {8, u"8001"},  {0, u"04A0000007C90000"},
                {6, u"8000"}, {6, u"FF"},  {1, u"8000"}, {10, u"F13F"}, {12, u"8001"},
                {4, u"C304"}};
    for (const auto& row : rows) {
        EXPECT_EQ(NotesOfCode(row.format, row.code).explanation, ExplanationNote::ReadsOtherwise)
            << row.format << " " << ToUtf8(row.code);
    }
    EXPECT_EQ(NotesOfValue(1, u"-32768").explanation, ExplanationNote::ReadsOtherwise);
    EXPECT_EQ(NotesOfValue(4, u"-12.5").explanation, ExplanationNote::ReadsOtherwise);
    EXPECT_EQ(NotesOfValue(12, u"-5").explanation, ExplanationNote::ReadsOtherwise);
}

TEST(ConversionNotes, ExplanationThatLeadsToTheResultHasNone) {
    const struct {
        int format;
        Text code;
    } rows[] = {{0, u"0080"},  {0, u"FF"},   {0, u"04A00000"}, {1, u"7F"},
                {1, u"8001"},  {2, u"8001"}, {3, u"4120"},     {5, u"0000001234"},
                {5, u"00097"}, {6, u"8001"}, {7, u"80"},       {8, u"04A0000007C90000"},
                {9, u"8001"}};
    for (const auto& row : rows) {
        EXPECT_FALSE(NotesOfCode(row.format, row.code).explanation) << row.format << " " << ToUtf8(row.code);
    }
}

TEST(ConversionNotes, ExplanationOfASingleIsThatOfTheCustomFloat) {
    EXPECT_EQ(NotesOfValue(3, u"10").explanation, ExplanationNote::IsOfCustomFloat);
    EXPECT_FALSE(NotesOfCode(3, u"41200000").explanation);
}

TEST(ConversionNotes, WhatTheToolWindowShowsIsToldWhereItDiffers) {
    const auto zero = NotesOfValue(2, u"0").tool;
    ASSERT_TRUE(zero);
    EXPECT_EQ(zero->mode, 0u);
    EXPECT_EQ(ToUtf8(zero->shown), "100000000");
    EXPECT_FALSE(NotesOfCode(2, u"00800000").tool);

    const auto reading = NotesOfCode(2, u"41999999").tool;
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->mode, 1u);
    EXPECT_EQ(ToUtf8(reading->shown), "0.299999982118607");
}

TEST(ConversionNotes, ToolWindowFillsAShortCodeOnTheLeftAndRefusesALongOne) {
    const auto filled = NotesOfCode(3, u"4120").tool;
    ASSERT_TRUE(filled);
    EXPECT_EQ(filled->mode, 5u);
    EXPECT_EQ(ToUtf8(filled->shown), "0");
    EXPECT_FALSE(NotesOfCode(2, u"4199999900").tool);
}

}  // namespace
}  // namespace commtest
