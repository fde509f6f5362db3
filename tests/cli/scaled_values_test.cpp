#include "cli/scaled_values.h"

#include <gtest/gtest.h>

#include "session/grid_rows.h"
#include "session/main_form.h"
#include "support/form_bench.h"

namespace commtest {

namespace {

// Row 1 refers to the decimals in row 2, row 3 has its own; row 4 refers to decimals that no row holds.
class ScaledValuesTest : public ::testing::Test {
  protected:
    ScaledValuesTest() {
        form.ProtocolCode = 11;
        SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
        AddRow(1, u"测量值", u"0010", u"0020");
        AddRow(2, u"小数点位置", u"0020", u"0");
        AddRow(3, u"峰值", u"0030", u"1");
        AddRow(4, u"谷值", u"0040", u"0099");
    }

    void AddRow(int row, const Text& name, const Text& address, const Text& decimals) {
        form.ParameterGrid().SetCell(row, column::kName, name);
        form.ParameterGrid().SetCell(row, column::kAddress, address);
        form.ParameterGrid().SetCell(row, column::kDecimals, decimals);
    }

    // As the core does: it scales by what it knows at this moment.
    void Reads(std::initializer_list<std::tuple<int, Text, Text>> rows) {
        Outcome outcome;
        for (const auto& [row, value, shown] : rows) {
            form.ParameterGrid().SetCell(row, column::kValue, value);
            form.ParameterGrid().SetCell(row, column::kScaledValue, shown);
            outcome.rows.Add(row);
        }
        scaled.Note(form, outcome);
    }

    std::string Shown(int row) const { return ToUtf8(scaled.Of(form, row)); }

    testing::FormBench bench;
    MainForm& form = bench.form;
    ScaledValues scaled;
};

TEST_F(ScaledValuesTest, ValueIsUndecidedUntilItsDecimalsAreRead) {
    Reads({{1, u"9894", u"9894"}});
    EXPECT_EQ(Shown(1), "未定");
    Reads({{2, u"2", u"2"}});
    EXPECT_EQ(Shown(1), "98.94");
}

TEST_F(ScaledValuesTest, ValueReadBehindItsDecimalsIsTheSessions) {
    Reads({{2, u"2", u"2"}});
    Reads({{1, u"9894", u"of the session"}});
    EXPECT_EQ(Shown(1), "of the session");
}

TEST_F(ScaledValuesTest, DecimalsOfTheSameReplyComeTooLate) {
    Reads({{1, u"9894", u"9894"}, {2, u"2", u"2"}});
    EXPECT_EQ(Shown(1), "98.94");
}

TEST_F(ScaledValuesTest, EarlyValueThatIsReadAgainIsTheSessions) {
    Reads({{1, u"9894", u"9894"}});
    Reads({{2, u"2", u"2"}});
    Reads({{1, u"5", u"of the session"}});
    EXPECT_EQ(Shown(1), "of the session");
}

TEST_F(ScaledValuesTest, RowWithDecimalsOfItsOwnIsDecidedAtOnce) {
    Reads({{3, u"77", u"7.7"}});
    EXPECT_EQ(Shown(3), "7.7");
}

TEST_F(ScaledValuesTest, RowThatWasNeverReadShowsItsCell) { EXPECT_EQ(Shown(1), ""); }

}  // namespace

}  // namespace commtest
