#include "numbers/explanation.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

TEST(Explanation, StepHasABlankLineBehindIt) {
    Text explanation;
    AppendSteps(explanation, {{u"one"}, {u"two"}});
    EXPECT_EQ(ToUtf8(explanation), "one\r\n\r\ntwo\r\n\r\n");
}

TEST(Explanation, LineHasALineEndBehindIt) {
    Text explanation;
    AppendLines(explanation, {{u"one"}, {u"two"}});
    EXPECT_EQ(ToUtf8(explanation), "one\r\ntwo\r\n");
}

TEST(Explanation, LastWordsHaveNothingBehindThem) {
    Text explanation;
    AppendLastWords(explanation, {u"end"});
    EXPECT_EQ(ToUtf8(explanation), "end");
}

TEST(Explanation, RowIsAppendedToWhatStandsThere) {
    Text explanation = u"head ";
    AppendSteps(explanation, {{u"one"}});
    AppendLines(explanation, {{u"two"}});
    AppendLastWords(explanation, {u"end"});
    EXPECT_EQ(ToUtf8(explanation), "head one\r\n\r\ntwo\r\nend");
}

TEST(Explanation, PiecesOfARowStandSideBySide) {
    const Text value = u"-1234";
    Text explanation;
    AppendSteps(explanation, {{u"code  ", value, u" ---> ", u"FB2E"}});
    EXPECT_EQ(ToUtf8(explanation), "code  -1234 ---> FB2E\r\n\r\n");
}

TEST(Explanation, EmptyPieceLeavesItsNeighboursAsTheyAre) {
    Text explanation;
    AppendLines(explanation, {{u" a ", u"", u" b "}, {u""}});
    EXPECT_EQ(ToUtf8(explanation), " a  b \r\n\r\n");
}

}  // namespace
}  // namespace commtest
