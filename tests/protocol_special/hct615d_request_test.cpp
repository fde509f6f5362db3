#include "protocol_special/hct615d_request.h"

#include <gtest/gtest.h>

#include "support/bench_session.h"

namespace commtest::testing {
namespace {

std::string RequestFor(const Text& address) {
    BenchSession bench;
    bench.Form().AddressText = address;
    BuildHct615dReadRequest(bench.Form());
    return ToUtf8(bench.Form().SendText);
}

TEST(Hct615dRequest, CarriesTheAddressAndBothCheckBytes) {
    EXPECT_EQ(RequestFor(u"01"), " AA AA AA AA AA AA AA 07 02 01 01 00 0B 05");
    EXPECT_EQ(RequestFor(u"0A"), " AA AA AA AA AA AA AA 07 02 0A 01 00 14 0E");
}

TEST(Hct615dRequest, SumKeepsItsLowByte) {
    EXPECT_EQ(RequestFor(u"FF"), " AA AA AA AA AA AA AA 07 02 FF 01 00 09 FB");
}

TEST(Hct615dRequest, RedrawIsOnAfterwards) {
    BenchSession bench;
    bench.Form().ParameterGrid().Redraw = false;
    BuildHct615dReadRequest(bench.Form());
    EXPECT_TRUE(bench.Form().ParameterGrid().Redraw);
}

// An instrument without parameters leaves the code 0 behind its first reply.
TEST(Hct615dRequest, UnknownProtocolCodePollsWithIt) {
    BenchSession bench;
    bench.Form().ProtocolCode = 0;
    bench.Form().AddressText = u"01";
    bench.Press(4);
    bench.line.RunUntil(300);
    ASSERT_EQ(bench.SentFrames().size(), 1U);
    EXPECT_EQ(bench.SentFrames()[0], "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05");
}

}  // namespace
}  // namespace commtest::testing
