#include "simulator/native_frames.h"

#include <gtest/gtest.h>

namespace simulator {
namespace {

TEST(CheckWord, IsTheExclusiveOrOrTheSumOfTheTextBehindTheStart) {
    EXPECT_EQ(CheckWord(11, "01RD"), "17");
    EXPECT_EQ(CheckWord(13, "01RD"), "17");
    EXPECT_EQ(CheckWord(12, "01RD"), "F7");
    EXPECT_EQ(CheckWord(11, "01RR0A00C8"), "0B");  // two digits always
}

TEST(AddressCharacters, AreTwoDigitsOrMore) {
    EXPECT_EQ(AddressCharacters(1), "01");
    EXPECT_EQ(AddressCharacters(10), "0A");
    EXPECT_EQ(AddressCharacters(255), "FF");
    EXPECT_EQ(AddressCharacters(256), "100");
}

struct Request {
    int code;
    int address;
    std::string frame;
    std::optional<std::string> content;
};

TEST(ContentOfRequest, IsWhatStandsBetweenAddressAndCheckWord) {
    const Request requests[] = {
        {11, 1, "@01RD17\r", "RD"},
        {12, 1, "@01RDF7\r", "RD"},
        {13, 1, "@01RD1700\r", "RD"},
        {13, 1, "@01RD170000\r", "RD"},
        {13, 1, "@01RR010000\r", "RR"},  // "00" would be a right check word of "RR01", too
        {11, 10, "@0ARE01230264\r", "RE012302"},
        {11, 1, "@01W2012300C81F\r", "W2012300C8"},
        {12, 1, "@01W2020026400A8\r", "W2020026400"},
        {11, 255, "@FFRD16\r", "RD"},
    };
    for (const auto& [code, address, frame, content] : requests) {
        EXPECT_EQ(ContentOfRequest(code, address, frame), content) << code << " " << frame;
    }
}

TEST(ContentOfRequest, IsNothingForAnotherAddressOrAWrongFrame) {
    const Request requests[] = {
        {11, 2, "@01RD17\r", {}},    // another address
        {11, 1, "@01RD18\r", {}},    // wrong check word
        {11, 1, "@01RDF7\r", {}},    // the check word of another code
        {12, 1, "@01RD17\r", {}},    //
        {13, 1, "@01RD17\r", {}},    // without its fill
        {11, 1, "@01RD1700\r", {}},  // with a fill
        {11, 16, "@100RD27\r", {}},  // for address 256
        {11, 1, "@01RD17", {}},      // without its end
        {11, 1, "01RD17\r", {}},     // without its start
        {11, 1, "@\r", {}},         {11, 1, "\r", {}}, {13, 1, "@00\r", {}},
    };
    for (const auto& [code, address, frame, content] : requests) {
        EXPECT_EQ(ContentOfRequest(code, address, frame), content) << code << " " << frame;
    }
}

TEST(MakeReply, PutsAddressCheckWordAndEndAroundTheContent) {
    EXPECT_EQ(MakeReply(11, 1, "RD00C80064"), "@01RD00C800646E\r");
    EXPECT_EQ(MakeReply(12, 1, "RD00C80064"), "@01RD00C800649C\r");
    EXPECT_EQ(MakeReply(11, 1, "##"), "@01##01\r");
    EXPECT_EQ(MakeReply(11, 1, "RR0A00", kPartEnd), "@01RR0A0070\n");
}

TEST(MakeReply, Code13HasTwoFillBytesBeforeTheCheckWordThatCoversThem) {
    EXPECT_EQ(MakeReply(13, 3, "RDC800"), "@03RDC800006E\r");
}

}  // namespace
}  // namespace simulator
