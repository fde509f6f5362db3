#include "protocol_special/novax_check_word.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

std::string WithCheckWord(HexText frame, const Text& address) {
    MakeCRCWordNOVAX(frame, address);
    return ToUtf8(frame);
}

int ErrorOfCheckWord(HexText frame, const Text& address) {
    return ErrorOf([&] { MakeCRCWordNOVAX(frame, address); });
}

// 1200 + 0 + 52 + 1.
TEST(NovaxCheckWord, IsAppendedLowByteFirst) {
    EXPECT_EQ(WithCheckWord(u" 81 81 52 12 00 00", u"1"), " 81 81 52 12 00 00 53 12");
}

TEST(NovaxCheckWord, LeadingBlankIsAdded) {
    EXPECT_EQ(WithCheckWord(u"81 81 52 02 00 00", u"1"), " 81 81 52 02 00 00 53 02");
}

// 1C00 + 542C + 52 + 54.
TEST(NovaxCheckWord, DataCountWithTheirHighByteBehind) {
    EXPECT_EQ(WithCheckWord(u" D4 D4 52 1C 2C 54", u"84"), " D4 D4 52 1C 2C 54 D2 70");
}

// FFFF is -1: one less than with data 0.
TEST(NovaxCheckWord, DataAreASignedNumber) {
    EXPECT_EQ(WithCheckWord(u" 81 81 43 12 00 00", u"1"), " 81 81 43 12 00 00 44 12");
    EXPECT_EQ(WithCheckWord(u" 81 81 43 12 FF FF", u"1"), " 81 81 43 12 FF FF 43 12");
}

TEST(NovaxCheckWord, SumHasFourDigits) {
    EXPECT_EQ(WithCheckWord(u" 81 81 00 00 00 00", u"0"), " 81 81 00 00 00 00 00 00");
    EXPECT_EQ(WithCheckWord(u" 81 81 43 00 00 00", u"1"), " 81 81 43 00 00 00 44 00");
}

// 0 - 32768 + 52 + 1 = 8053 of a signed word.
TEST(NovaxCheckWord, NegativeSumKeepsItsLowWord) {
    EXPECT_EQ(WithCheckWord(u" 81 81 52 00 00 80", u"1"), " 81 81 52 00 00 80 53 80");
}

TEST(NovaxCheckWord, AddressIsThePlainOneWithoutItsFraction) {
    EXPECT_EQ(WithCheckWord(u" F0 F0 43 53 00 00", u"112"), " F0 F0 43 53 00 00 B3 53");
    EXPECT_EQ(WithCheckWord(u" 81 81 52 12 00 00", u"1.9"), " 81 81 52 12 00 00 53 12");
}

// 7F00 + 52 + AC + 1 = 7FFF.
TEST(NovaxCheckWord, SumBeyondASignedWordIsAnOverflow) {
    EXPECT_EQ(WithCheckWord(u" 81 81 52 7F AC 00", u"1"), " 81 81 52 7F AC 00 FF 7F");
    EXPECT_EQ(ErrorOfCheckWord(u" 81 81 52 7F AD 00", u"1"), 6);
    EXPECT_EQ(ErrorOfCheckWord(u" 81 81 52 7F AC 00", u"2"), 6);
    EXPECT_EQ(ErrorOfCheckWord(u" 81 81 52 80 00 00", u"1"), 6);
}

TEST(NovaxCheckWord, AddressThatIsNoNumberIsATypeMismatch) {
    EXPECT_EQ(ErrorOfCheckWord(u" 81 81 52 12 00 00", u""), 13);
    EXPECT_EQ(ErrorOfCheckWord(u" 81 81 52 12 00 00", u"1a"), 13);
}

}  // namespace
}  // namespace commtest
