#include "protocol_native/check_words.h"

#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/frame_text.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::FrameOf;

std::string WithXorWord(HexText frame) {
    MakeCRCWordTq(frame);
    return ToUtf8(frame);
}

std::string WithSumWord(HexText frame) {
    MakeCRCWordTqTwo(frame);
    return ToUtf8(frame);
}

// A byte as many times as wanted.
HexText Repeated(TextView byte, int count) {
    HexText frame;
    for (int i = 0; i < count; ++i) frame += byte;
    return frame;
}

// --- Making ---

TEST(MakeCRCWordTq, AppendsTheExclusiveOrAsTwoCharacters) {
    struct Row {
        TextView frame;
        TextView word;
    };
    const Row rows[] = {
        {u" 40 30 31 52 44", u" 31 37"},                          // @01RD
        {u" 40 30 41 52 45 30 31 32 33 30 32", u" 36 34"},        // @0ARE012302
        {u" 40 30 31 57 32 30 31 32 33 30 30 43 38", u" 31 46"},  // @01W2012300C8
        {u" 40 30 31 52 44 30 30 43 38 30 30 36 34", u" 36 45"},  // @01RD00C80064
        {u" 40 5A", u" 35 41"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(WithXorWord(Text(row.frame)), ToUtf8(Text(row.frame) + Text(row.word)));
    }
}

TEST(MakeCRCWordTqTwo, AppendsTheLowByteOfTheSumAsTwoCharacters) {
    EXPECT_EQ(WithSumWord(u" 40 30 31 52 44"), " 40 30 31 52 44 46 37");
    EXPECT_EQ(WithSumWord(u" 40 30 31 52 52"), " 40 30 31 52 52 30 35");  // 105 without its high digit
    EXPECT_EQ(WithSumWord(u" 40 5A"), " 40 5A 35 41");
}

TEST(MakeCRCWordTqTwo, SumBeyond16BitsRaisesError6) {
    const HexText most = u" 40" + Repeated(u" FF", 128) + u" 7F";  // 32767
    EXPECT_EQ(WithSumWord(most), ToUtf8(most + u" 46 46"));
    HexText frame = most + u" 01";
    EXPECT_EQ(ErrorOf([&] { MakeCRCWordTqTwo(frame); }), 6);
    EXPECT_EQ(ToUtf8(frame), ToUtf8(most + u" 01"));
}

TEST(NativeCheckWords, FirstByteTakesNoPart) {
    EXPECT_EQ(WithXorWord(u" FF 30 31 52 44"), " FF 30 31 52 44 31 37");
    EXPECT_EQ(WithSumWord(u" FF 30 31 52 44"), " FF 30 31 52 44 46 37");
}

TEST(NativeCheckWords, WordOf0AIsTwoCharactersAndNoLineEnd) {
    EXPECT_EQ(WithXorWord(u" 40 30 3A"), " 40 30 3A 30 41");
    EXPECT_EQ(WithSumWord(u" 40 84 86"), " 40 84 86 30 41");
}

TEST(NativeCheckWords, FrameWithoutLeadingBlankGetsOneInTheCallersVariable) {
    EXPECT_EQ(WithXorWord(u"40 30 31 52 44"), " 40 30 31 52 44 31 37");
    EXPECT_EQ(WithSumWord(u"40 30 31 52 44"), " 40 30 31 52 44 46 37");
}

TEST(NativeCheckWords, NothingToCoverGivesZero) {
    for (auto* with : {WithXorWord, WithSumWord}) {
        EXPECT_EQ(with(u""), "  30 30");
        EXPECT_EQ(with(u" 40"), " 40 30 30");
    }
}

TEST(NativeCheckWords, UnreadablePairCountsAsZero) {
    EXPECT_EQ(WithXorWord(u" 40 30 GG 31"), " 40 30 GG 31 30 31");
    EXPECT_EQ(WithSumWord(u" 40 30 GG 31"), " 40 30 GG 31 36 31");
    EXPECT_EQ(WithXorWord(u" 40 GG 31"), " 40 GG 31 33 31");
}

// --- Testing ---

TEST(TestCRCWordTq, PassesGoodFramesWithEitherLineEnd) {
    for (const char* frame : {"@01RD00C800646E\r", "@01RD00C800646E\n", "@01RD17\r"}) {
        EXPECT_TRUE(TestCRCWordTq(FrameOf(frame))) << frame;
    }
}

TEST(TestCRCWordTqTwo, PassesGoodFramesWithEitherLineEnd) {
    for (const char* frame : {"@01RD00C800649C\r", "@01RD00C800649C\n", "@01RDF7\r"}) {
        EXPECT_TRUE(TestCRCWordTqTwo(FrameOf(frame))) << frame;
    }
}

TEST(NativeCheckWords, ReceivedFrameOfSevenBytesFailsByItsLengthAlone) {
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01R53\r")));
    EXPECT_FALSE(TestCRCWordTqTwo(FrameOf("@01RB3\r")));
}

TEST(NativeCheckWords, EachFormRefusesTheOthersWord) {
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01RDF7\r")));
    EXPECT_FALSE(TestCRCWordTqTwo(FrameOf("@01RD17\r")));
}

TEST(NativeCheckWords, SmallLettersInAReceivedWordAreRefused) {
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01RD00C800646e\r")));
    EXPECT_FALSE(TestCRCWordTqTwo(FrameOf("@01RDf7\r")));
}

TEST(NativeCheckWords, WordIsLookedForRightBeforeTheLineEnd) {
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01RD1700\r")));  // fill behind the word
    EXPECT_TRUE(TestCRCWordTq(FrameOf("@01RD0017\r")));   // fill in front of it, which "00" leaves as it was
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01RD00C800646E")));
    EXPECT_FALSE(TestCRCWordTq(FrameOf("@01RD00C800646E\r\n")));
}

TEST(NativeCheckWords, ReceivedFrameWithoutLeadingBlankIsRefused) {
    EXPECT_FALSE(TestCRCWordTq(u"40 30 31 52 44 30 31 37 0D"));
}

TEST(NativeCheckWords, EveryShorterBeginningOfAFrameIsRefused) {
    const HexText frame = FrameOf("@01RD00C800646E\r");
    for (std::size_t bytes = 0; bytes < frame.size() / 3; ++bytes) {
        EXPECT_FALSE(TestCRCWordTq(frame.substr(0, 3 * bytes))) << bytes;
    }
}

TEST(NativeCheckWords, EveryWrongByteFromTheSecondToTheLastOfTheWordIsRefused) {
    const std::string xored = "@01RD00C800646E\r";
    const std::string summed = "@01RD00C800649C\r";
    for (std::size_t at = 1; at + 1 < xored.size(); ++at) {
        for (int bits = 1; bits < 256; ++bits) {
            std::string wrong = xored;
            wrong[at] = static_cast<char>(wrong[at] ^ bits);
            EXPECT_FALSE(TestCRCWordTq(FrameOf(wrong))) << at << " " << bits;
            wrong = summed;
            wrong[at] = static_cast<char>(wrong[at] ^ bits);
            EXPECT_FALSE(TestCRCWordTqTwo(FrameOf(wrong))) << at << " " << bits;
        }
    }
}

TEST(NativeCheckWords, NeitherTheFirstByteNorTheLineEndIsCovered) {
    EXPECT_TRUE(TestCRCWordTq(FrameOf("#01RD00C800646E\r")));
    EXPECT_TRUE(TestCRCWordTq(FrameOf("@01RD00C800646E!")));
    EXPECT_TRUE(TestCRCWordTqTwo(FrameOf("#01RDF7!")));
}

}  // namespace
}  // namespace commtest
