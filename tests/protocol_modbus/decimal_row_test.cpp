#include "protocol_modbus/decimal_row.h"

#include <gtest/gtest.h>

#include "controls/grid.h"
#include "session/grid_rows.h"

namespace commtest {
namespace {

constexpr bool kReading = true;  // divide
constexpr bool kWriting = false;
constexpr int kRow = 8;

// A grid whose row 8 takes its decimals from the address 0020; nothing stands there at first.
class DecimalRow : public ::testing::Test {
  protected:
    DecimalRow() {
        grid.SetSize(15, column::kCount);
        for (int row = 1; row < grid.Rows(); ++row) grid.SetCell(row, column::kAddress, u"0010");
        grid.SetCell(kRow, column::kDecimals, u"0020");
    }
    void SetReference(int row, const Text& decimals, const Text& address = u"0020") {
        grid.SetCell(row, column::kAddress, address);
        grid.SetCell(row, column::kValue, decimals);
    }
    std::string Scaled(Text value, bool divide = kReading) {
        ScaleByDecimalRow(grid, kRow, value, divide);
        return ToUtf8(value);
    }

    Grid grid;
};

struct Case {
    const char16_t* decimals;
    const char16_t* value;
    bool divide;
    const char* result;
};

TEST_F(DecimalRow, ReferencedDecimalsScaleAndFormat) {
    const Case cases[] = {{u"0", u"1234", kReading, "1234"},
                          {u"1", u"1234", kReading, "123.4"},
                          {u"2", u"1234", kReading, "12.34"},
                          {u"3", u"1234", kReading, "1.234"},
                          {u"4", u"1234", kReading, "0.1234"},
                          {u"2", u"1200", kReading, "12.00"},
                          {u"2", u"5", kReading, "0.05"},
                          {u"2", u"0", kReading, "0.00"},
                          {u"1", u"-5", kReading, "-0.5"},
                          {u"2", u"-1234", kReading, "-12.34"},
                          {u"4", u"100.5", kReading, "0.0101"},
                          {u"0", u"007.50", kReading, "7.5"},
                          {u"0", u"12.34", kWriting, "12.34"},
                          {u"1", u"12.34", kWriting, "123.4"},
                          {u"2", u"12.34", kWriting, "1234.00"},
                          {u"2", u"-.5", kWriting, "-50.00"},
                          {u"4", u"12.34", kWriting, "123400.0000"},
                          {u"3", u".0001", kWriting, "0.100"},
                          {u" 2 ", u"1234", kReading, "12.34"},
                          {u"1E00", u"1234", kReading, "123.4"},
                          {u"2", u"1E05", kReading, "1000.00"}};
    SetReference(3, u"");
    for (const Case& row : cases) {
        grid.SetCell(3, column::kValue, row.decimals);
        EXPECT_EQ(Scaled(row.value, row.divide), row.result) << ToUtf8(row.decimals) << ToUtf8(row.value);
    }
}

// The power takes the fraction as it is, the shown digits are its rounding, half to even.
TEST_F(DecimalRow, DecimalsMayBeAFraction) {
    const Case cases[] = {{u"1.5", u"1000", kReading, "31.62"},
                          {u"2.5", u"1000", kReading, "3.16"},
                          {u"0.5", u"1000", kReading, "316.227766016838"},
                          {u"-0.5", u"100", kReading, "316.227766016838"},
                          {u"-0.7", u"100", kReading, "501.187233627272"},
                          {u"4.5", u"100000", kReading, "3.1623"},
                          {u"4.6", u"100000", kReading, "2.51189"},
                          {u"1.5", u"10", kWriting, "316.23"}};
    SetReference(3, u"");
    for (const Case& row : cases) {
        grid.SetCell(3, column::kValue, row.decimals);
        EXPECT_EQ(Scaled(row.value, row.divide), row.result) << ToUtf8(row.decimals);
    }
}

TEST_F(DecimalRow, DecimalsOutOfReachLeaveTheValue) {
    SetReference(3, u"");
    for (const char16_t* decimals : {u"", u"字", u"-1", u"-2", u"5", u"6", u"1E05", u"2位"}) {
        grid.SetCell(3, column::kValue, decimals);
        EXPECT_EQ(Scaled(u"1234"), "1234") << ToUtf8(decimals);
        EXPECT_EQ(Scaled(u"007.50", kWriting), "007.50") << ToUtf8(decimals);
    }
}

TEST_F(DecimalRow, WithoutAReferenceTheValueStays) {
    EXPECT_EQ(Scaled(u"1234"), "1234");
    EXPECT_EQ(Scaled(u"007.50"), "007.50");
}

TEST_F(DecimalRow, LeadingPointGetsItsZeroWhateverElseHappens) {
    EXPECT_EQ(Scaled(u".5"), "0.5");
    EXPECT_EQ(Scaled(u"-.5"), "-0.5");
    EXPECT_EQ(Scaled(u".x"), "0.x");
    SetReference(3, u"9");
    EXPECT_EQ(Scaled(u"-.5"), "-0.5");
}

TEST_F(DecimalRow, FirstRowOfTheAddressCounts) {
    SetReference(4, u"1");
    SetReference(6, u"2");
    EXPECT_EQ(Scaled(u"1234"), "123.4");
    grid.SetCell(4, column::kValue, u"");
    EXPECT_EQ(Scaled(u"1234"), "1234") << "an empty one too";
}

TEST_F(DecimalRow, WholeNumbersOfAnyLengthGetTheirPoint) {
    SetReference(3, u"3");
    const char16_t* const values[] = {u"7", u"-7", u"1000", u"-123456", u"999999999999999", u"-0", u"010"};
    std::string all;
    for (const char16_t* value : values) all += Scaled(value) + " ";
    EXPECT_EQ(all, "0.007 -0.007 1.000 -123.456 999999999999.999 0.000 0.010 ");
}

TEST_F(DecimalRow, RowsOfOneReplyFollowTheirOwnReferences) {
    constexpr int kOther = 9;
    grid.SetCell(kOther, column::kDecimals, u"0030");
    SetReference(3, u"2");
    SetReference(4, u"1", u"0030");
    DecimalRows rows(grid);
    const auto scaled = [&rows](int row) { return ToUtf8(rows.Scaled(row, u"1234", kReading)); };
    EXPECT_EQ(scaled(kRow), "12.34");
    EXPECT_EQ(scaled(kOther), "123.4");
    EXPECT_EQ(scaled(kRow), "12.34");
    grid.SetCell(3, column::kValue, u"3");
    EXPECT_EQ(scaled(kRow), "1.234") << "decimals that the reply brings";
}

TEST_F(DecimalRow, EveryRowBelowTheHeadingsIsSearched) {
    for (const int row : {1, 5, kRow, LastRow(grid)}) {
        SetReference(row, u"2");
        EXPECT_EQ(Scaled(u"1234"), "12.34") << row;
        SetReference(row, u"", u"0010");
    }
    SetReference(0, u"2");
    EXPECT_EQ(Scaled(u"1234"), "1234");
}

TEST_F(DecimalRow, RowOfAttributeSIsNoReference) {
    SetReference(4, u"1");
    SetReference(6, u"2");
    grid.SetCell(4, column::kAttribute, u"S");
    EXPECT_EQ(Scaled(u"1234"), "12.34");
    grid.SetCell(6, column::kAttribute, u"S");
    EXPECT_EQ(Scaled(u"1234"), "1234");
    grid.SetCell(6, column::kAttribute, u"RS");
    EXPECT_EQ(Scaled(u"1234"), "12.34");
}

TEST_F(DecimalRow, AddressesAreComparedAsNumbers) {
    struct Row {
        const char16_t* wanted;
        const char16_t* address;
        const char* result;
    };
    for (const Row& row :
         {Row{u"20", u"0020", "12.34"}, Row{u"0020", u"20", "12.34"}, Row{u"00af", u"AF", "12.34"},
          Row{u"00020", u"0020", "12.34"}, Row{u"", u"0000", "12.34"}, Row{u"x", u"0000", "12.34"},
          Row{u"00", u"", "12.34"}, Row{u"0020", u"0021", "1234"}, Row{u"0020", u"4020", "1234"}}) {
        grid.SetCell(kRow, column::kDecimals, row.wanted);
        SetReference(3, u"2", row.address);
        EXPECT_EQ(Scaled(u"1234"), row.result) << ToUtf8(row.wanted) << " " << ToUtf8(row.address);
    }
}

TEST_F(DecimalRow, ValueThatIsNoNumberStays) {
    SetReference(3, u"2");
    for (const char16_t* value : {u"字", u"12,5", u"--"}) EXPECT_EQ(Scaled(value), ToUtf8(value));
}

TEST_F(DecimalRow, EmptyValueReturnsAtOnce) {
    SetReference(3, u"2");
    grid.Redraw = false;
    EXPECT_EQ(Scaled(u""), "");
    EXPECT_FALSE(grid.Redraw);
}

TEST_F(DecimalRow, GridIsRedrawnAfterwards) {
    grid.Redraw = false;
    Scaled(u"1234");
    EXPECT_TRUE(grid.Redraw);
    grid.Redraw = false;
    SetReference(3, u"2");
    Scaled(u"字");
    EXPECT_TRUE(grid.Redraw);
}

// The product leaves the range and is passed over; the digits behind the point come all the same.
TEST_F(DecimalRow, OverflowIsPassedOver) {
    SetReference(3, u"4");
    EXPECT_EQ(Scaled(u"1E308", kWriting), "1" + std::string(308, '0') + ".0000");
}

TEST_F(DecimalRow, RowOutsideTheGridLeavesTheValue) {
    SetReference(3, u"2");
    Text value = u"1234";
    ScaleByDecimalRow(grid, 99, value, kReading);
    EXPECT_EQ(ToUtf8(value), "1234");
}

}  // namespace
}  // namespace commtest
