#include "commissioning/write_check.h"

#include <gtest/gtest.h>

#include "runtime/number.h"
#include "support/bench_session.h"

namespace commtest {
namespace {

using testing::BenchSession;
using testing::TestParameter;

// One instrument, chosen; rows 1 to 5 are commands, the parameters begin at row 6.
struct CheckBench : BenchSession {
    CheckBench(int code, const Text& format, const std::vector<TestParameter>& parameters,
               const Text& name = u"仪表") {
        const Text protocol(Form().protocols.Of(code).name);
        std::vector<TestParameter> rows(5, {u"命令", u"0000", u"3", u"W", u"0"});
        rows.insert(rows.end(), parameters.begin(), parameters.end());
        Add(name, protocol, WholeText(code) + format + u"00", rows);
        Choose(protocol, name);
    }
    void SetLimits(int row, const Text& lower, const Text& upper) {
        Form().Limits[static_cast<std::size_t>(row)] = {lower, upper};
    }
    WriteCheck Check(int row, const Text& value) { return CheckWrite(Form(), row, value); }
    // What would arrive if it does not fit, "fits" if it does.
    std::string Fit(int row, const Text& value) {
        const WriteCheck check = Check(row, value);
        if (check.objection && *check.objection != WriteObjection::DoesNotFit) return "another objection";
        return check.objection ? ToUtf8(check.arrives) : "fits";
    }
};

// Row 7 of two bytes has the decimals that row 6 holds.
struct NativeCheckBench : CheckBench {
    NativeCheckBench()
        : CheckBench(11, u"01",
                     {{u"小数点", u"0030", u"1", u"RW", u"0"},
                      {u"上限", u"0032", u"2", u"RW", u"0030"},
                      {u"流量", u"0034", u"4", u"RW", u"2"},
                      {u"测量值", u"0036", u"2", u"R", u"0"},
                      {u"字节", u"0038", u"1", u"RW", u"0"}}) {
        SetDecimals(u"1");
    }
    void SetDecimals(const Text& decimals) { Form().ParameterGrid().SetCell(6, column::kValue, decimals); }
};

TEST(WriteCheck, RowIsLookedAtFirst) {
    NativeCheckBench bench;
    EXPECT_EQ(bench.Check(0, u"1").objection, WriteObjection::NoSuchRow);
    EXPECT_EQ(bench.Check(99, u"1").objection, WriteObjection::NoSuchRow);
    EXPECT_EQ(bench.Check(11, u"x").objection, WriteObjection::NoSuchRow);
    EXPECT_EQ(bench.Check(9, u"x").objection, WriteObjection::NoWriteAttribute);
    EXPECT_EQ(bench.Check(7, u"x").objection, WriteObjection::NoNumber);
    EXPECT_FALSE(bench.Check(7, u"12.3").objection);
}

TEST(WriteCheck, ProtocolWithoutAWriteWritesNothing) {
    CheckBench bench(33, u"01", {{u"上限", u"0010", u"2", u"RW", u"0"}});
    const WriteCheck check = bench.Check(6, u"1");
    EXPECT_EQ(check.objection, WriteObjection::ProtocolWritesNothing);
    EXPECT_FALSE(check.CanLeave());
}

// 20000 with one decimal is 200000, of which the low 15 bits are 3392.
TEST(WriteCheck, ValueThatTwoBytesCannotHoldIsToldWithWhatWouldArrive) {
    NativeCheckBench bench;
    const WriteCheck check = bench.Check(7, u"20000");
    EXPECT_EQ(check.objection, WriteObjection::DoesNotFit);
    EXPECT_EQ(ToUtf8(check.arrives), "339.2");
    EXPECT_EQ(ToUtf8(check.code), "400D");
    EXPECT_EQ(check.reason, LossReason::BeyondSignMagnitude);
    EXPECT_TRUE(check.CanLeave());
}

TEST(WriteCheck, ValueWithMoreDecimalsThanItsRowDoesNotFit) {
    NativeCheckBench bench;
    EXPECT_EQ(bench.Fit(7, u"12.34"), "12.3");
    EXPECT_EQ(bench.Fit(7, u"12.3"), "fits");
    EXPECT_EQ(bench.Fit(7, u"-12.3"), "fits");
    EXPECT_EQ(bench.Fit(10, u"300"), "44");
    EXPECT_EQ(bench.Fit(10, u"255"), "fits");
}

// A float keeps seven digits.
TEST(WriteCheck, FloatOfFourBytesFitsToItsPrecision) {
    NativeCheckBench bench;
    EXPECT_EQ(bench.Fit(8, u"123.45"), "fits");
    EXPECT_EQ(bench.Fit(8, u"0.1"), "fits");
}

TEST(WriteCheck, TwosComplementKeepsSixteenBits) {
    CheckBench bench(31, u"01", {{u"上限", u"0010", u"2", u"RW", u"0"}});
    EXPECT_EQ(bench.Fit(6, u"70000"), "4464");
    EXPECT_EQ(bench.Fit(6, u"-1"), "fits");
    EXPECT_EQ(ToUtf8(bench.Check(6, u"-1").code), "FFFF");
}

TEST(WriteCheck, FlowMeterTakesASingle) {
    CheckBench bench(35, u"03", {{u"系数", u"0010", u"4", u"RW", u"0"}});
    EXPECT_EQ(bench.Fit(6, u"100"), "fits");
    EXPECT_EQ(ToUtf8(bench.Check(6, u"100").code), "42C80000");
}

// Of the word 012C the low byte counts; of a ratio the low bytes of both.
TEST(WriteCheck, AsciiRowsHoldTheLowBytesOfTheirWords) {
    CheckBench bench(21, u"01",
                     {{u"亮度", u"0010", u"2", u"RW", u"0"}, {u"电压变比", u"0110", u"4", u"RW", u"0"}});
    EXPECT_EQ(bench.Fit(6, u"300"), "44");
    EXPECT_EQ(bench.Fit(6, u"255"), "fits");
    EXPECT_EQ(bench.Fit(7, u"4660"), "fits");
    EXPECT_EQ(bench.Fit(7, u"70000"), "4,464");
}

TEST(WriteCheck, ValueThatNoCodeTakesIsUncodable) {
    NativeCheckBench bench;
    const WriteCheck check = bench.Check(7, u"9999999999");
    EXPECT_EQ(check.objection, WriteObjection::Uncodable);
    EXPECT_EQ(check.error, 6);
    EXPECT_FALSE(check.CanLeave());
}

TEST(WriteCheck, ValueAboveItsLimitMayNotFitEither) {
    NativeCheckBench bench;
    bench.SetLimits(7, u"-1999", u"9999");
    EXPECT_TRUE(bench.Check(7, u"1000").fits);
    const WriteCheck check = bench.Check(7, u"20000");
    EXPECT_EQ(check.objection, WriteObjection::AboveLimit);
    EXPECT_FALSE(check.fits);
    EXPECT_EQ(ToUtf8(check.arrives), "339.2");
    EXPECT_EQ(check.reason, LossReason::BeyondSignMagnitude);
}

TEST(ObjectionToEntry, IsThatToTheValue) {
    NativeCheckBench bench;
    EXPECT_FALSE(ObjectionToEntry(bench.Form(), 7, u"12.3"));
    EXPECT_EQ(ObjectionToEntry(bench.Form(), 7, u"x")->objection, WriteObjection::NoNumber);
    EXPECT_EQ(ObjectionToEntry(bench.Form(), 7, u"20000")->objection, WriteObjection::DoesNotFit);
    EXPECT_FALSE(ObjectionToEntry(bench.Form(), 9, u"x")) << "the row takes no writes";
}

TEST(ObjectionToEntry, WithoutItsDecimalsOnlyANumberIsAskedFor) {
    NativeCheckBench bench;
    bench.SetLimits(7, u"-1999", u"9999");
    EXPECT_TRUE(KnowsDecimals(bench.Form(), 7));
    bench.SetDecimals(u"");
    EXPECT_FALSE(KnowsDecimals(bench.Form(), 7));
    EXPECT_TRUE(KnowsDecimals(bench.Form(), 8));
    EXPECT_FALSE(ObjectionToEntry(bench.Form(), 7, u"20000"));
    EXPECT_EQ(ObjectionToEntry(bench.Form(), 7, u"x")->objection, WriteObjection::NoNumber);
}

TEST(ObjectionToEntry, ProtocolThatWritesNothingDealsWithItItself) {
    CheckBench bench(33, u"01", {{u"上限", u"0010", u"2", u"RW", u"0"}});
    EXPECT_FALSE(ObjectionToEntry(bench.Form(), 6, u"x"));
}

TEST(WriteCheck, LimitsAreTheInstrumentsDigits) {
    NativeCheckBench bench;
    bench.SetLimits(7, u"-1999", u"9999");
    EXPECT_FALSE(bench.Check(7, u"999.9").objection);
    EXPECT_FALSE(bench.Check(7, u"-199.9").objection);
    const WriteCheck above = bench.Check(7, u"1000");
    EXPECT_EQ(above.objection, WriteObjection::AboveLimit);
    EXPECT_EQ(ToUtf8(above.limit), "999.9");
    EXPECT_TRUE(above.CanLeave());
    const WriteCheck below = bench.Check(7, u"-200");
    EXPECT_EQ(below.objection, WriteObjection::BelowLimit);
    EXPECT_EQ(ToUtf8(below.limit), "-199.9");
    bench.SetDecimals(u"0");
    EXPECT_FALSE(bench.Check(7, u"1000").objection);
}

TEST(WriteCheck, EmptyLimitBoundsNothing) {
    NativeCheckBench bench;
    bench.SetLimits(7, u"", u"");
    EXPECT_FALSE(bench.Check(7, u"3276.7").objection);
    bench.SetLimits(7, u" ", u"100");
    EXPECT_FALSE(bench.Check(7, u"-3276.7").objection);
    EXPECT_EQ(bench.Check(7, u"10.1").objection, WriteObjection::AboveLimit);
}

TEST(WriteCheck, LimitThatIsNoNumberBoundsNothing) {
    NativeCheckBench bench;
    bench.SetLimits(7, u"低", u"高");
    EXPECT_FALSE(LimitsOf(bench.Form(), 7).lower);
    EXPECT_FALSE(bench.Check(7, u"100").objection);
}

TEST(WriteCheck, AsciiLimitsHaveTheRowsOwnDecimals) {
    CheckBench bench(21, u"01", {{u"上限", u"0010", u"2", u"RW", u"1"}});
    bench.SetLimits(6, u"0", u"255");
    EXPECT_EQ(ToUtf8(*LimitsOf(bench.Form(), 6).upper), "25.5");
    EXPECT_EQ(bench.Check(6, u"25.6").objection, WriteObjection::AboveLimit);
    EXPECT_FALSE(bench.Check(6, u"25.5").objection);
}

TEST(WriteCheck, LimitsOfTheCatalogueComeWithTheSelection) {
    NativeCheckBench bench;
    ASSERT_EQ(bench.Form().Limits.size(), 11U);
    EXPECT_EQ(ToUtf8(bench.Form().Limits[7].upper), "");
}

TEST(WriteCheck, CommandHasNoValueThatCouldNotFit) {
    NativeCheckBench bench;
    EXPECT_FALSE(bench.Check(1, u"123456").objection);
}

TEST(WriteCheck, ConstantOfAPhaseInstrumentSaysNothingOfWhatArrives) {
    CheckBench bench(31, u"03", {{u"变比", u"0010", u"4", u"RW", u"0"}}, u"三相表");
    const WriteCheck check = bench.Check(6, u"100");
    EXPECT_FALSE(check.objection);
    EXPECT_EQ(ToUtf8(check.arrives), "");
}

TEST(ShowSameNumber, GroupsOfDigitsDoNotCount) {
    EXPECT_TRUE(ShowSameNumber(u"4660", u"4,660", u"4"));
    EXPECT_TRUE(ShowSameNumber(u"1234567", u"1,234,567", u"2"));
    EXPECT_TRUE(ShowSameNumber(u"-100", u"-100.0", u"2"));
    EXPECT_FALSE(ShowSameNumber(u"4660", u"4661", u"2"));
    EXPECT_FALSE(ShowSameNumber(u"1", u"", u"2"));
}

TEST(ShowSameNumber, FloatIsComparedToItsPrecision) {
    EXPECT_TRUE(ShowSameNumber(u"123.45", u"123.45001", u"4"));
    EXPECT_FALSE(ShowSameNumber(u"123.45", u"123.46", u"4"));
    EXPECT_FALSE(ShowSameNumber(u"123.45", u"123.45001", u"2"));
}

}  // namespace
}  // namespace commtest
