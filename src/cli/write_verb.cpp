#include "cli/command_rows.h"
#include "cli/interrupt.h"
#include "cli/line_session.h"
#include "cli/parameter_writes.h"
#include "cli/printable_text.h"
#include "cli/row_choice.h"
#include "cli/verb.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestWriteType = 2;
constexpr int kMostRetries = 100;

OptionList WriteOptionList() {
    OptionList options = LineOptionList();
    for (Option& option : options) {
        if (option.name != kIntervalOptionName) continue;
        option = {kIntervalOptionName, u"毫秒", u"两次通讯的间隔；默认为线路允许的最短间隔"};
    }
    options.insert(
        options.end(),
        {{u"row", u"N", u"参数表的行号，见 list parameters"},
         {u"value", u"数值", u"要写入的数值，按显示的小数点；没有数据的命令可以不写"},
         {u"set", u"行=数值", u"行号或参数名称，和要写入的数值；可以给出多次，依次写入", {}, true},
         kCommandConsentOption,
         {u"force", {}, u"数值超出上下限或代码放不下时仍然写入"},
         {u"retries", u"N", u"读不到时最多重读 N 次；没有确认而读回仍是原值时最多重写 N 次", u"0"},
         {u"write-type", u"0|1|2", u"四字节参数的写法: 0 分两次写双字节，1 一次写四字节，2 批量写", u"1"},
         {u"format", u"text|csv|json", u"结果的格式；csv 和 json 时标准输出没有通讯记录", u"text"}});
    return options;
}

struct WriteWord {
    QString row;
    Text value;  // empty: a command without data
};

Problem BadSet(const Arguments& arguments) { return arguments.BadValue(u"set", u" 行=数值 的形式"_s); }

// The words of --set, or of --row and --value.
std::vector<WriteWord> WriteWordsOf(const Arguments& arguments) {
    std::vector<WriteWord> words;
    for (const QString& word : arguments.Values(u"set")) {
        const qsizetype sign = word.lastIndexOf(u'=');
        if (sign == 0 || sign + 1 == word.size()) throw BadSet(arguments);
        const Text value = sign < 0 ? Text() : word.mid(sign + 1).toStdU16String();
        words.push_back({word.left(sign).trimmed(), value});
    }
    if (words.empty()) {
        const int row = arguments.WholeNumber(u"row", 1, kLargestRow);
        const Text value = arguments.Has(u"value") ? arguments.Value(u"value").toStdU16String() : Text();
        words.push_back({QString::number(row), value});
    } else if (arguments.Has(u"row") || arguments.Has(u"value")) {
        throw arguments.BadUsage(u"选项 --set 和 --row、--value 只能用一种"_s);
    }
    return words;
}

// The value that stands for none in a command without data is sent nowhere.
Text ValueOf(const WriteWord& word, const MainForm& form, int row, const Arguments& arguments) {
    if (!word.value.empty()) return word.value;
    if (IsCommandWithoutData(form, row)) return u"0";
    throw arguments.Has(u"set") ? BadSet(arguments) : arguments.BadUsage(u"缺少选项 --value"_s);
}

ExitStatus Write(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const std::vector<WriteWord> words = WriteWordsOf(arguments);
    const int writeType = arguments.WholeNumber(u"write-type", 0, kLargestWriteType);
    const int retries = arguments.WholeNumber(u"retries", 0, kMostRetries);
    const Format format = FormatOf(arguments);
    LineSession line(LineOptionsOf(arguments, console), console);
    line.Form().WriteType.Show(writeType);
    std::vector<ParameterWrite> writes;
    std::vector<int> rows;
    for (const WriteWord& word : words) {
        rows.push_back(RowOfWord(line.Form(), word.row));
        writes.emplace_back(rows.back(), ValueOf(word, line.Form(), rows.back(), arguments));
    }
    RequireConsentToCommands(line.Form(), rows, arguments, console);
    if (format == Format::Plain) {
        line.Form().Record().BlockFinished = [&console](const RecordBlock& block) {
            console.Print(PrintableText(block.text));
        };
    }
    ParameterWrites run(line, std::move(writes), arguments.Has(u"force"), retries, console);
    const Interrupt interrupt([&line] { line.Quit(); });
    try {
        run.Run();
    } catch (const Problem&) {
        if (format != Format::Plain) console.Print(Printed(run.Results(), format));
        throw;
    }
    line.Stop();
    run.Tell(console, format == Format::Plain);
    if (format != Format::Plain) console.Print(Printed(run.Results(), format));
    return run.Status();
}

}  // namespace

Verb WriteVerb() {
    return {u"write", u"--protocol 名称 --instrument 名称 --set 行=数值 [选项]",
            u"写一个或多个参数，显示仪表的回答，再读回并比较", WriteOptionList(), Write};
}

}  // namespace commtest
