#include "cli/line_answers.h"

#include <cstdint>
#include <istream>
#include <string>
#include <utility>

#include "cli/printable_text.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

Text Joined(const std::vector<Text>& notes) {
    Text joined;
    for (const Text& note : notes) joined += joined.empty() ? note : Text(kLineEnd) + note;
    return joined;
}

std::string PlainLines(const LineAnswer& answer, bool isExplained) {
    std::string lines = PrintableText(answer.result) + "\n";
    if (!isExplained) return lines;
    if (!answer.explanation.empty()) {
        std::string explanation = PrintableText(answer.explanation);
        explanation.resize(explanation.find_last_not_of('\n') + 1);
        lines.append("\n").append(explanation).append("\n");
    }
    if (!answer.notes.empty()) lines += "\n";
    for (const Text& note : answer.notes) lines += PrintableText(u"注意: " + note) + "\n";
    return lines;
}

std::string CsvHeadingsOf(const AnswerForm& form) {
    if (form.headings.empty())
        return form.isExplained ? "input,result,explanation,notes\n" : "input,result\n";
    std::vector<Text> cells = {u"input"};
    cells.insert(cells.end(), form.headings.begin(), form.headings.end());
    return CsvLine(cells);
}

std::string CsvLineOf(const Text& input, const LineAnswer& answer, const AnswerForm& form) {
    std::vector<Text> cells = {input};
    if (form.headings.empty()) {
        cells.push_back(answer.result);
    } else {
        cells.insert(cells.end(), answer.members.begin(), answer.members.end());
        cells.resize(1 + form.headings.size());
    }
    if (form.isExplained) cells.insert(cells.end(), {answer.explanation, Joined(answer.notes)});
    return CsvLine(cells);
}

void PutExplanation(const LineAnswer& answer, JsonWriter& json) {
    json.PutText(u"explanation", answer.explanation);
    json.PutKey(u"notes");
    json.BeginArray();
    for (const Text& note : answer.notes) json.PutText(note);
    json.EndArray();
}

void PutAnswer(const Text& input, const LineAnswer& answer, const AnswerForm& form, JsonWriter& json) {
    json.BeginObject();
    json.PutText(u"input", input);
    if (!answer.problem.empty()) {
        json.PutText(u"error", answer.problem);
    } else if (form.headings.empty()) {
        json.PutText(u"result", answer.result);
        if (form.isExplained) PutExplanation(answer, json);
    }
    for (std::size_t i = 0; i < answer.members.size(); ++i) json.PutText(form.headings[i], answer.members[i]);
    json.EndObject();
}

// One line without its line feed; false behind the last one. What was answered goes out before a wait for
// more, which std::getline would not do in the middle of a line.
bool TakeBytes(Console& console, std::string& bytes) {
    std::istream& lines = console.Input().lines;
    bytes.clear();
    for (;;) {
        if (lines.rdbuf()->in_avail() <= 0) console.Flush();
        const int byte = lines.get();
        if (!lines) return !lines.bad() && !bytes.empty();
        if (byte == '\n') return true;
        bytes += static_cast<char>(byte);
    }
}

// The same without a carriage return.
bool TakeLine(Console& console, Text& line) {
    std::string bytes;
    if (!TakeBytes(console, bytes)) return false;
    if (bytes.ends_with('\r')) bytes.pop_back();
    line = FromUtf8(bytes);
    return true;
}

void DropByteOrderMark(Text& line) {
    if (line.starts_with(u'\uFEFF')) line.erase(0, 1);
}

ExitStatus AnswerLines(const AnswerForm& form, Console& console, const AnswerOf& answerOf) {
    AnswerPrinter printer(console, form);
    ExitStatus status = ExitStatus::Good;
    Text line;
    for (std::int64_t number = 1; console.TakesResults() && TakeLine(console, line); ++number) {
        if (number == 1) DropByteOrderMark(line);
        const LineAnswer answer = answerOf(line);
        printer.Add(line, answer);
        if (answer.problem.empty()) continue;
        console.Tell(u"第 " + WholeText(number) + u" 行: " + answer.problem);
        status = ExitStatus::BadUsage;
    }
    printer.Finish();
    if (console.Input().lines.bad()) {
        throw Problem(ExitStatus::NoAccess, u"标准输入读不出来，请检查它的来源"_s);
    }
    return status;
}

}  // namespace

AnswerPrinter::AnswerPrinter(Console& console, const AnswerForm& form) : console_(console), form_(form) {
    if (form_.format == Format::Json) {
        json_.BeginArray();
        console_.Print(json_.Take());
    } else if (form_.format == Format::Csv) {
        console_.Print(CsvHeadingsOf(form_));
    }
}

void AnswerPrinter::Add(const Text& input, const LineAnswer& answer) {
    const bool isFirst = !std::exchange(hasAnswers_, true);
    switch (form_.format) {
        case Format::Json:
            PutAnswer(input, answer, form_, json_);
            console_.Print(json_.Take());
            return;
        case Format::Csv: console_.Print(CsvLineOf(input, answer, form_)); return;
        default:
            if (form_.isExplained && !isFirst) console_.Print(std::string("\n"));
            console_.Print(PlainLines(answer, form_.isExplained));
    }
}

void AnswerPrinter::Finish() {
    if (form_.format != Format::Json) return;
    json_.EndArray();
    console_.Print(json_.Take());
}

ExitStatus AnswerTexts(const std::optional<QString>& text, const QString& expected, const AnswerForm& form,
                       Console& console, const AnswerOf& answerOf) {
    if (!text) {
        if (console.Input().isTyped) console.Tell(expected);
        return AnswerLines(form, console, answerOf);
    }
    const Text input = text->toStdU16String();
    const LineAnswer answer = answerOf(input);
    if (!answer.problem.empty())
        throw Problem(ExitStatus::BadUsage, QString::fromStdU16String(answer.problem));
    AnswerPrinter printer(console, form);
    printer.Add(input, answer);
    printer.Finish();
    return ExitStatus::Good;
}

}  // namespace commtest
