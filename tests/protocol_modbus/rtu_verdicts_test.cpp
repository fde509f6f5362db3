#include "protocol_modbus/rtu_verdicts.h"

#include <gtest/gtest.h>

#include "protocol_modbus/rtu_bench.h"

namespace commtest {
namespace {

using testing::RtuBench;

constexpr std::int16_t kCompleteLater = 4;  // a CycleStep that a known function leaves

struct VerdictBench : RtuBench {
    VerdictBench() : RtuBench(31) {
        Form().CommandCode = 50;
        Form().SetRunning(true);
    }
    // What the parser says on a complete reply, the reply itself left out.
    std::string Words(const HexText& reply) {
        Form().LogLine.clear();
        ParseHex(kCompleteLater, reply);
        const std::string entry = ToUtf8(Form().LogLine);
        return entry.substr(entry.find('\n') + 1);
    }
    bool HasDecoded() { return !Cell(kFirstRow, column::kSingleRead).empty(); }
};

const std::string kRight = "CRC校验正确  ";
const std::string kWrong = "CRC校验错误  ";

TEST(RtuVerdict, FunctionChoosesWordsAndWhereTheReplyGoes) {
    constexpr bool kStops = true;
    constexpr bool kGoesOn = false;
    struct Row {
        const char16_t* function;
        const char16_t* check;
        const char* words;
        bool decodesRight;
        bool decodesWrong;
        bool stops;
    };
    const Row rows[] = {
        {u" 81", u" 91 D7", "指令错误，指令不被识别！", true, false, kGoesOn},
        {u" 82", u" 91 93", "指令错误，指定地址(寄存器)无法执行该指令！", true, false, kGoesOn},
        {u" 83", u" 90 6F", "注意：读写指令中含有非法参数地址/长度超出范围    指令错误！", true, false,
         kStops},
        {u" 84", u" 91 1B", "自诊断错误！", true, false, kGoesOn},
        {u" 85", u" 90 E7", "指令错误，读取数据长度为零！", true, false, kGoesOn},
        {u" 86", u" 90 A3", "注意：写入非法数值！ 该指令无效", true, false, kStops},
        {u" 87", u" 91 5F", "指令错误，写入的数据超出该参数的上下限范围！", true, false, kGoesOn},
        {u" 88", u" 92 4B", " 板卡返回错误信息！", false, false, kGoesOn},
        {u" 03", u" B9 AF", "成功读取 1# 仪表的静态/动态数据", true, true, kGoesOn},
        {u" 06", u" B9 63", "成功修改 1# 仪表的参数", true, true, kGoesOn},
        {u" 10", u" BD 2B", "成功修改 1# 仪表的参数", true, true, kGoesOn},
        {u" 08", u" BB 8B", "通讯测试成功", false, false, kGoesOn},
        {u" 09", u" BA 77", "成功读取 1# 板卡的类型", false, false, kGoesOn},
        {u" 04", u" B8 DB", "", true, false, kGoesOn},
        {u" 00", u" B9 EB", "", true, false, kGoesOn},
        {u" 07", u" B8 9F", "", true, false, kGoesOn},
        {u" 8F", u" 93 3F", "", true, false, kGoesOn}};
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.function));
        const HexText content = Text(u" 01") + row.function + u" 02 00 64";
        const bool isKnown = *row.words != '\0';

        VerdictBench right;
        EXPECT_EQ(right.Words(content + row.check), kRight + row.words);
        EXPECT_EQ(right.HasDecoded(), row.decodesRight);
        EXPECT_EQ(right.Form().CheckErrorCount, 0);
        EXPECT_EQ(right.Form().IsRunning(), !row.stops);
        EXPECT_EQ(right.Form().CycleStep, isKnown ? kCompleteLater : 1);

        VerdictBench wrong;
        EXPECT_EQ(wrong.Words(content + u" 00 00"), kWrong + row.words);
        EXPECT_EQ(wrong.HasDecoded(), row.decodesWrong);
        EXPECT_EQ(wrong.Form().CheckErrorCount, 1);
        EXPECT_EQ(wrong.Form().IsRunning(), !row.stops);
        EXPECT_EQ(wrong.Form().CycleStep, isKnown ? kCompleteLater : 1);
    }
}

TEST(RtuVerdict, DataByteOfAnExceptionChoosesTheDetail) {
    struct Row {
        const char16_t* reply;
        const char* words;
    };
    const Row rows[] = {{u" 01 83 02 C0 F1", "注意：读写指令中含有非法参数地址/长度超出范围    指令错误！"},
                        {u" 01 83 03 01 31", "注意：非法的参数地址！该指令无效    指令错误！"},
                        {u" 01 83 01 80 F0", "注意：指令错误！无效指令    指令错误！"},
                        {u" 01 83 20 40 E8", "注意：指令错误！无效指令    指令错误！"},
                        {u" 01 86 02 C3 A1", "注意：写入非法数值！ 该指令无效"},
                        {u" 01 86 03 02 61", "注意：非法的参数地址！该指令无效"},
                        {u" 01 86 01 83 A0", "注意：指令错误或多路表修改参数时,CLK = 8 "}};
    for (const Row& row : rows) {
        VerdictBench bench;
        EXPECT_EQ(bench.Words(row.reply), kRight + row.words);
        EXPECT_FALSE(bench.Form().IsRunning());
        EXPECT_EQ(bench.Form().CycleStep, kCompleteLater) << "the caption alone stops";
        EXPECT_EQ(bench.Form().CurrentRow, 6) << "an exception has no data";
    }
}

TEST(RtuVerdict, ExceptionWithoutItsDataByteIsAnyOtherOfItsKind) {
    VerdictBench bench;
    EXPECT_EQ(bench.Words(u" 01 83"), kWrong + "注意：指令错误！无效指令    指令错误！");
    EXPECT_EQ(bench.Words(u" 01 86"), kWrong + "注意：指令错误或多路表修改参数时,CLK = 8 ");
}

TEST(RtuVerdict, StoppedSessionShowsTheStartCaption) {
    VerdictBench bench;
    bench.Words(u" 01 83 02 C0 F1");
    EXPECT_EQ(ToUtf8(bench.Form().StartStopCaption()), "开始通讯");
}

// Five bytes of function 88 have no check word, whatever their last two are.
TEST(RtuVerdict, BoardExceptionOfFiveBytesIsNotChecked) {
    for (const char16_t* reply : {u" 01 88 02 C7 C1", u" 01 88 02 11 22", u" 01 88 00 00 00"}) {
        VerdictBench bench;
        EXPECT_EQ(bench.Words(reply), "注意:该数据没有校验码  板卡返回错误信息！");
        EXPECT_EQ(bench.Form().CheckErrorCount, 0);
        EXPECT_TRUE(bench.Form().IsRunning());
    }
}

TEST(RtuVerdict, BoardExceptionOfAnotherLengthIsChecked) {
    VerdictBench bench;
    EXPECT_EQ(bench.Words(u" 01 88 02 11"), kWrong + " 板卡返回错误信息！");
    EXPECT_EQ(bench.Words(u" 01 88 02 11 22 33"), kWrong + " 板卡返回错误信息！");
    EXPECT_EQ(bench.Words(u" 88 01 02 11 22"), kWrong);
    EXPECT_EQ(bench.Form().CheckErrorCount, 3);
}

TEST(RtuVerdict, BoardTypeIsNamedByTheLastDataByte) {
    struct Row {
        const char16_t* reply;
        const char* card;
    };
    const Row rows[] = {{u" 01 09 00 00 00 00 DD CB", ""},
                        {u" 01 09 00 00 00 10 DC 07", ""},
                        {u" 01 09 00 00 00 11 1D C7", "  单显表板卡 "},
                        {u" 01 09 00 00 00 12 5D C6", "  单显表板卡 "},
                        {u" 01 09 00 00 00 2F 9C 17", "  单显表板卡 "},
                        {u" 01 09 00 00 00 30 DD DF", ""},
                        {u" 01 09 00 00 00 31 1C 1F", "  PID板卡 "},
                        {u" 01 09 00 00 00 4F 9C 3F", "  PID板卡 "},
                        {u" 01 09 00 00 00 50 DD F7", ""},
                        {u" 01 09 00 00 00 51 1C 37", "  流量板卡 "},
                        {u" 01 09 00 00 00 6F 9D E7", "  流量板卡 "},
                        {u" 01 09 00 00 00 70 DC 2F", ""},
                        {u" 01 09 00 00 00 71 1D EF", "  PV板卡 "},
                        {u" 01 09 00 00 00 8F 9C 6F", "  PV板卡 "},
                        {u" 01 09 00 00 00 90 DD A7", ""},
                        {u" 01 09 00 00 00 FF 9D 8B", ""}};
    for (const Row& row : rows) {
        VerdictBench bench;
        EXPECT_EQ(bench.Words(row.reply), kRight + "成功读取 1# 板卡的类型" + row.card) << ToUtf8(row.reply);
        EXPECT_FALSE(bench.HasDecoded());
    }
}

TEST(RtuVerdict, AddressIsShownInDecimal) {
    struct Row {
        const char16_t* address;
        const char* shown;
    };
    for (const Row& row :
         {Row{u"01", "1"}, Row{u"0A", "10"}, Row{u"FF", "255"}, Row{u"100", "256"}, Row{u"", "0"}}) {
        VerdictBench bench;
        bench.Form().AddressText = row.address;
        const std::string shown = row.shown;
        EXPECT_EQ(bench.Words(u" 01 03 02 00 64 B9 AF"),
                  kRight + "成功读取 " + shown + "# 仪表的静态/动态数据");
        EXPECT_EQ(bench.Words(u" 01 06 00 10 03 E8 88 B1"), kRight + "成功修改 " + shown + "# 仪表的参数");
        EXPECT_EQ(bench.Words(u" 01 10 00 10 00 02 40 0D"), kRight + "成功修改 " + shown + "# 仪表的参数");
        EXPECT_EQ(bench.Words(u" 01 09 00 00 00 00 DD CB"), kRight + "成功读取 " + shown + "# 板卡的类型");
    }
}

}  // namespace
}  // namespace commtest
