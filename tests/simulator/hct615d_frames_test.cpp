#include "simulator/hct615d_frames.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"

namespace simulator {
namespace {

TEST(Hct615dCheck, IsTheLowByteOfTheSumAndTheExclusiveOr) {
    const std::pair<const char*, const char*> frames[] = {
        {"07 02 01 01 00", "0B 05"}, {"07 02 0A 01 00", "14 0E"}, {"FF 01", "00 FE"}, {"FF FF FF", "FD FF"}};
    for (const auto& [covered, check] : frames)
        EXPECT_EQ(Pairs(Hct615dCheck(FromPairs(covered))), check) << covered;
}

TEST(ContentOfHct615dRequest, IsEmpty) {
    const std::pair<int, const char*> requests[] = {{1, "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05"},
                                                    {10, "AA AA AA AA AA AA AA 07 02 0A 01 00 14 0E"},
                                                    {255, "AA AA AA AA AA AA AA 07 02 FF 01 00 09 FB"}};
    for (const auto& [address, frame] : requests)
        EXPECT_EQ(ContentOfHct615dRequest(address, FromPairs(frame)), "") << frame;
}

TEST(ContentOfHct615dRequest, IsNothingForAnotherAddressOrAWrongFrame) {
    for (const char* frame : {"AA AA AA AA AA AA AA 07 02 02 01 00 0C 06",     // another address
                              "AA AA AA AA AA AA AA 07 02 01 01 00 0C 05",     // wrong check bytes
                              "AA AA AA AA AA AA AA 07 02 01 01 00 0B 06",     //
                              "AA AA AA AA AA AA AA 07 02 01 01 00 05 0B",     // in the wrong order
                              "AB AA AA AA AA AA AA 07 02 01 01 00 0B 05",     // others in place of those
                              "AA AA AA AA AA AA AB 07 02 01 01 00 0B 05",     //
                              "AA AA AA AA AA AA AA 06 02 01 01 00 0A 04",     //
                              "AA AA AA AA AA AA AA 07 03 01 01 00 0C 04",     //
                              "AA AA AA AA AA AA AA 07 02 01 02 00 0C 06",     //
                              "AA AA AA AA AA AA AA 07 02 01 01 01 0C 04",     //
                              "AA AA AA AA AA AA 07 02 01 01 00 0B 05",        // six AA
                              "AA AA AA AA AA AA AA AA 07 02 01 01 00 0B 05",  // eight
                              "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05 00",  // grown
                              ""}) {
        EXPECT_FALSE(ContentOfHct615dRequest(1, FromPairs(frame))) << frame;
    }
    EXPECT_FALSE(ContentOfHct615dRequest(257, FromPairs("AA AA AA AA AA AA AA 07 02 01 01 00 0B 05")));
}

// The bytes of the content add up to 240, those in front of them to 0B; exclusive or E8 and 05.
TEST(MakeHct615dReply, HasItsContentAtTheEndOfWhatTheCheckBytesCover) {
    EXPECT_EQ(Pairs(MakeHct615dReply(1, FromPairs("12 34 00 56 00 78 90 00 12 34 56"))),
              "AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA "
              "AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA "
              "07 02 01 01 00 00 00 00 00 00 00 00 00 "
              "12 34 00 56 00 78 90 00 12 34 56 4B ED 00 00 00 00");
}

}  // namespace
}  // namespace simulator
