#include "session/cell_explanation.h"

#include <gtest/gtest.h>

#include "session/grid_rows.h"
#include "support/error_of.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::FormBench;

constexpr const char* kOneByte = "单字节数据直接转换,即从十六进制转换成十进制,就是  ";

class CellExplanation : public ::testing::Test {
  protected:
    CellExplanation() {
        form.MeterCodeText = u"11000101";
        form.ConCommString[0].Replace(u"what stood there before");
        grid.SetSize(4, column::kCount);
        grid.SetCell(2, 6, u"0A");
        grid.SetCell(2, 7, u"0B");
        grid.SetCell(2, 8, u"0C");
    }

    std::string ExplainedAt(int row, int col) {
        grid.Select(row, col);
        MSHFlexGrid1_MouseUp(form, 0);
        return ToUtf8(form.ConCommString[0].WholeText());
    }

    std::string ExplainedDisplayCode(const Text& text) {
        form.MeterCodeText = u"31040101";
        form.ConCommString[0].Replace(u"what stood there before");
        grid.SetCell(3, 7, text);
        return ExplainedAt(3, 7);
    }

    FormBench bench;
    MainForm& form = bench.form;
    Grid& grid = form.ParameterGrid();
};

TEST_F(CellExplanation, CodeOfASingleReadIsExplainedInItsOwnColumn) {
    EXPECT_EQ(ExplainedAt(2, 6), std::string(kOneByte) + "0A ---> 10");
}

TEST_F(CellExplanation, InEveryOtherColumnItIsTheCodeOfTheGroupRead) {
    for (const int col : {0, 1, 5, 7, 8, 9, 10}) {
        EXPECT_EQ(ExplainedAt(2, col), std::string(kOneByte) + "0B ---> 11") << col;
    }
}

TEST_F(CellExplanation, InstrumentPicksTheExplainer) {
    form.MeterCodeText = u"51120101";
    EXPECT_EQ(ExplainedAt(2, 7), "TQ流量计数据转换成具体数值的计算过程\r\n\r\n暂时未编写");
    form.MeterCodeText = u"51110101";
    EXPECT_EQ(ExplainedAt(2, 7), "");
}

TEST_F(CellExplanation, CodeOfOneCharacterOrNoneLeavesTheText) {
    EXPECT_EQ(ExplainedAt(1, 7), "what stood there before");
    grid.SetCell(1, 7, u"0");
    EXPECT_EQ(ExplainedAt(1, 7), "what stood there before");
}

TEST_F(CellExplanation, OnlyTheParameterGridIsExplained) {
    grid.Select(2, 7);
    for (const int index : {1, 2, 3}) MSHFlexGrid1_MouseUp(form, index);
    EXPECT_EQ(ToUtf8(form.ConCommString[0].WholeText()), "what stood there before");
}

TEST_F(CellExplanation, ErrorOfAnExplainerLeavesTheText) {
    form.MeterCodeText = u"22050101";
    grid.SetCell(2, 7, u"0A00001234");
    EXPECT_EQ(ErrorOf([&] { ExplainedAt(2, 7); }), 13);
    EXPECT_EQ(ToUtf8(form.ConCommString[0].WholeText()), "what stood there before");
}

struct DisplayText {
    const char16_t* text;
    const char* told;
};

TEST_F(CellExplanation, LastWordOfADisplayInstrumentIsItsCode) {
    const DisplayText cases[] = {
        {u"C8", "即  C8 ---> 200\r\n"},
        {u"A相 电压 C8", "即  C8 ---> 200\r\n"},
        {u"A相   C8", "即  C8 ---> 200\r\n"},
        {u"A相 C8 ", "即  C8 ---> 200\r\n"},
        {u"1 2 3 4 5 6 7 8 9 10 C8", "即  C8 ---> 200\r\n"},
        {u"1 2 3 4 5 6 7 8 9 10 11 C8", "即  11 C8 ---> 17\r\n"},
    };
    for (const DisplayText& display : cases) {
        EXPECT_NE(ExplainedDisplayCode(display.text).find(display.told), std::string::npos)
            << ToUtf8(display.text);
    }
}

TEST_F(CellExplanation, DisplayInstrumentTakesTheGroupReadInEveryColumn) {
    form.MeterCodeText = u"31040101";
    EXPECT_NE(ExplainedAt(2, 6).find("即  0B ---> 11\r\n"), std::string::npos);
}

TEST_F(CellExplanation, DisplayTextWithoutALastWordLeavesTheText) {
    EXPECT_EQ(ExplainedDisplayCode(u"C8 "), "what stood there before");
}

}  // namespace
}  // namespace commtest
