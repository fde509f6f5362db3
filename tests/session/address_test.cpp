#include "session/address.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/form_bench.h"
#include "support/native_instrument.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FormBench;
using ::testing::IsEmpty;
using testing::NativeBench;
using ::testing::SizeIs;

struct Address {
    std::int16_t code;
    Text number;
    std::string text;  // AddressText
};

TEST(ConMeterAddr_Change, AddressTextFollowsTheProtocol) {
    const Address rows[] = {
        {11, u"1", " 30 31"},    {11, u"10", " 30 41"},   {11, u"255", " 46 46"}, {11, u"256", " 31 30 30"},
        {11, u"0", " 30 30"},    {11, u" 16 ", " 31 30"}, {12, u"1", " 30 31"},   {12, u"171", " 41 42"},
        {21, u"10", "0A"},       {22, u"255", "FF"},      {31, u"1", "01"},       {32, u"16", "10"},
        {33, u"0", "00"},        {34, u"256", "100"},     {35, u"171", "AB"},     {42, u"12", "0C"},
        {51, u"4096", "1000"},   {41, u"1", " 81 81"},    {41, u"127", " FF FF"}, {41, u"2.9", " 82 82"},
        {13, u"7", "as it was"}, {23, u"7", "as it was"}, {0, u"7", "as it was"}, {99, u"7", "as it was"}};
    for (const Address& row : rows) {
        SCOPED_TRACE(row.code);
        FormBench bench;
        bench.form.ProtocolCode = row.code;
        bench.form.AddressText = u"as it was";
        bench.form.ConMeterAddr.Set(row.number);
        ConMeterAddr_Change(bench.form);
        EXPECT_EQ(ToUtf8(bench.form.AddressText), row.text);
    }
}

TEST(ConMeterAddr_Change, ListOfSentFramesBeginsAnewUnderEveryProtocol) {
    const std::int16_t codes[] = {11, 13, 21, 23, 31, 41, 42, 0};
    for (const std::int16_t code : codes) {
        FormBench bench;
        bench.form.ProtocolCode = code;
        bench.form.ConSendOutString[0].Add(u" 40");
        ConMeterAddr_Change(bench.form);
        EXPECT_THAT(bench.form.ConSendOutString[0].Items(), IsEmpty()) << code;
    }
}

TEST(ConMeterAddr_Change, AddressThatIsNoNumberRaisesError13AndKeepsAddressText) {
    const std::int16_t codes[] = {11, 31, 41};
    for (const std::int16_t code : codes) {
        FormBench bench;
        bench.form.ProtocolCode = code;
        bench.form.AddressText = u" 30 31";
        bench.form.ConMeterAddr.Set(u"一");
        EXPECT_EQ(ErrorOf([&] { ConMeterAddr_Change(bench.form); }), 13) << code;
        EXPECT_EQ(ToUtf8(bench.form.AddressText), " 30 31");
    }
}

TEST(ConMeterAddr_Change, RunsWhenTheTextReallyChanges) {
    NativeBench bench;
    bench.Form().ConSendOutString[0].Add(u" 40");
    bench.Form().ConMeterAddr.Set(u"1");
    EXPECT_THAT(bench.Form().ConSendOutString[0].Items(), SizeIs(1));
    bench.Form().ConMeterAddr.Set(u"2");
    EXPECT_THAT(bench.Form().ConSendOutString[0].Items(), IsEmpty());
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 30 32");
}

TEST(ConMeterAddr_Change, DoubledAddressAbove127ShowsOneAndKeepsItsTooLargeSumUntilTheNextChange) {
    BenchSession bench;
    bench.Choose(u"TQ特殊仪表协议-NOVAX", u"");
    bench.Form().ConMeterAddr.Set(u"128");
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), "1");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 100 100");
    bench.Form().ConMeterAddr.Set(u"2");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 82 82");
}

TEST(ConMeterAddr_Change, DoubledAddressOf127IsTheLastThatFits) {
    BenchSession bench;
    bench.Choose(u"TQ特殊仪表协议-NOVAX", u"");
    bench.Form().ConMeterAddr.Set(u"127");
    EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), "127");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " FF FF");
}

TEST(ConMeterAddr_Change, Code13KeepsTheAddressOfTheProtocolBefore) {
    NativeBench bench;
    bench.Form().ConMeterAddr.Set(u"5");
    bench.Choose(u"TQ仪表协议-定制异或和", u"");
    bench.Form().ConMeterAddr.Set(u"6");
    EXPECT_EQ(ToUtf8(bench.Form().AddressText), " 30 35");
}

TEST(ConMeterAddr_Change, Code13ChosenFirstHasNoAddressInItsFrames) {
    BenchSession bench;
    bench.Add(u"仪表乙", u"TQ仪表协议-定制异或和", u"1301", {{u"测量值", u"0200", u"2", u"D", u"0"}});
    bench.Choose(u"TQ仪表协议-定制异或和", u"仪表乙");
    bench.Press(4);
    bench.line.RunUntil(300);
    // check word 16: 52 XOR 44
    EXPECT_THAT(bench.SentFrames(), ElementsAre("40 52 44 31 36 30 30 0D"));
}

struct FrameAddress {
    HexText frame;
    std::string address;
};

TEST(ShowAsciiFrameAddress, BytesTwoAndThreeAreTwoHexadecimalDigits) {
    FormBench bench;
    for (const FrameAddress& row :
         {FrameAddress{u" 40 30 31 52 44 31 37 0D", "1"}, FrameAddress{u" 40 30 41 52 44 36 37 0D", "10"},
          FrameAddress{u" 40 46 46 52 44 31 36 0D", "255"}, FrameAddress{u" 3A 31 30 30 33", "16"},
          FrameAddress{u"@0ARD", "10"}}) {
        ShowAsciiFrameAddress(bench.form, row.frame);
        EXPECT_EQ(ToUtf8(bench.form.ConMeterAddr.Value()), row.address);
    }
}

TEST(ShowZeroAddress, IsZeroWhateverTheFrame) {
    FormBench bench;
    ShowZeroAddress(bench.form, u" 85 85 52 12 00 00 57 12");
    EXPECT_EQ(ToUtf8(bench.form.ConMeterAddr.Value()), "0");
}

TEST(ShowByteFrameAddress, ByteOneIsTheAddress) {
    FormBench bench;
    for (const FrameAddress& row : {FrameAddress{u" 01 03 00 00", "1"}, FrameAddress{u" 0B 03 00 00", "11"},
                                    FrameAddress{u" FF 03 00 00", "255"}, FrameAddress{u"A3", "65"}}) {
        ShowByteFrameAddress(bench.form, row.frame);
        EXPECT_EQ(ToUtf8(bench.form.ConMeterAddr.Value()), row.address);
    }
}

}  // namespace
}  // namespace commtest
