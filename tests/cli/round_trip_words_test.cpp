#include "cli/round_trip_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace commtest {

namespace {

constexpr Conversion kToBcd = {5, Direction::ToCode};
constexpr Conversion kFromBcd = {5, Direction::ToValue};

TEST(WordsOfReason, EachHasItsOwn) {
    const struct {
        LossReason reason;
        const char* words;
    } rows[] = {
        {LossReason::ReadsOnly, "只能读出，数值不能写成代码"},
        {LossReason::NotConverted, "不作换算，原样输出"},
        {LossReason::Uneven, "格式 12 写原码、读补码，负数读不回来"},
        {LossReason::BeyondSignMagnitude, "超出范围 -32767 到 32767，高位丢失"},
        {LossReason::BeyondTwosComplement, "超出范围 -32768 到 32767，高位丢失"},
        {LossReason::BeyondOneByte, "超出范围 0 到 255，读出时没有负数"},
        {LossReason::BeyondExponent, "超出自定义浮点数的阶码范围"},
        {LossReason::FractionRounded, "没有小数位，正数四舍六入、五取偶，负数舍去小数"},
        {LossReason::FractionFloored, "没有小数位，取不大于它的整数"},
        {LossReason::NegativeZero, "负零按 0 写出，负号丢失"},
        {LossReason::LongCode, "代码多于 8 个字符，读出时只取前 8 个"},
        {LossReason::LongReading, "读数只取前 9 个字符，后面的数位和指数丢失"},
        {LossReason::CustomFloatWidth, "尾数只有 24 位，读数只取前 9 个字符、小数点后 8 位"},
        {LossReason::SingleWidth, "单精度只有约 7 位有效数字，读数只取前 9 个字符、小数点后 8 位"},
        {LossReason::BcdBelowOne, "0 到 1 之间的数都写成 0"},
        {LossReason::BcdManyDecimals, "小数多于 7 位，小数位数占用了符号位"},
        {LossReason::BcdSignIsLetter, "负数有两位以上小数时第 2 个字符是字母，读不出"},
        {LossReason::BcdOtherDigits, "后 8 个字符应是 0 到 9"},
        {LossReason::BcdManyDigits, "多于 8 位数字，前面的丢失"},
        {LossReason::BcdDigitsOfText, "数字逐字取自输入的文字"},
        {LossReason::LeftAsItIs, "格式 0 只读 2、4 或 8 个字符的代码，其他的原样输出"},
        {LossReason::WrittenInTwoCharacters, "写出的代码是 2 个字符"},
        {LossReason::WrittenInFourCharacters, "写出的代码是 4 个字符"},
        {LossReason::WrittenInEightCharacters, "写出的代码是 8 个字符"},
        {LossReason::WrittenInTenCharacters, "写出的代码是 10 个字符"},
        {LossReason::OtherCharacters, "代码中有十六进制数字以外的字符"},
        {LossReason::ReadingIsNoNumber, "读数不完整，不是数值"},
        {LossReason::PowerOfTwoBelowHalf, "小于 0.5 的二的整次幂写成 9 个字符"},
        {LossReason::ZeroHasOneCode, "零总是写成 00000000"},
        {LossReason::ReadAsZero, "读数只到小数点后 8 位，截成了 0"},
        {LossReason::Normalised, "读数只取前 9 个字符、小数点后 8 位，写出时重新规格化"},
        {LossReason::BcdBeginsWithZero, "第 1 个字符总是写成 0"},
    };
    for (const auto& row : rows) EXPECT_EQ(ToUtf8(WordsOf(row.reason)), row.words);
}

TEST(WordsOfLoss, ValueThatArrivesDifferently) {
    const Loss loss = {LossKind::OtherArrives, LossReason::BcdManyDigits, {u"123456789", u"00", u"4"}};
    EXPECT_EQ(ToUtf8(WordsOf(loss, kToBcd)), "代码 00 读回为 4，不是 123456789：多于 8 位数字，前面的丢失");
    const Loss withoutReason = {LossKind::OtherArrives, std::nullopt, {u"1", u"00", u"4"}};
    EXPECT_EQ(ToUtf8(WordsOf(withoutReason, kToBcd)), "代码 00 读回为 4，不是 1");
}

TEST(WordsOfLoss, ValueThatDoesNotArrive) {
    const Loss loss = {LossKind::NoWayBack, LossReason::BcdOtherDigits, {u"+5", u"00+5", std::nullopt}};
    EXPECT_EQ(ToUtf8(WordsOf(loss, kToBcd)), "代码 00+5 读不出数值：后 8 个字符应是 0 到 9");
}

TEST(WordsOfLoss, ValueThatArrivesInSpiteOfItsCode) {
    const Loss noBcd = {LossKind::SameArrives, LossReason::BcdOtherDigits, {u"1e3", u"001e3", u"1000"}};
    EXPECT_EQ(ToUtf8(WordsOf(noBcd, kToBcd)), "代码 001e3 不是 BCD 码：后 8 个字符应是 0 到 9");
    const Loss zero = {LossKind::SameArrives, LossReason::NegativeZero, {u"-0", u"00", u"0"}};
    EXPECT_EQ(ToUtf8(WordsOf(zero, kToBcd)), "负零按 0 写出，负号丢失");
}

TEST(WordsOfLoss, CodeThatIsWrittenDifferentlyOrNotAtAll) {
    const Loss other = {LossKind::OtherArrives, LossReason::BcdBeginsWithZero, {u"97", u"97", u"0097"}};
    EXPECT_EQ(ToUtf8(WordsOf(other, kFromBcd)), "数值 97 写回为 0097，不是 97：第 1 个字符总是写成 0");
    const Loss none = {LossKind::NoWayBack, LossReason::ReadingIsNoNumber, {u"1.0E", u"64", std::nullopt}};
    EXPECT_EQ(ToUtf8(WordsOf(none, kFromBcd)), "数值 1.0E 写不成代码：读数不完整，不是数值");
}

TEST(WordsOfLoss, FormatIsNamedWhereItHasNoWayToACode) {
    const Loss loss = {LossKind::NoConversion, LossReason::ReadsOnly, {u"5", u"5", std::nullopt}};
    EXPECT_EQ(ToUtf8(WordsOf(loss, {9, Direction::ToCode})), "格式 9 只能读出，数值不能写成代码");
    EXPECT_EQ(ToUtf8(WordsOf(loss, {11, Direction::ToValue})), "格式 11 只能读出，数值不能写成代码");
}

TEST(WordsOfNotes, EachNoteIsASentence) {
    ConversionNotes notes;
    EXPECT_THAT(WordsOf(notes, kToBcd, u"5"), ::testing::IsEmpty());
    notes.loss = {LossKind::SameArrives, LossReason::NegativeZero, {u"-0", u"00", u"0"}};
    notes.explanation = ExplanationNote::ReadsOtherwise;
    notes.tool = {5, u"0.5"};
    EXPECT_THAT(WordsOf(notes, kToBcd, u"5"),
                ::testing::ElementsAre(u"负零按 0 写出，负号丢失", u"换算过程按另一种读法，与结果不符",
                                       u"校验码工具的“IEEE-754浮点数->数值”显示 0.5"));
    notes.explanation = ExplanationNote::IsOfCustomFloat;
    EXPECT_THAT(WordsOf(notes, kToBcd, u"41200000"),
                ::testing::Contains(u"换算过程是自定义浮点数的，不得出 41200000"));
}

}  // namespace

}  // namespace commtest
