#include "protocol_special/hct615d_request.h"

#include <gtest/gtest.h>

#include "support/conversation_bench.h"

namespace commtest::testing {
namespace {

std::string RequestFor(const Text& address) {
    StandingClock clock;
    Conversation talk;
    talk.AddressText = address;
    BuildHct615dReadRequest(talk, clock);
    return ToUtf8(talk.SendText);
}

TEST(Hct615dRequest, CarriesTheAddressAndBothCheckBytes) {
    EXPECT_EQ(RequestFor(u"01"), " AA AA AA AA AA AA AA 07 02 01 01 00 0B 05");
    EXPECT_EQ(RequestFor(u"0A"), " AA AA AA AA AA AA AA 07 02 0A 01 00 14 0E");
}

TEST(Hct615dRequest, SumKeepsItsLowByte) {
    EXPECT_EQ(RequestFor(u"FF"), " AA AA AA AA AA AA AA 07 02 FF 01 00 09 FB");
}

TEST(Hct615dRequest, RedrawIsOnAfterwards) {
    StandingClock clock;
    Conversation talk;
    talk.ParameterGrid().Redraw = false;
    BuildHct615dReadRequest(talk, clock);
    EXPECT_TRUE(talk.ParameterGrid().Redraw);
}

}  // namespace
}  // namespace commtest::testing
