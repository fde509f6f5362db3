#include "protocol_native/native_protocols.h"

#include <gtest/gtest.h>

#include "protocol_native/native_bench.h"
#include "session/address.h"
#include "session/operation_menus.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::NativeBench;
using testing::TestParameter;

const std::vector<TestParameter> kArbitraryParameters = {{u"上限", u"0020", u"2", u"RW", u"0"}};

struct FamilyBench : NativeBench {
    explicit FamilyBench(int code) : NativeBench(code, kArbitraryParameters) {}
};

TEST(NativeProtocols, AreThreeRowsOfTheTable) {
    struct Row {
        int code;
        const char* name;
        bool canWrite;
        bool composesAddress;
    };
    const Row rows[] = {{11, "TQ仪表协议", true, true},
                        {12, "TQ仪表协议-定制累加和", true, true},
                        {13, "TQ仪表协议-定制异或和", false, false}};
    const std::vector<Protocol> family = NativeProtocols();
    ASSERT_EQ(family.size(), std::size(rows));
    for (std::size_t i = 0; i < family.size(); ++i) {
        EXPECT_EQ(family[i].code, rows[i].code);
        EXPECT_EQ(ToUtf8(family[i].name), rows[i].name);
        EXPECT_EQ(family[i].buildWrite != nullptr, rows[i].canWrite);
        EXPECT_EQ(family[i].composeAddress != nullptr, rows[i].composesAddress);
        EXPECT_EQ(family[i].showFrameAddress != nullptr, rows[i].composesAddress);
        EXPECT_EQ(family[i].displayMode, DisplayMode::Ascii);
        EXPECT_EQ(family[i].menu, OperationMenu::Native);
        EXPECT_TRUE(family[i].continuesOnLineFeed);
    }
}

TEST(NativeProtocols, ChoosingOneShowsFramesAsCharacters) {
    for (const int code : {11, 12, 13}) {
        FamilyBench bench(code);
        bench.Form().ShowMode.Show(1);
        bench.Choose(Text(bench.Form().protocols.Of(code).name), u"仪表");
        EXPECT_TRUE(bench.Form().ShowMode.IsChosen(0)) << code;
        EXPECT_EQ(bench.Form().ProtocolCode, code);
        EXPECT_EQ(MenuOfProtocol(bench.Form()), 1);
    }
}

TEST(MakeCRCWord, GoesByTheProtocol) {
    struct Row {
        std::int16_t code;
        const char* frame;
    };
    const Row rows[] = {{11, " 40 30 31 52 44 31 37"}, {12, " 40 30 31 52 44 46 37"},
                        {13, " 40 30 31 52 44 31 37"}, {22, " 40 30 31 52 44"},
                        {42, " 40 30 31 52 44"},       {0, " 40 30 31 52 44"},
                        {99, " 40 30 31 52 44"}};
    FamilyBench bench(11);
    for (const Row& row : rows) {
        bench.Form().ProtocolCode = row.code;
        HexText frame = u"40 30 31 52 44";
        MakeCRCWord(bench.Form(), frame);
        EXPECT_EQ(ToUtf8(frame), row.frame) << row.code;
    }
}

// --- The end of a reply ---

TEST(NativeFrameEnd, LineFeedOrCarriageReturnEndsAReply) {
    struct Row {
        const char16_t* reply;
        bool isComplete;
    };
    const Row rows[] = {
        {u" 40 30 31 0D", true}, {u" 40 30 31 0A", true}, {u" 0D 40", true}, {u" 40 30 31", false},
        {u" 30 A1", false},      {u" D0 DD A0", false},   {u"", false}};
    for (const int code : {11, 12, 13}) {
        FamilyBench bench(code);
        for (const Row& row : rows) {
            bench.Form().ReplyText = row.reply;
            EXPECT_EQ(bench.Form().ProtocolInUse().replyIsComplete(bench.Form()), row.isComplete)
                << code << ToUtf8(row.reply);
        }
    }
}

// --- The address ---

TEST(NativeAddress, IsTheHexadecimalNumberInCharacters) {
    struct Row {
        const char16_t* address;
        const char* addressText;
    };
    const Row rows[] = {{u"1", " 30 31"},          {u"10", " 30 41"},  {u"0", " 30 30"},
                        {u"16", " 31 30"},         {u"255", " 46 46"}, {u"256", " 31 30 30"},
                        {u"4096", " 31 30 30 30"}, {u"2.5", " 30 32"}};
    for (const int code : {11, 12}) {
        for (const Row& row : rows) {
            FamilyBench bench(code);
            bench.Form().ConMeterAddr.Set(u"7");
            bench.Form().ConMeterAddr.Set(row.address);
            EXPECT_EQ(ToUtf8(bench.Form().AddressText), row.addressText) << code << ToUtf8(row.address);
        }
    }
}

TEST(NativeAddress, Code13KeepsWhatAnotherProtocolLeft) {
    FamilyBench bench(13);
    bench.Form().AddressText = u" 30 35";
    bench.Form().ConMeterAddr.Set(u"7");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 30 35");
}

TEST(NativeAddress, Code13ChosenFirstHasNone) {
    testing::BenchSession bench;
    bench.Add(u"仪表", u"TQ仪表协议-定制异或和", u"130100", kArbitraryParameters);
    bench.Choose(u"TQ仪表协议-定制异或和", u"仪表");
    bench.Form().ConMeterAddr.Set(u"7");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), "");
}

TEST(NativeAddress, ChangeEmptiesTheListOfSentFrames) {
    for (const int code : {11, 12, 13}) {
        FamilyBench bench(code);
        bench.Form().ConSendOutString[0].Add(u" 40");
        bench.Form().ConMeterAddr.Set(u"7");
        EXPECT_TRUE(bench.Form().ConSendOutString[0].Items().empty()) << code;
    }
}

TEST(NativeAddress, TextThatIsNoNumberRaisesError13AndKeepsTheOldAddress) {
    FamilyBench bench(11);
    bench.Form().ConSendOutString[0].Add(u" 40");
    EXPECT_EQ(ErrorOf([&] { bench.Form().ConMeterAddr.Set(u"七"); }), 13);
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 30 31");
    EXPECT_TRUE(bench.Form().ConSendOutString[0].Items().empty());
}

TEST(NativeAddress, OfARecordedFrameStandsInItsSecondAndThirdByte) {
    struct Row {
        const char16_t* frame;
        const char* address;
    };
    const Row rows[] = {{u" 40 30 41 52 44 31 37 0D", "10"}, {u"@FFRD17", "255"}, {u" 40 31 30", "16"}};
    for (const int code : {11, 12}) {
        FamilyBench bench(code);
        for (const Row& row : rows) {
            bench.Form().DemoFrames = {row.frame};
            bench.Form().CommandCode = 10031;
            BuildReadRequest(bench.Form());
            EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), row.address) << code;
            EXPECT_EQ(ToUtf8(bench.Form().SendText), ToUtf8(row.frame));
        }
    }
}

TEST(NativeAddress, Code13ShowsNoAddressOfARecordedFrame) {
    FamilyBench bench(13);
    bench.Form().DemoFrames = {u" 40 30 41 52 44 31 37 30 30 0d"};
    bench.Form().CommandCode = 10031;
    BuildReadRequest(bench.Form());
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), "1");
}

}  // namespace
}  // namespace commtest
