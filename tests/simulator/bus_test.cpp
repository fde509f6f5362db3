#include "simulator/bus.h"

#include <gtest/gtest.h>

#include "simulator/sample_lines.h"

namespace simulator {
namespace {

Instrument Sample(int code, int address, int partLength = 0) {
    return {code, address, "sample", code == 12 ? SampleParametersOfCode12() : SampleParameters(),
            partLength};
}

TEST(Bus, AnswersUnderEachOfTheThreeCodes) {
    QuietLine line({TwoValues(11, 1), Sample(12, 2), TwoValues(13, 3)});
    EXPECT_EQ(line.Ask("@01RD17\r"), "@01RD00C800646E\r");
    EXPECT_EQ(line.Ask("@02RDF8\r"), "@02RDD2040335\r");
    EXPECT_EQ(line.Ask("@03RD1500\r"), "@03RD00C80064006C\r");
}

TEST(Bus, AnswersWithOneChunkAfterTheTurnaround) {
    Bus bus({TwoValues()}, FaultRates{}, 1, 35);
    const auto chunks = bus.Receive("@01RD17\r", 0);
    ASSERT_EQ(chunks.size(), 1U);
    EXPECT_EQ(chunks[0].delayMs, 35);
    EXPECT_EQ(chunks[0].bytes, "@01RD00C800646E\r");
}

TEST(Bus, RequestMayComeByteByByte) {
    QuietLine line({TwoValues()});
    const std::string request = "@01RD17\r";
    for (std::size_t i = 0; i + 1 < request.size(); ++i) EXPECT_EQ(line.Ask(request.substr(i, 1)), "");
    EXPECT_EQ(line.Ask("\r"), "@01RD00C800646E\r");
}

TEST(Bus, TwoRequestsInOneChunkAreBothAnswered) {
    QuietLine line({TwoValues()});
    EXPECT_EQ(line.Ask("@01RD17\r@01RR01\r"), "@01RD00C800646E\r@01RR01\r");
}

TEST(Bus, RequestIsFoundBehindNoiseAndBehindAFrameThatBrokeOff) {
    QuietLine line({TwoValues()});
    EXPECT_EQ(line.Ask("\x01\xFFxyz@01R@01RD17\r"), "@01RD00C800646E\r");
    EXPECT_EQ(line.bus.Total().requests, 1);
}

TEST(Bus, FramesForNobodyOrWithAWrongCheckWordAreIgnoredAndCounted) {
    QuietLine line({TwoValues()});
    for (const char* frame : {"@02RD14\r", "@01RD18\r", "@01RDF7\r", "rubbish\r", "\r"}) {
        EXPECT_EQ(line.Ask(frame), "") << frame;
    }
    EXPECT_EQ(line.bus.IgnoredFrames(), 5);
    EXPECT_EQ(line.bus.Total().requests, 0);
    EXPECT_EQ(line.bus.Total().answers, 0);
}

TEST(Bus, RequestWithoutAnAddressIsIgnored) {
    QuietLine line({TwoValues(13, 1)});
    EXPECT_EQ(line.Ask("@RD1600\r"), "");
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

TEST(Bus, PartsFollowTheContinueByte) {
    QuietLine line({Sample(11, 1, 7)});
    EXPECT_EQ(line.Ask("@01RR01\r"), "@01RR01C88004A0000006\n");
    EXPECT_EQ(line.Ask("\n"), "@01RR04B00000008000007F\n");
    EXPECT_EQ(line.Ask("\n"), "@01RR0203\r");
    EXPECT_EQ(line.Ask("\n"), "");
    const InstrumentCounts counts = line.bus.CountsOf(0);
    EXPECT_EQ(counts.requests, 3);
    EXPECT_EQ(counts.continueBytes, 2);
    EXPECT_EQ(counts.answers, 3);
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

TEST(Bus, PartsOfCode13HaveTheirFillEach) {
    QuietLine line({Sample(13, 1, 7)});
    EXPECT_EQ(line.Ask("@01RR0100\r"), "@01RR01C88004A000000006\n");
    EXPECT_EQ(line.Ask("\n"), "@01RR04B0000000800000007F\n");
    EXPECT_EQ(line.Ask("\n"), "@01RR020003\r");
}

TEST(Bus, NewRequestEndsAReplyInParts) {
    QuietLine line({Sample(11, 1, 7), TwoValues(11, 2)});
    line.Ask("@01RR01\r");
    EXPECT_EQ(line.Ask("@02RD14\r"), "@02RD00C800646D\r");
    EXPECT_EQ(line.Ask("\n"), "");
    line.Ask("@01RR01\r");
    line.Ask("@09RD1F\r");  // for nobody here
    EXPECT_EQ(line.Ask("\n"), "");
    line.Ask("@01RR01\r");
    EXPECT_EQ(line.Ask("@01RR01\r"), "@01RR01C88004A0000006\n");
}

TEST(Bus, InstrumentHearsItsOwnRateAlone) {
    Instrument at9600 = TwoValues(11, 1);
    at9600.SetManner({.rate = 9600});
    Bus bus({at9600, TwoValues(11, 2)}, FaultRates{}, 1);
    EXPECT_EQ(bus.Receive("@01RD17\r", 0, 9600).size(), 1U);
    EXPECT_EQ(bus.Receive("@01RD17\r", 0, 19200).size(), 0U);
    EXPECT_EQ(bus.Receive("@01RD17\r", 0).size(), 1U) << "a rate that nobody knows";
    EXPECT_EQ(bus.Receive("@02RD14\r", 0, 19200).size(), 1U) << "an instrument without a rate";
    EXPECT_EQ(bus.IgnoredFrames(), 1);
}

TEST(Bus, ContinueByteAtAnotherRateIsIgnored) {
    Instrument at9600 = Sample(11, 1, 7);
    at9600.SetManner({.rate = 9600});
    Bus bus({at9600}, FaultRates{}, 1);
    bus.Receive("@01RR01\r", 0, 9600);
    EXPECT_EQ(bus.Receive("\n", 0, 19200).size(), 0U);
    EXPECT_EQ(bus.Receive("\n", 0, 9600).size(), 1U);
}

TEST(Bus, SlowInstrumentAddsItsDelayToTheTurnaround) {
    Instrument slow = TwoValues();
    slow.SetManner({.delayMs = 800});
    Bus bus({slow}, FaultRates{}, 1, 35);
    EXPECT_EQ(bus.Receive("@01RD17\r", 0).at(0).delayMs, 835);
}

TEST(Bus, GarbageHasTheLengthAndTheEndsOfTheReplyAndNothingElseOfIt) {
    Instrument garbler = TwoValues();
    garbler.SetManner({.garbles = true});
    Bus bus({garbler}, FaultRates{}, 1);
    const std::string good = "@01RD00C800646E\r";
    const std::string garbage = bus.Receive("@01RD17\r", 0).at(0).bytes;
    ASSERT_EQ(garbage.size(), good.size());
    EXPECT_EQ(garbage.front(), '@');
    EXPECT_EQ(garbage.back(), '\r');
    for (std::size_t i = 1; i + 1 < good.size(); ++i) EXPECT_NE(garbage[i], good[i]) << i;
}

TEST(Bus, TwoHundredAndFortySevenInstrumentsShareALine) {
    std::vector<Instrument> instruments;
    for (int address = 1; address <= 247; ++address) instruments.push_back(TwoValues(11, address));
    Bus bus(std::move(instruments), FaultRates{}, 1);
    EXPECT_EQ(bus.Receive("@01RD17\r", 0).size(), 1U);
    EXPECT_EQ(bus.Receive("@F7RD67\r", 0).size(), 1U);
    EXPECT_EQ(bus.Receive("@F8RD68\r", 0).size(), 0U);
}

TEST(Bus, WritesAreCountedAsAcceptedOrRefused) {
    QuietLine line({Sample(11, 1)});
    EXPECT_EQ(line.Ask("@01W100200264\r"), "");  // a wrong check word
    EXPECT_EQ(line.Ask("@01W100200267\r"), "@01##01\r");
    EXPECT_EQ(line.Ask("@01W100200560\r"), "@01**01\r");  // beyond the limit
    EXPECT_EQ(line.Ask("@01W365\r"), "@01##01\r");
    EXPECT_EQ(line.Ask("@01RE00990214\r"), "@01**01\r");
    const InstrumentCounts counts = line.bus.CountsOf(0);
    EXPECT_EQ(counts.requests, 4);
    EXPECT_EQ(counts.answers, 4);
    EXPECT_EQ(counts.writesAccepted, 2);
    EXPECT_EQ(counts.refusals, 2);
    EXPECT_EQ(line.bus.IgnoredFrames(), 1);
}

TEST(Bus, CountsStandByInstrumentAndInTotal) {
    QuietLine line({TwoValues(11, 1), TwoValues(11, 2)});
    line.Ask("@01RD17\r");
    line.Ask("@02RD14\r");
    line.Ask("@02RD14\r");
    EXPECT_EQ(line.bus.CountsOf(0).requests, 1);
    EXPECT_EQ(line.bus.CountsOf(1).requests, 2);
    EXPECT_EQ(line.bus.Total().requests, 3);
}

TEST(Bus, CountsAreOneJsonObject) {
    QuietLine line({Instrument(11, 1, "a \"quoted\\\" name", {})});
    line.Ask("@01RD17\r");
    line.Ask("@09RD1F\r");
    const std::string counts =
        "\"requests\": 1, \"continue_bytes\": 0, \"answers\": 1, \"writes_accepted\": 0, \"refusals\": 0, "
        "\"dropped\": 0, \"corrupted\": 0, \"truncated\": 0, \"late\": 0, \"split\": 0, \"delayed\": 0, "
        "\"noise\": 0";
    EXPECT_EQ(line.bus.CountsAsJson(),
              "{" + counts +
                  R"(, "ignored_frames": 1, "instruments": [{"name": "a \"quoted\\\" name", "address": 1, )" +
                  counts + "}]}");
}

}  // namespace
}  // namespace simulator
