#include "session/frame_end.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

struct Judged {
    Text reply;
    bool isComplete;
};

using Rule = bool (*)(const HexText& reply, const HexText& request);

void ExpectEndings(Rule rule, const std::vector<Judged>& replies, const HexText& request = {}) {
    for (const Judged& judged : replies) {
        EXPECT_EQ(rule(judged.reply, request), judged.isComplete) << ToUtf8(judged.reply);
    }
}

// A reply of `count` bytes 11.
HexText BytesOf11(int count) {
    HexText reply;
    for (int i = 0; i < count; ++i) reply += u" 11";
    return reply;
}

TEST(EndsWithLineEnd, ByteLineFeedOrCarriageReturnAnywhereEndsTheReply) {
    ExpectEndings(EndsWithLineEnd, {{u"", false},
                                    {u" 40 30 31", false},
                                    {u" 40 0D", true},
                                    {u" 40 0A", true},
                                    {u" 0D 40", true},
                                    {u" 30 A1", false},  // no "0A" across two bytes
                                    {u" 40 D0 D1", false}});
}

TEST(EndsWithLineFeed, CarriageReturnAloneDoesNotEndTheReply) {
    ExpectEndings(
        EndsWithLineFeed,
        {{u"", false}, {u" 3A 0D", false}, {u" 3A 0D 0A", true}, {u" 0A 3A", true}, {u" 30 A1", false}});
}

TEST(EndsByRtuRule, CountByteIsTheNumberOfDataBytes) {
    ExpectEndings(EndsByRtuRule, {{u"", false},
                                  {u" 01", false},  // no count byte: 0 against a negative length
                                  {u" 01 03", false},
                                  {u" 01 03 00", false},
                                  {u" 01 03 00 11 22", true},  // no data at all
                                  {u" 01 03 02 12 34 56", false},
                                  {u" 01 03 02 12 34 56 78", true},
                                  {u" 01 03 02 12 34 56 78 9A", false}});
}

TEST(EndsByRtuRule, CountOfAFullReplyIsNotTakenAsNegative) {
    HexText reply = u" 01 03 FF" + BytesOf11(255) + u" 12 34";
    ExpectEndings(EndsByRtuRule, {{reply, true}});
}

TEST(EndsByRtuRule, EchoOfAWriteWithFunction06EndsTheReply) {
    const HexText request = u" 01 06 00 10 00 64 88 24";
    ExpectEndings(EndsByRtuRule, {{request, true}, {u" 01 06 00 10 00 65 88 24", false}}, request);
}

TEST(EndsByRtuRule, EchoWithAnotherFunctionDoesNot) {
    const HexText request = u" 01 05 00 10 00 64 88 24";
    ExpectEndings(EndsByRtuRule, {{request, false}}, request);
}

TEST(EndsByRtuRule, Function09EndsWithEightBytes) {
    ExpectEndings(EndsByRtuRule, {{u" 01 09 11 11 11 11 11", false},
                                  {u" 01 09 11 11 11 11 11 11", true},
                                  {u" 01 09 11 11 11 11 11 11 11", false},
                                  {u" 01 19 11 11 11 11 11 11", false}});
}

TEST(EndsByRtuRule, Function08EndsWithSevenBytesOrMore) {
    ExpectEndings(EndsByRtuRule, {{u" 01 08 11 11 11 11", false},
                                  {u" 01 08 11 11 11 11 11", true},
                                  {u" 01 08 11 11 11 11 11 11 11", true},
                                  {u" 01 07 11 11 11 11 11", false}});
}

TEST(EndsByRtuRule, FiveBytesWithAFunctionOf8xAreAnException) {
    ExpectEndings(EndsByRtuRule, {{u" 01 83 02 11 11", true},
                                  {u" 01 8F 02 11 11", true},
                                  {u" 01 83 02 11", false},
                                  {u" 01 83 02 11 11 11", false},
                                  {u" 01 93 02 11 11", false},
                                  {u" 01 38 02 11 11", false}});
}

TEST(EndsByRtuRule, WriteReplyOfFunction10EndsOnlyByTheChanceOfItsAddress) {
    ExpectEndings(EndsByRtuRule, {{u" 01 10 00 10 00 02 40 0D", false}, {u" 01 10 03 10 00 02 40 0D", true}});
}

TEST(HasTenBytes, TellsTenBytesFromNine) {
    ExpectEndings(HasTenBytes, {{BytesOf11(9), false}, {BytesOf11(10), true}, {BytesOf11(11), true}});
}

TEST(HasSixtyFourBytes, TellsSixtyFourBytesFromSixtyThree) {
    ExpectEndings(HasSixtyFourBytes, {{BytesOf11(63), false}, {BytesOf11(64), true}, {BytesOf11(65), true}});
}

}  // namespace
}  // namespace commtest
