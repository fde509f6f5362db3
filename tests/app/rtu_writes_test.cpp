#include <gtest/gtest.h>

#include "app/rtu_bench.h"

namespace commtest {
namespace {

using testing::RtuBench;

constexpr int kRow = 6;
constexpr const char16_t* kOldFrame = u" 01 03 00 10 00 01 85 CF";

// The user has opened the editor on column 10 of a row; the polling is at another row.
struct WriteBench : RtuBench {
    WriteBench(int code, const Text& format, const Text& length) : RtuBench(code) {
        SetFormat(format);
        SetColumn(column::kLength, std::vector<Text>(9, length));
        Form().SendText = kOldFrame;
        Form().InputText.SetVisible(true);
        Form().CurrentRow = 9;
    }
    std::string Write(const Text& entry) {
        Rows().Select(kRow, column::kNewValue);
        Form().InputText.Set(entry);
        BuildWriteRequest(Form());
        return ToUtf8(Form().SendText);
    }
};

TEST(RtuWriteRequest, ChoiceOfTheInstrumentLeavesTheMemoryOfAHalfWrite) {
    WriteBench bench(35, u"03", u"4");
    bench.Form().WriteType.Choose(0);
    bench.Write(u"100");
    bench.Choose(Text(bench.Form().protocols.Of(35).name), u"仪表");
    EXPECT_TRUE(bench.Form().SecondHalfPending);
    bench.SetFormat(u"03");
    bench.Form().AddressText = u"01";
    bench.SetCell(kRow, column::kLength, u"4");
    bench.Form().WriteType.Choose(0);
    EXPECT_EQ(bench.Write(u"100"), " 01 06 00 11 00 00 D9 CF");
}

TEST(RtuWriteRequest, CodesWithoutAWriteKeepTheFrame) {
    for (const int code : {33, 51}) {
        WriteBench bench(code, u"01", u"2");
        bench.Form().CommandCode = 50;
        bench.Rows().Select(kRow, column::kNewValue);
        bench.Form().InputText.Set(u"1000");
        BuildWriteRequest(bench.Form());
        EXPECT_EQ(bench.Form().SendText, kOldFrame) << code;
        EXPECT_EQ(bench.Form().CommandCode, 150);
        EXPECT_EQ(bench.Cell(kRow, column::kNewValue), "");
    }
}

TEST(RtuWriteRequest, OneWriteGoesOutBetweenTwoReads) {
    struct Row {
        int code;
        const char* read;
        const char* between;
    };
    const Row rows[] = {{31, "01 03 00 10 00 01 85 CF", "01 06 00 10 03 E8 88 B1"},
                        {32, "01 03 00 10 00 01 85 CF", "01 06 00 10 03 E8 88 B1"},
                        {33, "01 04 00 10 00 01 30 0F", "01 04 00 10 00 01 30 0F"},
                        {34, "01 03 00 10 00 01 85 CF", "01 06 00 10 03 E8 88 B1"},
                        {35, "01 03 00 10 00 02 C5 CE", "01 03 00 10 00 02 C5 CE 00 00"},
                        {51, "01 03 00 10 00 02 C5 CE", "01 03 00 10 00 02 C5 CE"}};
    for (const Row& row : rows) {
        RtuBench bench(row.code);
        bench.Form().CommandCode = 50;
        bench.Press(4);
        bench.line.RunUntil(300);
        bench.Form().CurrentRow = 6;
        Happen(bench, [](MainForm& form) {
            form.ParameterGrid().Select(kRow, column::kNewValue);
            form.InputText.Set(u"1000");
            BuildWriteRequest(form);
        });
        EXPECT_EQ(bench.Form().CommandCode, 150);
        while (bench.line.FrameCount() < 3) bench.line.RunUntil(bench.line.Time() + 100);
        EXPECT_EQ(bench.SentFrames()[0], row.read) << row.code;
        EXPECT_EQ(bench.SentFrames()[1], row.between) << row.code;
        EXPECT_EQ(bench.SentFrames()[2].substr(0, 5), std::string(row.read).substr(0, 5)) << row.code;
        EXPECT_EQ(bench.Form().CommandCode, 50);
    }
}

TEST(RtuWriteRequest, CheckWordOfCode31IsTheWriteOfTheRow) {
    WriteBench bench(31, u"01", u"2");
    bench.Rows().Select(kRow, column::kNewValue);
    bench.Form().InputText.Set(u"1000");
    HexText frame = u"01 02";
    MakeCRCWord(bench.Form(), frame);
    EXPECT_EQ(ToUtf8(frame), " 01 02");
    EXPECT_EQ(ToUtf8(bench.Form().SendText), " 01 06 00 10 03 E8 88 B1");
}

TEST(RtuWriteRequest, CheckWordOfTheOtherCodesIsNothing) {
    for (const int code : {32, 33, 34, 35, 51}) {
        WriteBench bench(code, u"01", u"2");
        bench.Form().InputText.Set(u"1000");
        HexText frame = u"01 02";
        MakeCRCWord(bench.Form(), frame);
        EXPECT_EQ(ToUtf8(frame), " 01 02") << code;
        EXPECT_EQ(bench.Form().SendText, kOldFrame) << code;
    }
}

}  // namespace
}  // namespace commtest
