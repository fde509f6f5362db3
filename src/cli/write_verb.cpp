#include "cli/interrupt.h"
#include "cli/line_session.h"
#include "cli/parameter_write.h"
#include "cli/printable_text.h"
#include "cli/verb.h"

namespace commtest {

namespace {

constexpr int kLargestRow = 32767;
constexpr int kLargestWriteType = 2;

OptionList WriteOptionList() {
    OptionList options = LineOptionList();
    options.push_back({u"row", u"N", u"参数表的行号，见 list parameters"});
    options.push_back(
        {u"write-type", u"0|1|2", u"四字节参数的写法: 0 分两次写双字节，1 一次写四字节，2 批量写", u"1"});
    options.push_back({u"value", u"数值", u"要写入的数值，按显示的小数点"});
    return options;
}

ExitStatus Write(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const int row = arguments.WholeNumber(u"row", 1, kLargestRow);
    const Text value = arguments.Value(u"value").toStdU16String();
    const int writeType = arguments.WholeNumber(u"write-type", 0, kLargestWriteType);
    LineSession line(LineOptionsOf(arguments, console), console);
    line.Form().WriteType.Show(writeType);
    line.Form().Record().BlockFinished = [&console](const Text& block) {
        console.Print(PrintableText(block));
    };
    const Interrupt interrupt([&line] { line.Quit(); });
    WriteParameter(line, console, row, value);
    line.Stop();
    return ExitStatus::Good;
}

}  // namespace

Verb WriteVerb() {
    return {u"write", u"--protocol 名称 --instrument 名称 --row N --value 数值 [选项]",
            u"写一个参数，显示仪表的回答，再读回并比较", WriteOptionList(), Write};
}

}  // namespace commtest
