#include "cli/poll_run.h"

#include <QElapsedTimer>

#include "cli/answer_words.h"
#include "cli/interrupt.h"
#include "cli/moment.h"
#include "cli/read_repetition.h"
#include "session/start_stop.h"

namespace commtest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kMostRetries = 100;

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

QDateTime UntilOf(const Arguments& arguments) {
    const auto until = MomentNamed(arguments.Value(u"until"), QDateTime::currentDateTime());
    if (!until) throw arguments.BadValue(u"until", u" HH:MM[:SS]，或将来的 2026-11-23 06:30"_s);
    return *until;
}

void TellStop(const MainForm& form, Console& console) {
    const Stop& stop = form.LastStop();
    if (stop.cause != StopCause::Exception) return;
    console.Tell(u"第 %1 次通讯被仪表的回答结束: %2。请检查 --command 和仪表的参数表"_s.arg(stop.exchange)
                     .arg(WordsOnAnswer(form, *stop.outcome)));
}

// Polls to the end that the options set, or that the user, the port or an error brings. What is shown of it
// follows at the pace of a reader's eye, not of the line.
class PollRun {
  public:
    PollRun(LineSession& line, const RunOptions& options, RunOutput& output, Console& console)
        : line_(line),
          options_(options),
          output_(output),
          console_(console),
          repetition_(line, options.retries, console) {
        line.Looks = [this] { LookUp(); };
        line.FrameIsNext = [this] { repetition_.BeforeFrame(); };
        line.ExchangeEnded = [this](const Outcome& outcome) {
            output_.AddExchange(outcome);
            repetition_.Note(outcome);
        };
        line.Dialogs().WaitsForPort = options.reconnects;
    }

    LineSession::End Run() {
        const Interrupt interrupt([this] { Quit(); });
        began_.start();
        LineSession::End end = RunOnce();
        while (options_.reconnects && end == LineSession::End::PortLost) {
            repetition_.NoteLoss();
            end = Reconnected();
        }
        line_.Stop();
        line_.Counts().repetitions = repetition_.Count();
        return end;
    }

    bool HasFailed() const { return repetition_.HasFailed(); }

  private:
    LineSession::End RunOnce() {
        line_.BeginAtOnce();
        StartInShortWay(line_.Form());
        return line_.Run([this] { return IsDone(); });
    }

    // Opened again as often as it is refused; another end is the end.
    LineSession::End Reconnected() {
        for (bool isTold = false;; isTold = true) {
            if (hasQuit_ || !line_.WaitForPort()) return LineSession::End::Done;
            if (!isTold) console_.Tell(u"串口已重新连接，第 %1 次"_s.arg(++line_.Counts().reconnects));
            line_.Dialogs().Unsaid = {u"系统串口被占用"};
            const LineSession::End end = RunOnce();
            line_.Dialogs().Unsaid.clear();
            if (end == LineSession::End::NoPort) continue;
            return end;
        }
    }

    bool IsTimeUp() const {
        const bool isLongEnough = options_.duration > 0ms && began_.elapsed() >= options_.duration.count();
        return isLongEnough || (options_.until && QDateTime::currentDateTime() >= *options_.until);
    }

    bool IsDone() {
        const bool isEnough =
            options_.exchanges > 0 && line_.Exchanges() - repetition_.Count() >= options_.exchanges;
        return line_.IsBetweenExchanges() && (IsTimeUp() || (isEnough && !repetition_.IsDue()));
    }

    void Quit() {
        hasQuit_ = true;
        line_.Quit();
    }

    void LookUp() {
        const MainForm& form = line_.Form();
        if (!output_.Flush() || (line_.IsWaitingForPort() ? IsTimeUp() : IsDone())) Quit();
        console_.ShowLive(form.ConCommMessage[1].Value() + u"  " + form.ConCommMessage[0].Value());
    }

    LineSession& line_;
    const RunOptions& options_;
    RunOutput& output_;
    Console& console_;
    ReadRepetition repetition_;
    QElapsedTimer began_;
    bool hasQuit_ = false;
};

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
            {u"seconds", u"秒", u"到时后结束"},
            {u"until", u"时刻",
             u"到 HH:MM[:SS] 或 2026-11-23 06:30 后结束；先到的为准，都不写时到 Ctrl-C 为止"},
            {u"retries", u"N", u"读得不好时最多重复 N 次，每次都计入统计"},
            {u"reconnect", {}, u"串口断开后等待它回来，再继续"},
            {u"strict", u"", u"有不完整、校验出错、无应答 (重复后仍然如此) 或拒绝的回答时退出状态为 1"}};
        options.insert(options.end(), OutputOptionList().begin(), OutputOptionList().end());
        return options;
    }();
    return kOptions;
}

RunOptions RunOptionsOf(const Arguments& arguments) {
    RunOptions options;
    if (arguments.Has(u"exchanges"))
        options.exchanges = arguments.WholeNumber(u"exchanges", 1, 2'000'000'000);
    if (arguments.Has(u"seconds")) options.duration = DurationOf(arguments);
    if (arguments.Has(u"until")) options.until = UntilOf(arguments);
    if (arguments.Has(u"retries")) options.retries = arguments.WholeNumber(u"retries", 0, kMostRetries);
    options.reconnects = arguments.Has(u"reconnect");
    options.output = OutputOptionsOf(arguments);
    options.isStrict = arguments.Has(u"strict");
    return options;
}

ExitStatus PollAndReport(LineSession& line, const LineOptions& shown, const RunOptions& options,
                         Console& console) {
    RunOutput output(line, shown, options.output, console);
    line.Dialogs().ReasonOfError = u"通讯已停止。请换用别的 --command，或检查目录中这种仪表的参数表";
    PollRun run(line, options, output, console);
    const LineSession::End end = run.Run();
    if (end == LineSession::End::NoPort) return ExitStatus::NoAccess;
    output.Finish();
    if (end == LineSession::End::Refused) TellStop(line.Form(), console);
    return StatusOf(end, options.isStrict && run.HasFailed());
}

}  // namespace commtest
