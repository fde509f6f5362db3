#include "simulator/framing.h"

#include <gtest/gtest.h>

#include "simulator/byte_pairs.h"

namespace simulator {
namespace {

TEST(FramingOf, EachCodeHasOne) {
    for (const int code : {11, 12, 13}) EXPECT_EQ(FramingOf(code), Framing::Native);
    for (const int code : {21, 22}) EXPECT_EQ(FramingOf(code), Framing::ModbusAscii);
    for (const int code : {31, 32, 33, 34, 35, 51}) EXPECT_EQ(FramingOf(code), Framing::ModbusRtu);
    EXPECT_EQ(FramingOf(41), Framing::Novax);
    EXPECT_EQ(FramingOf(42), Framing::Hct615d);
    for (const int code : {0, 10, 14, 23, 36, 40, 43, 99}) EXPECT_EQ(FramingOf(code), std::nullopt);
}

std::vector<std::string> Requests(Framing framing, const std::vector<std::string>& pieces, double apart = 0) {
    RequestReader reader(framing);
    std::vector<std::string> frames;
    double time = 0;
    for (const std::string& piece : pieces) {
        for (std::string& frame : reader.Take(piece, time)) frames.push_back(std::move(frame));
        time += apart;
    }
    return frames;
}

using Frames = std::vector<std::string>;

TEST(RequestReader, AsciiRequestEndsAtItsCarriageReturn) {
    EXPECT_EQ(Requests(Framing::ModbusAscii, {":010300100001EB\r\n:0106001003E8FE\r"}),
              (Frames{":010300100001EB\r", ":0106001003E8FE\r"}));
    EXPECT_EQ(Requests(Framing::ModbusAscii, {":0103", "00100001EB", "\r", "\n"}, 1000),
              Frames{":010300100001EB\r"});
}

TEST(RequestReader, AsciiRequestIsFoundBehindNoise) {
    EXPECT_EQ(Requests(Framing::ModbusAscii, {"@x\n:01:010300100001EB\r"}), Frames{":010300100001EB\r"});
}

TEST(RequestReader, RtuRequestEndsWithItsCheckBytes) {
    const std::string read = FromPairs("01 03 00 10 00 01 85 CF");
    const std::string write = FromPairs("01 10 00 10 00 02 04 42 C8 00 00 67 25");
    EXPECT_EQ(Requests(Framing::ModbusRtu, {read + write}), (Frames{read, write}));
    EXPECT_EQ(Requests(Framing::ModbusRtu, {read.substr(0, 3), read.substr(3, 4), read.substr(7)}, 20),
              Frames{read});
}

TEST(RequestReader, RtuBytesThatAreNoRequestAreOneFrameAfterASilence) {
    const std::string read = FromPairs("01 03 00 10 00 01 85 CF");
    EXPECT_EQ(Requests(Framing::ModbusRtu, {"abc", "d", read}, 20), Frames{});
    EXPECT_EQ(Requests(Framing::ModbusRtu, {"abcd", read}, 21), (Frames{"abcd", read}));
}

// Bytes that end a line elsewhere are like any other.
TEST(RequestReader, RequestOfNovaxEndsAtItsEighthByte) {
    const std::string write = FromPairs("81 81 43 12 0D 0A 51 1C");
    EXPECT_EQ(Requests(Framing::Novax, {write + "12345678"}), (Frames{write, "12345678"}));
    EXPECT_EQ(Requests(Framing::Novax, {write.substr(0, 5), write.substr(5, 2), write.substr(7)}, 20),
              Frames{write});
}

TEST(RequestReader, RequestOfHct615dEndsAtItsFourteenthByte) {
    const std::string other = "1234567890abc\r";
    EXPECT_EQ(Requests(Framing::Hct615d, {other + other}), (Frames{other, other}));
    EXPECT_EQ(Requests(Framing::Hct615d, {other.substr(0, 13), other.substr(13)}, 20), Frames{other});
}

TEST(RequestReader, ShorterBytesOfTheSpecialProtocolsAreOneFrameAfterASilence) {
    for (const Framing framing : {Framing::Novax, Framing::Hct615d}) {
        EXPECT_EQ(Requests(framing, {"abc", "d", "e"}, 20), Frames{});
        EXPECT_EQ(Requests(framing, {"abcd", "ef", ""}, 21), (Frames{"abcd", "ef"}));
    }
}

}  // namespace
}  // namespace simulator
