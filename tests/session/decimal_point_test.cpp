#include "session/decimal_point.h"

#include <gtest/gtest.h>

#include "session/conversation.h"
#include "support/error_of.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using testing::FormBench;

constexpr bool kReading = true;  // divide
constexpr bool kWriting = false;

// A grid whose row 2 has the value's decimals in column 5, and a reference row further down.
class DecimalPoint : public ::testing::Test {
  protected:
    void SetDecimals(const Text& decimals) { grid.SetCell(2, 5, decimals); }

    void SetReference(int row, const Text& name, const Text& address, const Text& value) {
        grid.SetCell(row, 1, name);
        grid.SetCell(row, 2, address);
        grid.SetCell(row, 8, value);
    }

    std::string Applied(Text value, bool divide) {
        ApplyDecimalPoint(grid, 2, value, divide);
        return ToUtf8(value);
    }

    int ErrorOfApplying(Text value, bool divide = kReading) {
        return ErrorOf([&] { ApplyDecimalPoint(grid, 2, value, divide); });
    }

    FormBench bench;
    MainForm& form = bench.form;
    Grid& grid = form.ParameterGrid();
};

struct Case {
    Text decimals;
    Text value;
    bool divide;
    std::string result;
};

// --- Decimals in the row itself ---

TEST_F(DecimalPoint, RowsOwnDecimalsScaleAndFormat) {
    const Case cases[] = {
        {u"2", u"1234", kReading, "12.34"},    {u"1", u"1234", kReading, "123.4"},
        {u"3", u"1234", kReading, "1.234"},    {u"4", u"1234", kReading, "0.1234"},
        {u"2", u"1200", kReading, "12.00"},    {u"2", u"5", kReading, "0.05"},
        {u"2", u"0", kReading, "0.00"},        {u"1", u"-5", kReading, "-0.5"},
        {u"2", u"-1234", kReading, "-12.34"},  {u"4", u"100.5", kReading, "0.0101"},
        {u"2", u"12.34", kWriting, "1234.00"}, {u"2", u"12.3", kWriting, "1230.00"},
        {u"1", u"-.5", kWriting, "-5.0"},      {u"4", u".0001", kWriting, "1.0000"},
        {u"00", u"007.50", kReading, "7.5"},   {u"0", u"12.5", kWriting, "12.5"},
        {u"1", u" 12 ", kReading, "1.2"},
    };
    for (const Case& c : cases) {
        SetDecimals(c.decimals);
        EXPECT_EQ(Applied(c.value, c.divide), c.result) << ToUtf8(c.decimals) << " " << ToUtf8(c.value);
    }
}

TEST_F(DecimalPoint, FormatRoundsHalfAwayFromZeroAndKeepsTheSignOfAZero) {
    SetDecimals(u"1");
    EXPECT_EQ(Applied(u"-0.25", kReading), "-0.0");
    EXPECT_EQ(Applied(u"0.25", kReading), "0.0");
    EXPECT_EQ(Applied(u"2.5", kReading), "0.3");
    EXPECT_EQ(Applied(u"-2.5", kReading), "-0.3");
    EXPECT_EQ(Applied(u"4.5", kReading), "0.5");
}

TEST_F(DecimalPoint, FiveDecimalsOrMoreLeaveTheValueAsItIs) {
    const Case cases[] = {{u"5", u"1234", kReading, "1234"},
                          {u"A", u"0012.0", kReading, "0012.0"},
                          {u"0010", u"1234", kReading, "1234"},
                          {u"9", u"12", kWriting, "12"},
                          {u"A", u"no number", kReading, "no number"}};
    for (const Case& c : cases) {
        SetDecimals(c.decimals);
        EXPECT_EQ(Applied(c.value, c.divide), c.result) << ToUtf8(c.decimals);
    }
}

TEST_F(DecimalPoint, ValueThatIsLeftAloneStillGetsItsMissingZero) {
    SetDecimals(u"5");
    EXPECT_EQ(Applied(u".5", kReading), "0.5");
    EXPECT_EQ(Applied(u"-.5", kReading), "-0.5");
}

TEST_F(DecimalPoint, NoDecimalsGiveTheNumbersPlainText) {
    SetDecimals(u"");
    EXPECT_EQ(Applied(u"0.50", kReading), "0.5");
    EXPECT_EQ(Applied(u"1e3", kReading), "1000");
}

// --- Decimals of another parameter ---

TEST_F(DecimalPoint, ReferenceHoldsTheDecimals) {
    const Case cases[] = {{u"1", u"1234", kReading, "123.4"},
                          {u"3", u"5", kReading, "0.005"},
                          {u"0", u"1234.5", kReading, "1234.5"},
                          {u"4", u"1", kWriting, "10000.0000"},
                          {u"2", u"12.34", kWriting, "1234.00"}};
    for (const Case& c : cases) {
        for (const Text& name : {Text(u"显示小数点"), Text(u"虚拟"), Text(u"小数点位置"), Text(u"虚拟量")}) {
            SetDecimals(u"0010");
            SetReference(7, name, u"0010", c.decimals);
            EXPECT_EQ(Applied(c.value, c.divide), c.result) << ToUtf8(name) << ToUtf8(c.decimals);
        }
    }
}

TEST_F(DecimalPoint, AddressOfAReferenceIsComparedAsANumber) {
    SetDecimals(u"1F");
    SetReference(7, u"小数点", u"001f", u"2");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");
}

TEST_F(DecimalPoint, ColumnFiveIsReadAsAnAddressFirst) {
    SetDecimals(u"2");
    SetReference(7, u"小数点", u"0002", u"3");
    EXPECT_EQ(Applied(u"1234", kReading), "1.234");
}

TEST_F(DecimalPoint, ReferenceOfFiveOrMoreLeavesTheNumberUnscaled) {
    SetDecimals(u"0010");
    SetReference(7, u"小数点", u"0010", u"5");
    EXPECT_EQ(Applied(u"1234", kReading), "1234");
    EXPECT_EQ(Applied(u"012.50", kReading), "12.5");  // but as a number's text
    SetReference(7, u"小数点", u"0010", u"200");
    EXPECT_EQ(Applied(u"12.5", kWriting), "12.5");
}

TEST_F(DecimalPoint, FractionOfAReferenceBelowFiveIsRounded) {
    SetDecimals(u"0010");
    SetReference(7, u"小数点", u"0010", u"1.6");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");
}

TEST_F(DecimalPoint, RowOfAnotherNameIsNoReferenceAndColumnFiveIsTakenDirectly) {
    SetDecimals(u"0010");
    SetReference(7, u"报警值", u"0010", u"3");
    EXPECT_EQ(Applied(u"1234", kReading), "1234");  // sixteen decimals
    SetDecimals(u"0002");
    SetReference(7, u"报警值", u"0002", u"3");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");
}

TEST_F(DecimalPoint, FirstRowWithAValueAtTheAddressDecidesAlone) {
    SetDecimals(u"0002");
    SetReference(7, u"报警值", u"0002", u"3");
    SetReference(8, u"小数点", u"0002", u"1");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");  // row 7: taken directly, row 8 is not looked at
}

TEST_F(DecimalPoint, ReferenceThatIsNotReadYetIsPassedOver) {
    SetDecimals(u"0002");
    SetReference(7, u"小数点", u"0002", u"");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");
    SetReference(8, u"小数点", u"0002", u"1");
    EXPECT_EQ(Applied(u"1234", kReading), "123.4");
}

TEST_F(DecimalPoint, ReferenceMayStandInTheFirstOrTheLastRow) {
    SetDecimals(u"0010");
    SetReference(14, u"小数点", u"0010", u"1");
    EXPECT_EQ(Applied(u"1234", kReading), "123.4");
    SetReference(1, u"小数点", u"0010", u"3");
    EXPECT_EQ(Applied(u"1234", kReading), "1.234");
}

TEST_F(DecimalPoint, HeadingsAreNoReferenceAndDoNotEndTheSearch) {
    SetDecimals(u"0002");
    SetReference(0, u"小数点", u"0002", u"1");
    EXPECT_EQ(Applied(u"1234", kReading), "12.34");
    SetReference(7, u"小数点", u"0002", u"3");
    EXPECT_EQ(Applied(u"1234", kReading), "1.234");
}

// --- The grid's redraw ---

TEST_F(DecimalPoint, RedrawIsOnAfterwards) {
    SetDecimals(u"2");
    grid.Redraw = false;
    Applied(u"1234", kReading);
    EXPECT_TRUE(grid.Redraw);
}

TEST_F(DecimalPoint, EmptyValueStaysAndTouchesNoRedraw) {
    SetDecimals(u"2");
    grid.Redraw = false;
    EXPECT_EQ(Applied(u"", kReading), "");
    EXPECT_FALSE(grid.Redraw);
}

TEST_F(DecimalPoint, FailureLeavesTheRedrawOff) {
    SetDecimals(u"2");
    EXPECT_EQ(ErrorOfApplying(u"abc"), 13);
    EXPECT_FALSE(grid.Redraw);
}

TEST_F(DecimalPoint, NamedRowOfDecimalsIsTheFirstAtTheAddress) {
    SetDecimals(u"0020");
    EXPECT_EQ(NamedDecimalsRow(grid, 2), 0);
    SetReference(5, u"小数点位置", u"0020", u"");
    EXPECT_EQ(NamedDecimalsRow(grid, 2), 5);
    SetReference(4, u"报警值", u"20", u"1");
    EXPECT_EQ(NamedDecimalsRow(grid, 2), 0);
    SetReference(4, u"虚拟位", u"20", u"1");
    EXPECT_EQ(NamedDecimalsRow(grid, 2), 4);
    SetDecimals(u"0");
    EXPECT_EQ(NamedDecimalsRow(grid, 2), 0);
}

TEST_F(DecimalPoint, WithZeroInColumnFiveAValueStaysAsItIs) {
    SetDecimals(u"0");
    EXPECT_EQ(ToUtf8(InShownDecimals(grid, 2, u"1234.0", kReading)), "1234.0");
    SetDecimals(u"2");
    grid.Redraw = false;
    EXPECT_EQ(ToUtf8(InShownDecimals(grid, 2, u"1234", kReading)), "12.34");
    EXPECT_EQ(ToUtf8(InShownDecimals(grid, 2, u"12.34", kWriting)), "1234.00");
    EXPECT_FALSE(grid.Redraw);
}

TEST_F(DecimalPoint, RowsOfAProtocolTakeTheirDecimalsFromTheGridOfTheConversation) {
    Conversation talk;
    talk.ParameterGrid().SetSize(3, 11);
    talk.ParameterGrid().SetCell(2, 5, u"2");
    EXPECT_EQ(ToUtf8(DigitsInShownDecimals(talk, 2, u"1234")), "12.34");
    EXPECT_EQ(ToUtf8(EntryInDigits(talk, 2, u"12.34")), "1234.00");
}

TEST_F(DecimalPoint, NoCellIsWritten) {
    SetDecimals(u"2");
    const auto generation = grid.Generation();
    Applied(u"1234", kReading);
    EXPECT_EQ(grid.Generation(), generation);
}

// --- Failures ---

TEST_F(DecimalPoint, ValueThatIsNoNumberRaisesError13) {
    SetDecimals(u"2");
    EXPECT_EQ(ErrorOfApplying(u"abc"), 13);
    EXPECT_EQ(ErrorOfApplying(u"1,5", kWriting), 13);
    SetDecimals(u"0010");
    SetReference(7, u"小数点", u"0010", u"7");
    EXPECT_EQ(ErrorOfApplying(u"abc"), 13);
}

TEST_F(DecimalPoint, ReferenceThatIsNoNumberRaisesError13) {
    SetDecimals(u"0010");
    SetReference(7, u"小数点", u"0010", u"--");
    EXPECT_EQ(ErrorOfApplying(u"1234"), 13);
}

TEST_F(DecimalPoint, NegativeDecimalsRaiseError9) {
    SetDecimals(u"0010");
    SetReference(7, u"小数点", u"0010", u"-1");
    EXPECT_EQ(ErrorOfApplying(u"1234"), 9);
    SetDecimals(u"FFFF");  // -1
    EXPECT_EQ(ErrorOfApplying(u"1234"), 9);
}

TEST_F(DecimalPoint, ValueBeyondADoubleRaisesError6) {
    SetDecimals(u"4");
    EXPECT_EQ(ErrorOfApplying(u"1E307", kWriting), 6);
}

}  // namespace
}  // namespace commtest
