#include "cli/round_trip_words.h"

#include "runtime/number.h"
#include "tools/tool_modes.h"

namespace commtest {

namespace {

Text Because(const std::optional<LossReason>& reason) {
    return reason ? Text(u"：").append(WordsOf(*reason)) : Text();
}

Text WordsOfLostValue(const Loss& loss) {
    const RoundTrip& trip = loss.trip;
    const Text code = u"代码 " + trip.code;
    if (loss.kind == LossKind::NoWayBack) return code + u" 读不出数值" + Because(loss.reason);
    if (loss.kind == LossKind::OtherArrives) {
        return code + u" 读回为 " + *trip.back + u"，不是 " + trip.value + Because(loss.reason);
    }
    if (loss.reason == LossReason::BcdOtherDigits) return code + u" 不是 BCD 码" + Because(loss.reason);
    return Text(WordsOf(LossReason::NegativeZero));
}

Text WordsOfLostCode(const Loss& loss) {
    const RoundTrip& trip = loss.trip;
    const Text value = u"数值 " + trip.value;
    if (loss.kind == LossKind::NoWayBack) return value + u" 写不成代码" + Because(loss.reason);
    return value + u" 写回为 " + *trip.back + u"，不是 " + trip.code + Because(loss.reason);
}

Text WordsOf(ExplanationNote note, const Text& result) {
    if (note == ExplanationNote::IsOfCustomFloat) return u"换算过程是自定义浮点数的，不得出 " + result;
    return u"换算过程按另一种读法，与结果不符";
}

Text WordsOf(const ToolNote& note) {
    return u"校验码工具的“" + Text(kToolModes[note.mode].caption) + u"”显示 " + note.shown;
}

}  // namespace

TextView WordsOf(LossReason reason) {
    switch (reason) {
        case LossReason::ReadsOnly: return u"只能读出，数值不能写成代码";
        case LossReason::NotConverted: return u"不作换算，原样输出";
        case LossReason::Uneven: return u"格式 12 写原码、读补码，负数读不回来";
        case LossReason::BeyondSignMagnitude: return u"超出范围 -32767 到 32767，高位丢失";
        case LossReason::BeyondTwosComplement: return u"超出范围 -32768 到 32767，高位丢失";
        case LossReason::BeyondOneByte: return u"超出范围 0 到 255，读出时没有负数";
        case LossReason::BeyondExponent: return u"超出自定义浮点数的阶码范围";
        case LossReason::FractionRounded: return u"没有小数位，正数四舍六入、五取偶，负数舍去小数";
        case LossReason::FractionFloored: return u"没有小数位，取不大于它的整数";
        case LossReason::NegativeZero: return u"负零按 0 写出，负号丢失";
        case LossReason::LongCode: return u"代码多于 8 个字符，读出时只取前 8 个";
        case LossReason::LongReading: return u"读数只取前 9 个字符，后面的数位和指数丢失";
        case LossReason::CustomFloatWidth: return u"尾数只有 24 位，读数只取前 9 个字符、小数点后 8 位";
        case LossReason::SingleWidth: return u"单精度只有约 7 位有效数字，读数只取前 9 个字符、小数点后 8 位";
        case LossReason::BcdBelowOne: return u"0 到 1 之间的数都写成 0";
        case LossReason::BcdManyDecimals: return u"小数多于 7 位，小数位数占用了符号位";
        case LossReason::BcdSignIsLetter: return u"负数有两位以上小数时第 2 个字符是字母，读不出";
        case LossReason::BcdOtherDigits: return u"后 8 个字符应是 0 到 9";
        case LossReason::BcdManyDigits: return u"多于 8 位数字，前面的丢失";
        case LossReason::BcdDigitsOfText: return u"数字逐字取自输入的文字";
        case LossReason::LeftAsItIs: return u"格式 0 只读 2、4 或 8 个字符的代码，其他的原样输出";
        case LossReason::WrittenInTwoCharacters: return u"写出的代码是 2 个字符";
        case LossReason::WrittenInFourCharacters: return u"写出的代码是 4 个字符";
        case LossReason::WrittenInEightCharacters: return u"写出的代码是 8 个字符";
        case LossReason::WrittenInTenCharacters: return u"写出的代码是 10 个字符";
        case LossReason::OtherCharacters: return u"代码中有十六进制数字以外的字符";
        case LossReason::ReadingIsNoNumber: return u"读数不完整，不是数值";
        case LossReason::PowerOfTwoBelowHalf: return u"小于 0.5 的二的整次幂写成 9 个字符";
        case LossReason::ZeroHasOneCode: return u"零总是写成 00000000";
        case LossReason::ReadAsZero: return u"读数只到小数点后 8 位，截成了 0";
        case LossReason::Normalised: return u"读数只取前 9 个字符、小数点后 8 位，写出时重新规格化";
        case LossReason::BcdBeginsWithZero: return u"第 1 个字符总是写成 0";
    }
    return {};
}

Text WordsOf(const Loss& loss, const Conversion& conversion) {
    if (loss.kind == LossKind::NoConversion) {
        return u"格式 " + WholeText(conversion.format) + u" " + Text(WordsOf(*loss.reason));
    }
    return conversion.direction == Direction::ToCode ? WordsOfLostValue(loss) : WordsOfLostCode(loss);
}

std::vector<Text> WordsOf(const ConversionNotes& notes, const Conversion& conversion, const Text& result) {
    std::vector<Text> sentences;
    if (notes.loss) sentences.push_back(WordsOf(*notes.loss, conversion));
    if (notes.explanation) sentences.push_back(WordsOf(*notes.explanation, result));
    if (notes.tool) sentences.push_back(WordsOf(*notes.tool));
    return sentences;
}

}  // namespace commtest
