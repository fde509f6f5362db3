#include "simulator/novax_frames.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"

namespace simulator {
namespace {

struct Check {
    int address;
    const char* content;
    const char* check;
};

TEST(NovaxCheck, IsTheSumOfNumberInTheHighByteDataCommandAndAddress) {
    const Check checks[] = {{1, "52 12 00 00", "53 12"},     // 1200 + 52 + 1
                            {1, "43 15 01 00", "45 15"},     // 1500 + 1 + 43 + 1
                            {2, "52 00 00 00", "54 00"},     //
                            {1, "43 10 E8 03", "2C 14"},     // 1000 + 3E8 + 43 + 1
                            {1, "43 12 FF FF", "43 12"},     // 1200 - 1 + 43 + 1
                            {5, "43 12 31 F8", "79 0A"},     // 1200 - 7CF + 43 + 5
                            {127, "43 FF FF 7F", "C1 7F"}};  // 17FC1 without what leaves 16 bits
    for (const auto& [address, content, check] : checks)
        EXPECT_EQ(Pairs(NovaxCheck(address, FromPairs(content))), check) << content;
}

TEST(ContentOfNovaxRequest, IsCommandNumberAndData) {
    const auto contentOf = [](int address, const char* frame) {
        return Pairs(ContentOfNovaxRequest(address, FromPairs(frame)).value_or("?"));
    };
    EXPECT_EQ(contentOf(1, "81 81 52 12 00 00 53 12"), "52 12 00 00");
    EXPECT_EQ(contentOf(1, "81 81 43 15 01 00 45 15"), "43 15 01 00");
    EXPECT_EQ(contentOf(0, "80 80 52 12 00 00 52 12"), "52 12 00 00");
    EXPECT_EQ(contentOf(127, "FF FF 52 12 00 00 D1 12"), "52 12 00 00");
}

TEST(ContentOfNovaxRequest, IsNothingForAnotherAddressOrAWrongFrame) {
    for (const char* frame : {"82 82 52 12 00 00 54 12",     // another address
                              "82 81 52 12 00 00 53 12",     // in its first byte alone
                              "81 82 52 12 00 00 53 12",     // in its second one
                              "01 01 52 12 00 00 53 12",     // without the 128
                              "81 81 52 12 00 00 54 12",     // wrong check bytes
                              "81 81 52 12 00 00 53 13",     //
                              "81 81 52 12 00 00 12 53",     // in the wrong order
                              "81 81 44 12 00 00 45 12",     // another command
                              "81 81 52 12 00 00 53",        // cut off
                              "81 81 52 12 00 00 53 12 00",  // grown
                              ""}) {
        EXPECT_FALSE(ContentOfNovaxRequest(1, FromPairs(frame))) << frame;
    }
    EXPECT_FALSE(ContentOfNovaxRequest(257, FromPairs("81 81 52 12 00 00 53 13")));  // its check bytes
}

TEST(MakeNovaxReply, PutsTheSumBehindTheContent) {
    EXPECT_EQ(Pairs(MakeNovaxReply(FromPairs("FA 00 FE FF 03 C8 6A FF"))), "FA 00 FE FF 03 C8 6A FF 2B 05");
    EXPECT_EQ(Pairs(MakeNovaxReply(FromPairs("00 00 00 00 00 00 00 00"))), "00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(Pairs(MakeNovaxReply(FromPairs("FF FF FF FF FF FF FF FF"))), "FF FF FF FF FF FF FF FF F8 07");
}

}  // namespace
}  // namespace simulator
