#include "cli/poll_run.h"

#include <QTimer>

#include "cli/answer_words.h"
#include "cli/interrupt.h"
#include "session/start_stop.h"

namespace commtest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kRefreshPeriod = 100ms;

int CommandOf(const Arguments& arguments) {
    static const QStringList kCommands = {u"10"_s, u"20"_s, u"31"_s, u"40"_s, u"50"_s,
                                          u"60"_s, u"80"_s, u"90"_s, u"91"_s};
    const QString command = arguments.Value(u"command");
    if (!kCommands.contains(command)) throw arguments.BadValue(u"command", u" "_s + kCommands.join(u"、"_s));
    return command.toInt();
}

std::chrono::milliseconds DurationOf(const Arguments& arguments) {
    constexpr double kLongest = 2'000'000;
    bool isNumber = false;
    const double seconds = arguments.Value(u"seconds").toDouble(&isNumber);
    const bool isGood = isNumber && seconds > 0 && seconds <= kLongest;
    if (!isGood) throw arguments.BadValue(u"seconds", u"大于 0 的秒数"_s);
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

// What --strict does not let pass. A wrong check word is one by its verdict: not every protocol counts it.
bool HasFailed(const Outcome& outcome) {
    return outcome.verdict.answer == Answer::Refused || outcome.verdict.check == CheckWord::Wrong;
}

bool HasFailures(LineSession& line, int failedReplies) {
    const MainForm& form = line.Form();
    const auto counted = form.IncompleteCount + form.NoReplyCount;
    return counted > 0 || failedReplies > 0 || line.UnseenReplies() > 0;
}

void TellStop(const MainForm& form, Console& console) {
    const Stop& stop = form.LastStop();
    if (stop.cause != StopCause::Exception) return;
    console.Tell(u"第 %1 次通讯被仪表的回答结束: %2。请检查 --command 和仪表的参数表"_s.arg(stop.exchange)
                     .arg(WordsOnAnswer(form, *stop.outcome)));
}

// Polls to the end that the options set, or that the user, the port or an error brings. What is shown of it
// follows at the pace of a reader's eye, not of the line.
LineSession::End RunPoll(LineSession& line, const RunOptions& options, RunOutput& output, Console& console) {
    MainForm& form = line.Form();
    QTimer refresh;
    QObject::connect(&refresh, &QTimer::timeout, [&] {
        if (!output.Flush()) line.Quit();
        console.ShowLive(form.ConCommMessage[1].Value() + u"  " + form.ConCommMessage[0].Value());
    });
    refresh.start(kRefreshPeriod);

    bool isTimeUp = false;
    const auto isDone = [&] {
        const bool isEnough = options.exchanges > 0 && line.Exchanges() >= options.exchanges;
        return (isEnough || isTimeUp) && line.IsBetweenExchanges();
    };
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, [&] {
        isTimeUp = true;
        if (isDone()) line.Quit();
    });
    if (options.duration > 0ms) deadline.start(options.duration);

    const Interrupt interrupt([&line] { line.Quit(); });
    line.BeginAtOnce();
    StartInShortWay(form);
    const LineSession::End end = line.Run(isDone);
    line.Stop();
    return end;
}

ExitStatus StatusOf(LineSession::End end, bool hasFailed) {
    if (end == LineSession::End::PortLost) return ExitStatus::NoAccess;
    const bool isBad = end == LineSession::End::BadRun || end == LineSession::End::Refused || hasFailed;
    return isBad ? ExitStatus::BadAnswer : ExitStatus::Good;
}

}  // namespace

const OptionList& ReadingOptionList() {
    static const OptionList kOptions = {
        {u"command", u"代码",
         u"读取方式: 10 动态数据，20 静态数据，31 动态/静态交替，40 本行，50 逐个，60 "
         u"多个；ModBus-RTU: 80 板卡类型，90 固定测试，91 递增测试",
         u"31"},
        {u"count", u"字节数", u"一次读取多个参数时的数据字节数", u"16"}};
    return kOptions;
}

ReadingOptions ReadingOptionsOf(const Arguments& arguments) {
    ReadingOptions options;
    options.command = CommandOf(arguments);
    options.groupLength = QString::number(arguments.WholeNumber(u"count", 1, 32767)).toStdU16String();
    return options;
}

void ChooseReading(MainForm& form, const ReadingOptions& options) {
    form.CommandCode = options.command;
    form.CurrentRow = form.ProtocolInUse().rows.firstRow(form);
    form.ConDataNub.Set(options.groupLength);
}

const OptionList& RunOptionList() {
    static const OptionList kOptions = [] {
        OptionList options = {
            {u"exchanges", u"N", u"通讯 N 次后结束"},
            {u"seconds", u"秒", u"到时后结束；不写 --exchanges 和 --seconds 时到 Ctrl-C 为止"},
            {u"strict", u"", u"有不完整、校验出错、无应答或拒绝的回答时退出状态为 1"}};
        options.insert(options.end(), OutputOptionList().begin(), OutputOptionList().end());
        return options;
    }();
    return kOptions;
}

RunOptions RunOptionsOf(const Arguments& arguments) {
    RunOptions options;
    if (arguments.Has(u"exchanges") && arguments.Has(u"seconds")) {
        throw arguments.BadUsage(u"选项 --exchanges 和 --seconds 只能用一个"_s);
    }
    if (arguments.Has(u"exchanges"))
        options.exchanges = arguments.WholeNumber(u"exchanges", 1, 2'000'000'000);
    if (arguments.Has(u"seconds")) options.duration = DurationOf(arguments);
    options.output = OutputOptionsOf(arguments);
    options.isStrict = arguments.Has(u"strict");
    return options;
}

ExitStatus PollAndReport(LineSession& line, const LineOptions& shown, const RunOptions& options,
                         Console& console) {
    RunOutput output(line, shown, options.output, console);
    int failures = 0;
    const auto tellOutput = line.ExchangeEnded;
    line.ExchangeEnded = [&](const Outcome& outcome) {
        if (HasFailed(outcome)) ++failures;
        tellOutput(outcome);
    };
    line.Dialogs().ReasonOfError = u"通讯已停止。请换用别的 --command，或检查目录中这种仪表的参数表";
    const LineSession::End end = RunPoll(line, options, output, console);
    if (end == LineSession::End::NoPort) return ExitStatus::NoAccess;
    output.Finish();
    if (end == LineSession::End::Refused) TellStop(line.Form(), console);
    return StatusOf(end, options.isStrict && HasFailures(line, failures));
}

}  // namespace commtest
