#include "numbers/lrc.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

struct Case {
    Text text;
    const char* checkWord;
};

void ExpectCheckWords(Text (*checkWord)(Text), const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        EXPECT_EQ(ToUtf8(checkWord(one.text)), one.checkWord) << ToUtf8(one.text);
    }
}

// --- Over pairs ---

TEST(LrcOfPairs, IsTheTwosComplementOfTheSumOfThePairs) {
    ExpectCheckWords(LrcOfPairs, {{u"010300100001", "EB"},
                                  {u"010300100002", "EA"},
                                  {u"01030110", "EB"},
                                  {u"0106001003E8", "FE"},
                                  {u"0103020064", "96"},
                                  {u"FF", "01"},
                                  {u"01", "FF"}});
}

TEST(LrcOfPairs, IsFilledToTwoDigits) { ExpectCheckWords(LrcOfPairs, {{u"F2", "0E"}, {u"46B3FE", "09"}}); }

TEST(LrcOfPairs, SumThatIsAMultipleOf256GivesThreeDigits) {
    ExpectCheckWords(LrcOfPairs, {{u"", "100"}, {u"00", "100"}, {u"FF01", "100"}, {u"8080FF01", "100"}});
}

TEST(LrcOfPairs, FirstCharacterIsDroppedWhereverAColonStands) {
    ExpectCheckWords(LrcOfPairs, {{u":0103020064", "96"},
                                  {u":", "100"},
                                  {u"01:03", "FC"},   // "1:", "03"
                                  {u"::01", "FF"}});  // ":0", "1" without a colon dropped: 0 and 1
}

// Half of an odd length is rounded half to even.
TEST(LrcOfPairs, LastDigitOfAnOddTextIsAPairOrIsDropped) {
    ExpectCheckWords(LrcOfPairs, {{u"5", "100"},             // 1: no pair
                                  {u"012", "FD"},            // 3: two pairs
                                  {u"01023", "FD"},          // 5: two
                                  {u"0102034", "F6"},        // 7: four
                                  {u"010300109", "EC"},      // 9: four
                                  {u"01030010012", "E9"}});  // 11: six
}

TEST(LrcOfPairs, PairIsReadAsFarAsItsDigitsGo) {
    ExpectCheckWords(LrcOfPairs, {{u"G102", "FE"}, {u"1G02", "FD"}, {u"b0fc97edd179", "86"}});
}

TEST(LrcOfPairs, SumBeyond16BitsRaisesError6) {
    const auto bytesOf255 = [](std::size_t count) { return Text(2 * count, u'F'); };
    EXPECT_EQ(ToUtf8(LrcOfPairs(bytesOf255(128))), "80");  // 32640
    EXPECT_EQ(ErrorOf([&] { LrcOfPairs(bytesOf255(129)); }), 6);
}

// --- Over characters ---

TEST(LrcOfChars, IsTheTwosComplementOfTheSumOfTheCharacterCodes) {
    ExpectCheckWords(
        LrcOfChars,
        {{u"01031001", "7A"}, {u"0103020064", "10"}, {u"0", "D0"}, {u"00", "A0"}, {u"FF01", "13"}});
}

TEST(LrcOfChars, HasTwoDigitsAlways) {
    ExpectCheckWords(LrcOfChars, {{u"", "00"}, {u"@@@@", "00"}, {u"}~", "05"}});
}

TEST(LrcOfChars, FirstCharacterIsDroppedWhereverAColonStands) {
    ExpectCheckWords(LrcOfChars, {{u":01031001", "7A"}, {u":", "00"}, {u"0:1", "95"}});
}

TEST(LrcOfChars, TellsSmallLettersFromCapitals) {
    ExpectCheckWords(LrcOfChars, {{u"A", "BF"}, {u"a", "9F"}});
}

TEST(LrcOfChars, SumBeyond16BitsRaisesError6) {
    EXPECT_EQ(ToUtf8(LrcOfChars(Text(258, u'\x7F'))), "02");  // 32766
    EXPECT_EQ(ErrorOf([] { LrcOfChars(Text(259, u'\x7F')); }), 6);
}

}  // namespace
}  // namespace commtest
