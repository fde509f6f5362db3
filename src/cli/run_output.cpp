#include "cli/run_output.h"

#include <array>

#include "cli/exchange_line.h"
#include "cli/poll_report.h"
#include "cli/row_choice.h"
#include "cli/time_stamp.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

Format FormatOfRun(const Arguments& arguments) {
    if (arguments.Value(u"format") == u"jsonl") return Format::JsonLines;
    const auto format = FormatNamed(arguments.Value(u"format"));
    if (!format) throw arguments.BadValue(u"format", u" text、csv、json 或 jsonl"_s);
    return *format;
}

void TakeRecordOptions(const Arguments& arguments, OutputOptions& options) {
    const bool isNamed = arguments.Has(u"record");
    options.record.goesOnBehind = arguments.Has(u"append");
    options.hasTimeStamps = arguments.Has(u"timestamps");
    if (isNamed) options.record.path = arguments.Value(u"record");
    const bool isResult = options.record.path == u"-";
    if (options.record.goesOnBehind && (!isNamed || isResult)) {
        throw arguments.BadUsage(u"选项 --append 要和 --record 文件 一起用"_s);
    }
    if (options.hasTimeStamps && !isNamed && options.format != Format::Plain) {
        throw arguments.BadUsage(u"选项 --timestamps 要和 --record 或 --format text 一起用"_s);
    }
    if (!isResult) return;
    options.record.path.clear();
    if (options.format != Format::Plain) {
        throw arguments.BadUsage(
            u"选项 --record - 和 --format %1 只能用一个"_s.arg(arguments.Value(u"format")));
    }
}

QString FileOf(const Arguments& arguments, QStringView option) {
    if (!arguments.Has(option)) return {};
    if (arguments.Value(option) == u"-") throw arguments.BadValue(option, u"文件名"_s);
    return arguments.Value(option);
}

void RequireDifferentFiles(const Arguments& arguments) {
    constexpr std::array<QStringView, 3> kFiles = {u"record", u"statistics", u"trace"};
    for (std::size_t i = 0; i < kFiles.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (!arguments.Has(kFiles[i]) || !arguments.Has(kFiles[j])) continue;
            if (!IsSameFile(arguments.Value(kFiles[i]), arguments.Value(kFiles[j]))) continue;
            throw arguments.BadUsage(u"选项 --%1 和 --%2 是同一个文件"_s.arg(kFiles[j], kFiles[i]));
        }
    }
}

OutputName InFolder(OutputName name, const QString& folder) {
    name.programFolder = folder;
    return name;
}

// Each line of the block behind its moment: the first one behind that of the request.
Text Stamped(const RecordBlock& block, std::int64_t now) {
    const QDateTime end = QDateTime::currentDateTime();
    const std::int64_t sinceRequest =
        block.outcome == nullptr ? 0 : (now - block.outcome->exchange.requestTime) / 1000;
    QStringList lines = QString::fromStdU16String(block.text).split(u"\r\n"_s);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString stamp = TimeStamp(i == 0 ? end.addMSecs(-sinceRequest) : end);
        if (!lines[i].isEmpty()) lines[i].prepend(stamp + u"  "_s);
    }
    return lines.join(u"\r\n"_s).toStdU16String();
}

}  // namespace

const OptionList& OutputOptionList() {
    static const OptionList kOptions = {
        {u"record", u"文件|-", u"把通讯记录写入文件，只取代以前的通讯记录；- 为标准输出"},
        {u"append", {}, u"通讯记录接在文件原有的记录之后"},
        {u"timestamps", {}, u"通讯记录每行前有日期、时间和毫秒"},
        {u"format", u"text|csv|json|jsonl",
         u"结果的格式；csv 时标准输出只有参数表，json 时只有参数表和统计，jsonl 时每次通讯结束后一行",
         u"text"},
        {u"rows", u"6,7,名称", u"只给出这些行，用行号或参数名称，用逗号隔开"},
        {u"statistics", u"文件", u"统计写入文件；不写时 csv 和 jsonl 的统计在标准错误"},
        {u"trace", u"文件", u"线路上的每段字节写入文件: 时间、微秒、与前一段的间隔、方向、字节"}};
    return kOptions;
}

OutputOptions OutputOptionsOf(const Arguments& arguments) {
    OutputOptions options;
    options.format = FormatOfRun(arguments);
    TakeRecordOptions(arguments, options);
    options.trace = {FileOf(arguments, u"trace"), OutputKind::Trace, {}};
    options.statistics = {FileOf(arguments, u"statistics"), OutputKind::Statistics, {}};
    if (arguments.Has(u"rows")) options.rows = arguments.Value(u"rows");
    RequireDifferentFiles(arguments);
    return options;
}

RunOutput::RunOutput(LineSession& line, const LineOptions& shown, const OutputOptions& options,
                     Console& console)
    : line_(line),
      shown_(shown),
      options_(options),
      console_(console),
      rows_(options.rows.isEmpty() ? std::vector<int>() : RowsOfWords(line.Form(), options.rows)),
      record_(console, options.format == Format::Plain, InFolder(options.record, shown.folder)),
      statistics_(InFolder(options.statistics, shown.folder)),
      trace_(InFolder(options.trace, shown.folder)) {
    if (trace_.IsOpen()) line.Trace().TraceInto(trace_);
    line.Form().Record().BlockFinished = [this](const RecordBlock& block) { AddBlock(block); };
}

void RunOutput::AddBlock(const RecordBlock& block) {
    if (!options_.hasTimeStamps) return record_.Add(block.text);
    record_.Add(Stamped(block, line_.Form().outside.clock.Microseconds()));
}

void RunOutput::AddExchange(const Outcome& outcome) {
    const MainForm& form = line_.Form();
    scaled_.Note(form, outcome);
    if (options_.format != Format::JsonLines) return;
    const QString time = TimeStamp(QDateTime::currentDateTime());
    console_.Print(ExchangeLine(form, outcome, rows_, scaled_, time));
    if (!console_.Flush()) line_.Quit();
}

bool RunOutput::Flush() { return record_.Flush() && trace_.IsGood(); }

void RunOutput::PrintReport() {
    MainForm& form = line_.Form();
    shown_.address = form.ConMeterAddr.Value();
    const ReportedRows reported = {rows_, scaled_};
    switch (options_.format) {
        case Format::Plain:
            console_.Print(Printed(GridTable(form, reported), Format::Plain) + "\n" + WordsOn(line_) + "\n");
            return;
        case Format::Csv: console_.Print(Printed(GridTable(form, reported), Format::Csv)); break;
        case Format::Json: console_.Print(PollReport(form, shown_, StatisticsOf(line_), reported)); return;
        case Format::JsonLines: break;
    }
    if (!statistics_.IsOpen()) console_.Tell(FromUtf8(WordsOn(line_)));
}

void RunOutput::Finish() {
    Flush();
    PrintReport();
    if (statistics_.IsOpen()) statistics_.Write(StatisticsFile(line_, options_.format));
    line_.Trace().Flush();
    record_.Finish();
    statistics_.Finish();
    trace_.Finish();
}

}  // namespace commtest
