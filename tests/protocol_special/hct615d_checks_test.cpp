#include "protocol_special/hct615d_checks.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

// --- The check bytes ---

struct ChecksCase {
    Text bytes;
    std::string checks;
};

TEST(Hct615dCheckBytes, AreSumAndExclusiveOr) {
    for (const ChecksCase& one : {ChecksCase{u" 07 02 01 01 00", " 0B 05"},
                                  {u" 07 02 0A 01 00", " 14 0E"},
                                  {u" 12", " 12 12"},
                                  {u" 0F 0F", " 1E 00"}}) {
        EXPECT_EQ(ToUtf8(Hct615dCheckBytes(one.bytes)), one.checks) << ToUtf8(one.bytes);
    }
}

TEST(Hct615dCheckBytes, SumKeepsItsLowByte) {
    EXPECT_EQ(ToUtf8(Hct615dCheckBytes(u" FF 01")), " 00 FE");
    EXPECT_EQ(ToUtf8(Hct615dCheckBytes(u" FF FF FF")), " FD FF");
}

TEST(Hct615dCheckBytes, OfNothingAreZero) { EXPECT_EQ(ToUtf8(Hct615dCheckBytes(u"")), " 00 00"); }

// --- The frame ---

Text Repeated(const Text& bytes, int times) {
    Text text;
    for (int i = 0; i < times; ++i) text += bytes;
    return text;
}

// 34 bytes in front, 22 zeros and two bytes that the check covers, the check bytes and two more.
Text Reply(const Text& coveredEnd, const Text& checks) {
    return Repeated(u" AA", 34) + Repeated(u" 00", 22) + coveredEnd + checks + u" 0D 0A";
}

TEST(CheckHct615dFrame, AcceptsTheCheckBytesOfBytes35To58) {
    EXPECT_TRUE(CheckHct615dFrame(Reply(u" 12 34", u" 46 26")));
    EXPECT_TRUE(CheckHct615dFrame(Reply(u" 00 00", u" 00 00")));
}

TEST(CheckHct615dFrame, RefusesEitherWrongCheckByte) {
    EXPECT_FALSE(CheckHct615dFrame(Reply(u" 12 34", u" 47 26")));
    EXPECT_FALSE(CheckHct615dFrame(Reply(u" 12 34", u" 46 27")));
    EXPECT_FALSE(CheckHct615dFrame(Reply(u" 12 34", u" 26 46")));
}

TEST(CheckHct615dFrame, RefusesAChangedByteAtEitherEndOfTheCoveredOnes) {
    const Text good = Reply(u" 12 34", u" 46 26");
    for (const std::size_t byte : {34U, 57U}) {
        Text changed = good;
        changed.replace(3 * byte, 3, u" 01");
        EXPECT_FALSE(CheckHct615dFrame(changed)) << byte;
    }
}

TEST(CheckHct615dFrame, IgnoresTheBytesInFrontAndBehind) {
    const Text good = Reply(u" 12 34", u" 46 26");
    for (const std::size_t byte : {0U, 33U, 60U, 61U}) {
        Text changed = good;
        changed.replace(3 * byte, 3, u" 55");
        EXPECT_TRUE(CheckHct615dFrame(changed)) << byte;
    }
}

TEST(CheckHct615dFrame, AcceptsAReplyThatEndsWithItsCheckBytes) {
    const Text good = Reply(u" 12 34", u" 46 26");
    EXPECT_TRUE(CheckHct615dFrame(good.substr(0, 180)));
    EXPECT_FALSE(CheckHct615dFrame(good.substr(0, 179)));
    EXPECT_FALSE(CheckHct615dFrame(good.substr(0, 177)));
}

TEST(CheckHct615dFrame, RefusesAReplyThatEndsBeforeItsCheckBytes) {
    EXPECT_FALSE(CheckHct615dFrame(u""));
    EXPECT_FALSE(CheckHct615dFrame(u" AA"));
    EXPECT_FALSE(CheckHct615dFrame(Repeated(u" 00", 34)));
    EXPECT_FALSE(CheckHct615dFrame(Repeated(u" 00", 58)));
}

}  // namespace
}  // namespace commtest
