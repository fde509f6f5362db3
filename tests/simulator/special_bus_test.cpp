#include <gtest/gtest.h>

#include "simulator/hct615d_frames.h"
#include "simulator/sample_lines.h"

namespace simulator {
namespace {

std::vector<Parameter> Head() { return std::vector<Parameter>(5, Fixed("0000", "2", "R", 0)); }

std::set<std::size_t> Places(std::size_t first, std::size_t last) {
    std::set<std::size_t> places;
    for (std::size_t place = first; place <= last; ++place) places.insert(place);
    return places;
}

// --- NOVAX ---

Instrument Controller(int address, double measured = 250) {
    std::vector<Parameter> parameters = Head();
    parameters.push_back(Fixed("0001", "2", "R", measured));
    parameters.push_back(Fixed("0002", "2", "R", -2));
    parameters.push_back(Fixed("0003", "1", "R", 3));
    parameters.push_back(Fixed("0004", "1", "R", 200));
    parameters.push_back(Fixed("0010", "2", "RW", 750, 0, 3000));
    parameters.push_back(Fixed("0012", "2", "RW", -150, -1999, 9999));
    return {41, address, "controller", parameters};
}

const std::string kRead = "81 81 52 12 00 00 53 12";
const std::string kReply = "FA 00 FE FF 03 C8 6A FF 2B 05";

TEST(NovaxBus, InstrumentsAnswerAtTheirAddresses) {
    QuietLine line({Controller(1), Controller(2, 1000)});
    EXPECT_EQ(line.AskPairs(kRead), kReply);
    EXPECT_EQ(line.AskPairs("82 82 52 12 00 00 54 12"), "E8 03 FE FF 03 C8 6A FF 1C 05");
    EXPECT_EQ(line.AskPairs("83 83 52 12 00 00 55 12"), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.bus.CountsOf(0).requests, 1);
    EXPECT_EQ(line.bus.CountsOf(1).requests, 1);
    EXPECT_EQ(line.bus.Total().answers, 2);
}

TEST(NovaxBus, RequestMayComeByteByByte) {
    QuietLine line({Controller(1)});
    const std::string request = FromPairs(kRead);
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_EQ(line.Ask(request.substr(i, 1), 20.0 * static_cast<double>(i)), "");
    EXPECT_EQ(Pairs(line.Ask(request.substr(7), 140)), kReply);
    EXPECT_EQ(line.bus.IgnoredFrames(), 0);
}

TEST(NovaxBus, TwoRequestsInOneChunkAreBothAnswered) {
    QuietLine line({Controller(1)});
    EXPECT_EQ(line.AskPairs(kRead + " " + kRead), kReply + " " + kReply);
}

TEST(NovaxBus, RequestThatIsNoneIsIgnoredAtItsEighthByte) {
    QuietLine line({Controller(1)});
    long ignored = 0;
    for (const char* frame : {"81 81 52 12 00 00 53 13",     // wrong check bytes
                              "81 81 44 12 00 00 45 12",     // another command
                              "81 82 52 12 00 00 53 12"}) {  // two addresses
        EXPECT_EQ(line.AskPairs(frame), "") << frame;
        EXPECT_EQ(line.bus.IgnoredFrames(), ++ignored) << frame;
        EXPECT_EQ(line.AskPairs(kRead), kReply);
    }
    EXPECT_EQ(line.bus.Total().requests, 3);
}

TEST(NovaxBus, RubbishIsOneIgnoredFrameAfterASilence) {
    QuietLine line({Controller(1)});
    EXPECT_EQ(line.AskPairs("81 81 52", 0), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 0);
    EXPECT_EQ(line.AskPairs(kRead, 21), kReply);
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

// Eight bytes end in the middle of the request, and its last three are rubbish of their own.
TEST(NovaxBus, RubbishWithoutASilenceTakesTheRequestBehindItAlong) {
    QuietLine line({Controller(1)});
    EXPECT_EQ(line.AskPairs("81 81 52", 0), "");
    EXPECT_EQ(line.AskPairs(kRead, 20), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.AskPairs(kRead, 41), kReply);
    EXPECT_EQ(line.bus.IgnoredFrames(), 2);
}

TEST(NovaxBus, WriteIsReadBack) {
    QuietLine line({Controller(1)});
    EXPECT_EQ(line.AskPairs("81 81 43 10 E8 03 2C 14"), "FA 00 FE FF 03 C8 E8 03 AD 04");
    EXPECT_EQ(line.AskPairs("81 81 52 10 00 00 53 10"), "FA 00 FE FF 03 C8 E8 03 AD 04");
    EXPECT_EQ(line.AskPairs("81 81 43 12 31 F8 75 0A"), "FA 00 FE FF 03 C8 31 F8 EB 04");  // -1999
    EXPECT_EQ(line.AskPairs(kRead), "FA 00 FE FF 03 C8 31 F8 EB 04");
    EXPECT_EQ(line.bus.Total().writesAccepted, 2);
    EXPECT_EQ(line.bus.Total().refusals, 0);
}

TEST(NovaxBus, RefusedWriteShowsInTheReadBackAlone) {
    QuietLine line({Controller(1)});
    EXPECT_EQ(line.AskPairs("81 81 43 10 B9 0B FD 1B"), "FA 00 FE FF 03 C8 B9 0B 86 04");  // 3001
    EXPECT_EQ(line.AskPairs("81 81 52 10 00 00 53 10"), "FA 00 FE FF 03 C8 EE 02 B2 04");
    EXPECT_EQ(line.bus.Total().requests, 2);
    EXPECT_EQ(line.bus.Total().answers, 2);
    EXPECT_EQ(line.bus.Total().writesAccepted, 0);
    EXPECT_EQ(line.bus.Total().refusals, 1);
}

TEST(NovaxFaults, CorruptionSparesNothing) {
    const std::string reply = FromPairs(kReply);
    EXPECT_EQ(CorruptPlaces(CorruptReplies(Controller(1), FromPairs(kRead), reply), reply), Places(0, 9));
}

// --- HCT615D ---

Instrument Meter(int address) {
    std::vector<Parameter> parameters = Head();
    parameters.push_back(Fixed("0010", "2", "R", 1234));
    parameters.push_back(Fixed("0011", "2", "R", 56));
    parameters.push_back(Fixed("0012", "4", "R", 7890));
    parameters.push_back(Fixed("0013", "4", "R", 123456));
    return {42, address, "meter", parameters};
}

const std::string kAsk = "AA AA AA AA AA AA AA 07 02 01 01 00 0B 05";
const std::string kLead =
    "AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA "
    "AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA AA ";
const std::string kMeterReply = kLead +
                                "07 02 01 01 00 00 00 00 00 00 00 00 00 "
                                "12 34 00 56 00 78 90 00 12 34 56 4B ED 00 00 00 00";

TEST(Hct615dBus, InstrumentsAnswerAtTheirAddresses) {
    QuietLine line({Meter(1), Meter(10)});
    EXPECT_EQ(line.AskPairs(kAsk), kMeterReply);
    EXPECT_EQ(line.AskPairs("AA AA AA AA AA AA AA 07 02 0A 01 00 14 0E"),
              kLead +
                  "07 02 0A 01 00 00 00 00 00 00 00 00 00 "
                  "12 34 00 56 00 78 90 00 12 34 56 54 E6 00 00 00 00");
    EXPECT_EQ(line.AskPairs("AA AA AA AA AA AA AA 07 02 02 01 00 0C 06"), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.bus.CountsOf(0).requests, 1);
    EXPECT_EQ(line.bus.CountsOf(1).requests, 1);
}

TEST(Hct615dBus, RequestMayComeInPieces) {
    QuietLine line({Meter(1)});
    const std::string request = FromPairs(kAsk);
    EXPECT_EQ(line.Ask(request.substr(0, 6), 0), "");
    EXPECT_EQ(line.Ask(request.substr(6, 7), 20), "");
    EXPECT_EQ(Pairs(line.Ask(request.substr(13), 40)), kMeterReply);
    EXPECT_EQ(Pairs(line.Ask(request + request, 41)), kMeterReply + " " + kMeterReply);
    EXPECT_EQ(line.bus.IgnoredFrames(), 0);
}

TEST(Hct615dBus, WrongRequestAndRubbishAreOneIgnoredFrameEach) {
    QuietLine line({Meter(1)});
    EXPECT_EQ(line.AskPairs("AA AA AA AA AA AA AA 07 02 01 01 00 0B 06", 0), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.AskPairs("AA AA AA AA AA AA AA 07 02 01 01 00 0B", 0), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
    EXPECT_EQ(line.AskPairs(kAsk, 21), kMeterReply);
    EXPECT_EQ(line.bus.IgnoredFrames(), 2);
    EXPECT_EQ(line.bus.Total().requests, 1);
}

TEST(Hct615dFaults, CorruptReplyHasWrongCheckBytes) {
    const std::string reply = FromPairs(kMeterReply);
    const auto corrupt = CorruptReplies(Meter(1), FromPairs(kAsk), reply);
    EXPECT_EQ(CorruptPlaces(corrupt, reply), Places(34, 59));
    for (const std::string& bytes : corrupt)
        EXPECT_NE(Pairs(Hct615dCheck(bytes.substr(34, 24))), Pairs(bytes.substr(58, 2))) << Pairs(bytes);
}

}  // namespace
}  // namespace simulator
