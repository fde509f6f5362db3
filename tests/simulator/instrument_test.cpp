#include "simulator/instrument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/sample_instruments.h"

namespace simulator {
namespace {

using testing::ElementsAre;

Instrument Sample(int partLength = 0) { return {11, 1, "sample", SampleParameters(), partLength}; }
Instrument SampleOfCode12() { return {12, 1, "sample", SampleParametersOfCode12()}; }

std::string Ask(Instrument& instrument, const std::string& content) {
    const auto parts = instrument.AnswerTo(content, 0).parts;
    EXPECT_EQ(parts.size(), 1U) << content;
    return parts.front();
}

TEST(DynamicRead, BeginsAtTheSixthRowAndTakesRowsOfSAlong) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RD"), "RDD204D28403");
}

TEST(DynamicRead, OfAnInstrumentWithFewerRowsHasNoData) {
    Instrument instrument(11, 1, "short", {Fixed("0010", "2", "RW", 1)});
    EXPECT_EQ(Ask(instrument, "RD"), "RD");
}

TEST(StaticRead, BeginsAtTheFirstRowOfRWAndGoesOnWhileTheLetterIsTheSame) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RR"), "RR01C88004A0000004B000000080000002");
}

TEST(StaticRead, OfAnInstrumentWithoutSettingsHasNoData) {
    Instrument instrument = TwoValues();
    EXPECT_EQ(Ask(instrument, "RR"), "RR");
}

TEST(StaticRead, InPartsBreaksBetweenParameters) {
    Instrument instrument = Sample(6);
    const auto answer = instrument.AnswerTo("RR", 0);
    EXPECT_THAT(answer.parts, ElementsAre("RR01C880", "RR04A00000", "RR04B0000000800000", "RR02"));
}

TEST(StaticRead, PartIsFilledUpToItsLength) {
    Instrument instrument = Sample(7);
    EXPECT_THAT(instrument.AnswerTo("RR", 0).parts,
                ElementsAre("RR01C88004A00000", "RR04B0000000800000", "RR02"));
}

TEST(ParameterRead, SingleGivesOneParameter) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RE002001"), "RE01");
    EXPECT_EQ(Ask(instrument, "RE002102"), "REC880");
    EXPECT_EQ(Ask(instrument, "RE002304"), "RE04A00000");
    EXPECT_EQ(Ask(instrument, "RE002708"), "RE04B0000000800000");
    EXPECT_EQ(Ask(instrument, "RE001002"), "RED204");
}

TEST(ParameterRead, GroupGivesTheWholeParametersThatFitTheCount) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RE002002"), "RE01");
    EXPECT_EQ(Ask(instrument, "RE002003"), "RE01C880");
    EXPECT_EQ(Ask(instrument, "RE002006"), "RE01C880");
    EXPECT_EQ(Ask(instrument, "RE002007"), "RE01C88004A00000");
}

TEST(ParameterRead, GroupEndsWhereTheAddressesDoNotRunOn) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RE0010FF"), "RED204D28403");
}

TEST(ParameterRead, IsRefusedWhereNoParameterIs) {
    Instrument instrument = Sample();
    for (const char* content : {"RE009902", "RE000002", "RE002202", "RE0021", "RE00G102", "RE"}) {
        const auto answer = instrument.AnswerTo(content, 0);
        EXPECT_THAT(answer.parts, ElementsAre("**")) << content;
        EXPECT_TRUE(answer.isRefused) << content;
        EXPECT_FALSE(answer.isWrite) << content;
    }
}

TEST(ParameterRead, CountMayHaveThreeDigits) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "RE0010100"), "RED204D28403");
}

TEST(ParameterRead, OfAParameterThatCanOnlyBeWrittenIsRefused) {
    Instrument instrument(11, 1, "write-only", {Fixed("0020", "2", "W", 1)});
    EXPECT_EQ(Ask(instrument, "RE002002"), "**");
}

TEST(ParameterRead, UnderCode12TheAddressHasThreeDigitsBehindAZero) {
    Instrument instrument = SampleOfCode12();
    EXPECT_EQ(Ask(instrument, "RE002002"), "REF401");
    EXPECT_EQ(Ask(instrument, "RE002201"), "RE07");
    EXPECT_EQ(Ask(instrument, "RE002003"), "REF40107");
    EXPECT_EQ(Ask(instrument, "RE202002"), "**");
}

TEST(Reads, UnderCode12TakeTheSameRuns) {
    Instrument instrument = SampleOfCode12();
    EXPECT_EQ(Ask(instrument, "RD"), "RDD20403");
    EXPECT_EQ(Ask(instrument, "RR"), "RRF4010707C90000");
}

TEST(Write, IsKeptAndReadBack) {
    Instrument instrument = Sample();
    const auto answer = instrument.AnswerTo("W20021D204", 0);
    EXPECT_THAT(answer.parts, ElementsAre("##"));
    EXPECT_TRUE(answer.isWrite);
    EXPECT_FALSE(answer.isRefused);
    EXPECT_EQ(Ask(instrument, "RE002102"), "RED204");
    EXPECT_EQ(Ask(instrument, "RR"), "RR01D20404A0000004B000000080000002");
    EXPECT_EQ(Ask(instrument, "W4002307C90000"), "##");
    EXPECT_EQ(Ask(instrument, "RE002304"), "RE07C90000");
}

TEST(Write, UnderCode12RepeatsTheLengthBehindTheAddress) {
    Instrument instrument = SampleOfCode12();
    EXPECT_EQ(Ask(instrument, "W2020026400"), "##");
    EXPECT_EQ(Ask(instrument, "RE002002"), "RE6400");
}

TEST(Write, IsAcceptedUpToTheLimits) {
    Instrument instrument = Sample();
    EXPECT_EQ(Ask(instrument, "W1002003"), "##");
    EXPECT_EQ(Ask(instrument, "W1002004"), "**");
    EXPECT_EQ(Ask(instrument, "W20021CF87"), "##");  // -1999
    EXPECT_EQ(Ask(instrument, "W20021D087"), "**");  // -2000
    EXPECT_EQ(Ask(instrument, "RE002003"), "RE03CF87");
}

TEST(Write, IsRefusedAndChangesNothing) {
    const std::string refused[] = {
        "W20099D204",              // no such parameter
        "W8002704B0000000800000",  // cannot be written
        "W1001403",                //
        "W30000010203",            // a command has no address
        "W10021D204",              // another length
        "W1002101",                // another length
        "W20021D2",                // too short
        "W20021D20400",            // too long
        "W40023421000000",         // nine digits
        "W20021D2G4",              // no digit
        "W20021",                  // no value
        "W",
    };
    Instrument instrument = Sample();
    for (const std::string& content : refused) {
        const auto answer = instrument.AnswerTo(content, 0);
        EXPECT_THAT(answer.parts, ElementsAre("**")) << content;
        EXPECT_TRUE(answer.isRefused && answer.isWrite) << content;
    }
    EXPECT_EQ(Ask(instrument, "RR"), "RR01C88004A0000004B000000080000002");
}

TEST(Command, IsAcceptedWhereTheListHasIt) {
    Instrument instrument = Sample();
    for (const char* content : {"W3", "W4", "W5D204"}) EXPECT_EQ(Ask(instrument, content), "##") << content;
    for (const char* content : {"W5", "W6", "W3D204"}) EXPECT_EQ(Ask(instrument, content), "**") << content;

    Instrument without(11, 1, "no commands", {Fixed("0010", "2", "RW", 1)});
    for (const char* content : {"W3", "W4", "W5D204"}) EXPECT_EQ(Ask(without, content), "**") << content;
}

TEST(Command, ValueIsHeldAgainstItsLimits) {
    Instrument instrument(11, 1, "password", {Fixed("0000", "5", "W", 0, 0, 9999)});
    EXPECT_EQ(Ask(instrument, "W50F27"), "##");  // 9999
    EXPECT_EQ(Ask(instrument, "W51027"), "**");  // 10000
    EXPECT_EQ(Ask(instrument, "W5ZZZZ"), "**");
}

TEST(Values, LiveBetweenTwoReads) {
    std::vector<Parameter> parameters = SampleParameters();
    parameters[5].behaviour = Behaviour::Read("counter 10 2");
    Instrument instrument(11, 1, "living", parameters);
    EXPECT_EQ(instrument.AnswerTo("RE001002", 0).parts.front(), "RE0A00");
    EXPECT_EQ(instrument.AnswerTo("RE001002", 7).parts.front(), "RE1800");
    EXPECT_EQ(instrument.ValueOf("at 0010", 7), 24);
    EXPECT_EQ(instrument.ValueOf("nowhere", 7), std::nullopt);
}

TEST(Values, ThatNobodyDescribedSuitTheirRow) {
    std::vector<Parameter> parameters(7);
    const char* rows[][5] = {{"型号", "0001", "2", "R", "0"},        {"测量值", "0010", "2", "D", "0020"},
                             {"段号", "0012", "1", "D", "0"},        {"状态", "0013", "1", "S", "0"},
                             {"累积量", "0014", "8", "D", "0"},      {"小数点位置", "0020", "1", "RW", "0"},
                             {"量程下限", "0021", "2", "RW", "0020"}};
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        parameters[i] = {rows[i][0], rows[i][1], rows[i][2], rows[i][3], rows[i][4], {}, {}, {}};
    }
    parameters[6].lowest = -1999;
    parameters[6].highest = 9999;
    const Instrument instrument(11, 1, "bare", parameters);
    for (const char* still : {"型号", "小数点位置", "量程下限"}) {
        EXPECT_EQ(instrument.ValueOf(still, 0), instrument.ValueOf(still, 3)) << still;
    }
    for (const char* moving : {"测量值", "段号", "累积量"}) {
        EXPECT_NE(instrument.ValueOf(moving, 0), instrument.ValueOf(moving, 3)) << moving;
    }
    EXPECT_EQ(instrument.ValueOf("小数点位置", 0), 1);
    EXPECT_EQ(instrument.ValueOf("量程下限", 0), 1000);  // a quarter of the way
}

}  // namespace
}  // namespace simulator
