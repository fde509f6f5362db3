#include "cli/code_digits.h"
#include "cli/line_answers.h"
#include "cli/printable_text.h"
#include "cli/round_trip_words.h"
#include "cli/verb.h"
#include "numbers/comm_code_explainer.h"
#include "numbers/float_code_explainers.h"
#include "numbers/float_value_explainers.h"
#include "numbers/register_codecs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "tools/conversion_notes.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastNumberFormat = 12;

// --format names the number format, and a second time, if it is given so, the form of the result.
struct Formats {
    std::optional<int> number;
    std::optional<Format> form;
};

void TakeFormat(const QString& word, const Arguments& arguments, Formats& formats) {
    const int number = word.toInt();
    const bool isNumber = word == QString::number(number);
    const auto form = FormatNamed(word);
    if (!form && (!isNumber || number < 0 || number > kLastNumberFormat)) {
        throw arguments.BadUsage(
            u"选项 --format 的值 \"%1\" 不对，应为数值格式 0 到 12，或 text、csv、json"_s.arg(word));
    }
    if (form ? formats.form.has_value() : formats.number.has_value()) {
        throw arguments.BadUsage(u"选项 --format 的值 \"%1\" 多余"_s.arg(word));
    }
    if (form) {
        formats.form = form;
    } else {
        formats.number = number;
    }
}

Formats FormatsOf(const Arguments& arguments) {
    Formats formats;
    for (const QString& word : arguments.Values(kFormatOption.name)) TakeFormat(word, arguments, formats);
    if (!formats.number) throw arguments.BadUsage(u"缺少数值格式: --format 0 到 12"_s);
    return formats;
}

Direction DirectionOf(const Arguments& arguments) {
    if (arguments.Has(u"to-code") && arguments.Has(u"to-value")) {
        throw arguments.BadUsage(u"选项 --to-code 和 --to-value 只能用一个"_s);
    }
    return arguments.Has(u"to-value") ? Direction::ToValue : Direction::ToCode;
}

bool HasLetterForBcdSign(const Text& code) {
    const Text sign = UCase(Mid(code, 2, 1));
    return sign >= u"A" && sign <= u"F";
}

Text Quoted(const Text& input) {
    constexpr int kQuotedCells = 60;
    Text quoted = ShortenedToWidth(input, kQuotedCells);
    return quoted.insert(0, 1, u'"').append(u"\" ");
}

Text ProblemOf(const Conversion& conversion, const RuntimeError& error, const Text& input) {
    const Text quoted = Quoted(input);
    const Text format = u"格式 " + WholeText(conversion.format) + u" ";
    const bool isOverflow = error.Number() == RuntimeError::kOverflow;
    if (conversion.direction == Direction::ToCode) {
        return isOverflow ? quoted + u"超出" + format + u"的范围" : quoted + u"不是数值";
    }
    if (isOverflow) return quoted + u"不是有限的数";
    const bool isBcdSign = conversion.format == register_format::kBcd && HasLetterForBcdSign(input);
    const Text why =
        isBcdSign ? Text(WordsOf(LossReason::BcdSignIsLetter)) : WhyNoCode(input, conversion.format);
    Text problem = quoted + u"不是" + format + u"能读出的代码";
    if (!why.empty()) problem += u"：" + why;
    return problem;
}

void ExplainCode(const Text& code, int formatNumber, Text& explanation) {
    const Text meterCode = u"  " + WholeText(formatNumber);
    ExplainCommCode(meterCode, code, explanation);
}

void ExplainToValue(int formatNumber, Text code, Text& explanation) {
    if (formatNumber == register_format::kCustomFloat) return ExplainFloatCode(code, explanation);
    ExplainCode(code, formatNumber, explanation);
}

void ExplainToCode(int formatNumber, Text value, const Text& code, Text& explanation) {
    switch (formatNumber) {
        case register_format::kCustomFloat: return ExplainValueToFloatCode(value, explanation);
        case register_format::kIeeeSingle: return ExplainValueToIeee(value, explanation);
        default: return ExplainCode(code, formatNumber, explanation);
    }
}

void Explain(const Conversion& conversion, const Text& input, const Text& result, Text& explanation) {
    if (conversion.direction == Direction::ToValue) {
        ExplainToValue(conversion.format, input, explanation);
    } else {
        ExplainToCode(conversion.format, input, result, explanation);
    }
}

// Why a text is no code, where the codec reads it all the same.
Text ObjectionTo(const Conversion& conversion, const Text& input) {
    const Text what = WhyNoCode(input, conversion.format);
    if (conversion.direction == Direction::ToCode || what.empty()) return {};
    Text objection = Quoted(input) + u"不是格式 ";
    objection += WholeText(conversion.format);
    objection += u" 的代码：";
    objection += what;
    return objection + u"。仍要换算请加 --lenient";
}

struct Manner {
    bool isExplained;
    bool isLenient;
};

LineAnswer Converted(const Conversion& conversion, const Manner& manner, const Text& input) {
    LineAnswer answer;
    answer.result = input;
    try {
        Convert(conversion, answer.result);
    } catch (const RuntimeError& error) {
        return {{}, ProblemOf(conversion, error, input), {}, {}};
    }
    if (!manner.isLenient) answer.problem = ObjectionTo(conversion, input);
    if (!answer.problem.empty()) return {{}, answer.problem, {}, {}};
    if (!manner.isExplained) return answer;
    PassOverError([&] { Explain(conversion, input, answer.result, answer.explanation); });
    const ConversionNotes notes = NotesOf(conversion, input, answer.result);
    answer.notes = WordsOf(notes, conversion, answer.result);
    return answer;
}

ExitStatus Convert(const Arguments& arguments, Console& console) {
    const Formats formats = FormatsOf(arguments);
    const Conversion conversion = {*formats.number, DirectionOf(arguments)};
    const Manner manner = {arguments.Has(u"explain"), arguments.Has(u"lenient")};
    if (manner.isLenient && conversion.direction == Direction::ToCode) {
        throw arguments.BadUsage(u"选项 --lenient 只用于 --to-value"_s);
    }
    const QString expected = conversion.direction == Direction::ToCode ? u"每行输入一个数值，Ctrl-D 结束"_s
                                                                       : u"每行输入一个代码，Ctrl-D 结束"_s;
    return AnswerTexts(arguments.OnePositionalAtMost(), expected,
                       {formats.form.value_or(Format::Plain), manner.isExplained}, console,
                       [&](const Text& input) { return Converted(conversion, manner, input); });
}

constexpr QStringView kNotes =
    uR"(不给出数值或代码时从标准输入逐行读取。
以 -- 开头的数值或代码写在单独的 -- 之后。

数值格式:
  0   双字节原码，低字节在前
  1   双字节补码
  2   自定义浮点数
  3   IEEE-754 单精度浮点数
  5   BCD 码，带符号和小数位数
  6   双字节原码，高字节在前
  7   单字节
  8   累积值，两个自定义浮点数，只读出
  9   十六进制数，只读出
  11  IEEE-754 单精度浮点数，只读出
  12  写出双字节原码，读出补码
  4、10 不作换算

例:
  $ commtest-cli convert --format 0 --to-value D204
  1234
  $ commtest-cli convert --format 1 --to-value 04G2
  "04G2" 不是格式 1 的代码：第 3 个字符 "G" 不是十六进制数字。仍要换算请加 --lenient
)";

}  // namespace

Verb ConvertVerb() {
    return {u"convert",
            u"--format N [选项] [数值|代码]",
            u"数值与通讯代码互相换算，一个或标准输入中的每一行",
            {{u"format", u"N", u"数值格式 0 到 12；再给一次 text、csv 或 json 为结果的格式", {}, true},
             {u"to-code", {}, u"数值换算成代码，不给出方向时也是"},
             {u"to-value", {}, u"代码换算成数值"},
             {u"lenient", {}, u"代码中不是数字的字符按仪表软件的读法换算，不拒绝"},
             {u"explain", {}, u"加上换算过程，并说明换算不能还原之处"}},
            Convert,
            kNotes};
}

}  // namespace commtest
