#include "replay/recording_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {
namespace {

using ::testing::SizeIs;
using Kind = RecordingFault::Kind;

const std::string kHead =
    R"({"format": 1, "instrument": "仪表\"甲\"", "protocol": "TQ仪表协议", "code": "1101", "note": "BENCH"})"
    "\n";
const std::string kExchange =
    R"({"date": "2024-05-06", "row": 6, "request": " 40 0D", "reply": " 40 C8 0D", "valid": true})"
    "\n";
const std::string kDeleted =
    R"({"date": "2024-12-31", "row": 32767, "request": " 40", "reply": " 41", "valid": false})"
    "\n";

RecordingFault FaultOf(const std::string& bytes) {
    try {
        ReadRecordingFile(bytes);
    } catch (const RecordingFileError& error) {
        return error.Fault();
    }
    return {};
}

TEST(RecordingFile, HeadAndExchangesAreReadInTheirOrder) {
    const RecordingFile recording = ReadRecordingFile(kHead + kExchange + kDeleted);
    EXPECT_EQ(recording.head.instrument, u"仪表\"甲\"");
    ASSERT_THAT(recording.exchanges, SizeIs(2));
    const RecordedExchange& first = recording.exchanges[0];
    EXPECT_EQ(first.instrument, u"仪表\"甲\"");
    EXPECT_EQ(first.protocol, u"TQ仪表协议");
    EXPECT_EQ(first.code, u"1101");
    EXPECT_EQ(first.note, u"BENCH");
    EXPECT_EQ(first.day, u"2024-05-06");
    EXPECT_EQ(first.row, u"6");
    EXPECT_EQ(first.request, u" 40 0D");
    EXPECT_EQ(first.reply, u" 40 C8 0D");
    EXPECT_TRUE(first.isValid);
    EXPECT_FALSE(recording.exchanges[1].isValid);
}

TEST(RecordingFile, WhatIsReadIsWrittenTheSame) {
    EXPECT_EQ(WrittenRecordingFile(ReadRecordingFile(kHead + kExchange + kDeleted)),
              kHead + kExchange + kDeleted);
}

TEST(RecordingFile, ControlCharactersAndCharactersBeyondThePlaneSurvive) {
    RecordingFile recording = ReadRecordingFile(kHead);
    recording.head.instrument = u"a\nb\\\x1F\U0001F600";
    EXPECT_EQ(ReadRecordingFile(WrittenRecordingFile(recording)).head.instrument, u"a\nb\\\x1F\U0001F600");
}

TEST(RecordingFile, ReplacementCharacterIsACharacterAsAnyOther) {
    RecordingFile recording = ReadRecordingFile(kHead);
    recording.head.instrument = u"a\uFFFD";
    EXPECT_EQ(ReadRecordingFile(WrittenRecordingFile(recording)).head.instrument, u"a\uFFFD");
}

TEST(RecordingFile, OtherWritersMayOrderEscapeAndEndLinesTheirWay) {
    const RecordingFile recording = ReadRecordingFile(
        "\xEF\xBB\xBF" + kHead + "\r\n  \n" +
        R"( {"valid":true,"reply":"40 c8","request":"\u0034\u0030","row":0,"date":"2024-05-06"} )" + "\r\n");
    ASSERT_THAT(recording.exchanges, SizeIs(1));
    EXPECT_EQ(recording.exchanges[0].reply, u" 40 C8");
    EXPECT_EQ(recording.exchanges[0].request, u" 40");
}

TEST(RecordingFile, FirstLineThatDoesNotFitIsNamedWithItsMember) {
    const auto changed = [](std::string line, const std::string& from, const std::string& to) {
        return line.replace(line.find(from), from.size(), to);
    };
    const struct {
        std::string bytes;
        RecordingFault fault;
    } rows[] = {
        {"", {Kind::NoHeader, 1}},
        {"\n\n", {Kind::NoHeader, 1}},
        {"rubbish\n", {Kind::NoObject, 1}},
        {"[1]\n", {Kind::NoObject, 1}},
        {"{\"format\": 1} x\n", {Kind::NoObject, 1}},
        {"{\"format\": [1]}\n", {Kind::NoObject, 1}},
        {"{\"format\": null}\n", {Kind::NoObject, 1}},
        {"{\"format\": 1.5}\n", {Kind::NoObject, 1}},
        {"{\"format\": 1\n", {Kind::NoObject, 1}},
        {"{\"format\": \"1", {Kind::NoObject, 1}},
        {"{\"format\": \"\\u00\"}", {Kind::NoObject, 1}},
        {"{\"format\": \"\\", {Kind::NoObject, 1}},
        {changed(kHead, "1101", "\\ud83d"), {Kind::NoObject, 1}},
        {kExchange, {Kind::MissingMember, 1, "format"}},
        {changed(kHead, "1", "2"), {Kind::OtherFormat, 1, "format"}},
        {changed(kHead, "1", "\"1\""), {Kind::WrongValue, 1, "format"}},
        {changed(kHead, "\"BENCH\"", "\" \""), {Kind::WrongValue, 1, "note"}},
        {changed(kHead, "}", ", \"more\": 1}"), {Kind::UnknownMember, 1, "more"}},
        {changed(kHead, "}", ", \"note\": \"A\"}"), {Kind::TwiceTheMember, 1, "note"}},
        {kHead + kExchange + "\xFF\n", {Kind::NotUtf8, 3}},
        {kHead + "\n" + kExchange + kHead, {Kind::MissingMember, 4, "date"}},
        {kHead + changed(kExchange, "-06", "-32"), {Kind::WrongValue, 2, "date"}},
        {kHead + changed(kExchange, "-05-", "-13-"), {Kind::WrongValue, 2, "date"}},
        {kHead + changed(kExchange, "2024-05", "24-05"), {Kind::WrongValue, 2, "date"}},
        {kHead + changed(kExchange, "6,", "32768,"), {Kind::WrongValue, 2, "row"}},
        {kHead + changed(kExchange, "6,", "-1,"), {Kind::WrongValue, 2, "row"}},
        {kHead + changed(kExchange, " 40 0D", ""), {Kind::WrongValue, 2, "request"}},
        {kHead + changed(kExchange, " 40 0D", " 40 0"), {Kind::WrongValue, 2, "request"}},
        {kHead + changed(kExchange, " 40 C8", " 40-C8"), {Kind::WrongValue, 2, "reply"}},
        {kHead + changed(kExchange, " 40 C8", " 40 G8"), {Kind::WrongValue, 2, "reply"}},
        {kHead + changed(kExchange, "true", "1"), {Kind::WrongValue, 2, "valid"}},
    };
    for (const auto& row : rows) {
        const RecordingFault fault = FaultOf(row.bytes);
        EXPECT_TRUE(fault == row.fault) << row.bytes << " line " << fault.line << " kind "
                                        << static_cast<int>(fault.kind) << " " << fault.member;
    }
}

}  // namespace
}  // namespace commtest
