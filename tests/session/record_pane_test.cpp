#include "session/record_pane.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace commtest {
namespace {

TEST(RecordPane, NewestBlockStandsOnTop) {
    RecordPane pane;
    pane.PutOnTop({u"first\r\n"});
    pane.PutOnTop({u"second\r\n"});
    EXPECT_EQ(ToUtf8(pane.WholeText()), "second\r\nfirst\r\n");
    ASSERT_EQ(pane.Blocks().size(), 2U);
    EXPECT_EQ(ToUtf8(pane.Blocks().front().text), "second\r\n");
}

TEST(RecordPane, EachBlockIsHeardOfOnce) {
    RecordPane pane;
    std::vector<std::string> heard;
    pane.BlockFinished = [&](const RecordBlock& block) { heard.push_back(ToUtf8(block.text)); };
    pane.PutOnTop({u"a"});
    pane.PutOnTop({u"b"});
    EXPECT_EQ(heard, (std::vector<std::string>{"a", "b"}));
}

TEST(RecordPane, ClearTakesAllBlocksAndBeginsANewEpoch) {
    RecordPane pane;
    pane.PutOnTop({u"a"});
    const auto epoch = pane.Epoch();
    pane.Clear();
    EXPECT_EQ(ToUtf8(pane.WholeText()), "");
    EXPECT_TRUE(pane.Blocks().empty());
    EXPECT_NE(pane.Epoch(), epoch);
}

TEST(RecordPane, OlderBlocksGoBelowUnheardAndBeginANewEpoch) {
    RecordPane pane;
    pane.PutOnTop({u"c"});
    int heard = 0;
    pane.BlockFinished = [&](const RecordBlock&) { ++heard; };
    const auto epoch = pane.Epoch();
    const auto generation = pane.Generation();
    pane.PutBelow({{u"b"}, {u"a"}});
    EXPECT_EQ(ToUtf8(pane.WholeText()), "cba");
    EXPECT_EQ(heard, 0);
    EXPECT_NE(pane.Epoch(), epoch);
    EXPECT_NE(pane.Generation(), generation);
}

TEST(RecordPane, BlockOnTopStaysInTheEpoch) {
    RecordPane pane;
    const auto epoch = pane.Epoch();
    const auto generation = pane.Generation();
    pane.PutOnTop({u"a"});
    EXPECT_EQ(pane.Epoch(), epoch);
    EXPECT_NE(pane.Generation(), generation);
}

TEST(RecordPane, ReplacedTextIsTheOnlyBlockAndIsNotHeardOf) {
    RecordPane pane;
    int heard = 0;
    pane.PutOnTop({u"a"});
    pane.BlockFinished = [&](const RecordBlock&) { ++heard; };
    const auto epoch = pane.Epoch();
    pane.Replace(u"b");
    EXPECT_EQ(ToUtf8(pane.WholeText()), "b");
    EXPECT_EQ(heard, 0);
    EXPECT_NE(pane.Epoch(), epoch);
}

TEST(RecordPane, ReplacingWithNothingLeavesNoBlock) {
    RecordPane pane;
    pane.PutOnTop({u"a"});
    pane.Replace(u"");
    EXPECT_TRUE(pane.Blocks().empty());
}

// Blocks keep their place: what stands below is neither joined nor copied when one is put on top.
TEST(RecordPane, BlockBelowIsNotTouchedByOneOnTop) {
    RecordPane pane;
    pane.PutOnTop({Text(1000, u'a')});
    const char16_t* const place = pane.Blocks().back().text.data();
    for (int i = 0; i < 1000; ++i) pane.PutOnTop({u"b"});
    EXPECT_EQ(pane.Blocks().back().text.data(), place);
    EXPECT_EQ(pane.Blocks().size(), 1001U);
}

}  // namespace
}  // namespace commtest
