#include "cli/poll_run.h"
#include "cli/verb.h"

namespace commtest {

namespace {

OptionList PollOptionList() {
    OptionList options = LineOptionList();
    for (const OptionList* more : {&ReadingOptionList(), &RunOptionList()}) {
        options.insert(options.end(), more->begin(), more->end());
    }
    return options;
}

ExitStatus Poll(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const ReadingOptions reading = ReadingOptionsOf(arguments);
    const RunOptions run = RunOptionsOf(arguments);
    const LineOptions lineOptions = LineOptionsOf(arguments, console);
    LineSession line(lineOptions, console);
    ChooseReading(line.Form(), reading);
    return PollAndReport(line, lineOptions, run, console);
}

}  // namespace

Verb PollVerb() {
    return {u"poll", u"--protocol 名称 --instrument 名称 [选项]",
            u"轮询仪表，逐条给出通讯记录，最后给出参数表和统计", PollOptionList(), Poll};
}

}  // namespace commtest
