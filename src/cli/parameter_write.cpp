#include "cli/parameter_write.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "cli/problem.h"
#include "cli/protocol_manner.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/command_code.h"
#include "session/events.h"
#include "session/grid_editing.h"
#include "session/grid_rows.h"
#include "session/instrument_codec.h"
#include "session/main_form.h"
#include "session/polling_cycle.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// What the parser notes in the record line.
constexpr TextView kWriteTaken = u"# 仪表的参数";
constexpr std::array<TextView, 5> kRefusals = {u"# 仪表的通讯出错", u"指令错误", u"该指令无效", u"自诊断错误",
                                               u"板卡返回错误信息"};

// A float of four bytes holds 23 bits and is shown in nine characters.
constexpr double kPrecisionOfFloat = 1e-6;

enum class Answer { Good, Refused, None };

const Text& CellOf(const MainForm& form, int row, int col) { return form.ParameterGrid().Cell(row, col); }

QString Shown(const Text& text) { return QString::fromStdU16String(text); }

QString RowName(const MainForm& form, int row) {
    return u"第 %1 行 %2"_s.arg(row).arg(Shown(CellOf(form, row, column::kName)));
}

Problem BadUsage(const QString& line) { return {ExitStatus::BadUsage, line}; }

Problem BadAnswer(const MainForm& form, int row, const QString& line) {
    return {ExitStatus::BadAnswer, RowName(form, row) + u": "_s + line};
}

void RequireWritable(const MainForm& form, int row) {
    if (form.ProtocolInUse().buildWrite == nullptr) {
        throw BadUsage(
            u"协议 \"%1\" 不能写参数。请换用能写的协议和仪表"_s.arg(Shown(form.ConCommTypeList.Value())));
    }
    if (row > LastRow(form.ParameterGrid()) || CellOf(form, row, column::kName).empty()) {
        throw BadUsage(u"没有第 %1 行。行号请看 commtest-cli list parameters"_s.arg(row));
    }
    if (!Contains(CellOf(form, row, column::kAttribute), u"W")) {
        throw BadUsage(u"注意:参数没有W属性,数据无法修改！ 属性请看 commtest-cli list parameters"_s);
    }
}

void RequireNumber(const Text& value) {
    try {
        ToNumber(value);
    } catch (const RuntimeError& error) {
        throw BadUsage(
            u"%1 --value \"%2\" 不是数字，没有写入"_s.arg(Shown(error.StandardMessage()), Shown(value)));
    }
}

std::int32_t Failures(const MainForm& form) {
    return form.IncompleteCount + form.CheckErrorCount + form.NoReplyCount;
}

bool IsRefusal(const Text& line) {
    return std::any_of(kRefusals.begin(), kRefusals.end(),
                       [&line](TextView word) { return Contains(line, word); });
}

// Runs the cycle for one frame; a good answer is one that the parser notes as `note`.
Answer Exchange(LineSession& line, TextView note) {
    const MainForm& form = line.Form();
    const auto failuresBefore = Failures(form);
    const int exchangesBefore = line.Exchanges();
    const auto isDone = [&] { return line.Exchanges() > exchangesBefore && line.IsBetweenExchanges(); };
    const LineSession::End end = line.Run(isDone);
    if (end == LineSession::End::BadRun) throw Problem(ExitStatus::BadAnswer, {});
    if (end == LineSession::End::Refused) return Answer::Refused;
    if (end != LineSession::End::Done) throw Problem(ExitStatus::NoAccess, {});
    if (!isDone()) throw Problem(ExitStatus::BadAnswer, u"已中断，不知是否写入。请用 poll 查看"_s);
    if (Failures(form) != failuresBefore) return Answer::None;
    if (IsRefusal(form.LogLine)) return Answer::Refused;
    return Contains(form.LogLine, note) ? Answer::Good : Answer::None;
}

void Click(MainForm& form, int row, int col) {
    RunEvent(form, [&] {
        form.ParameterGrid().Select(row, col);
        MSHFlexGrid1_Click(form, 0);
    });
}

void ReadDecimals(LineSession& line, int row) {
    MainForm& form = line.Form();
    const ProtocolManner& manner = MannerOf(form);
    const int decimalsRow = manner.decimalsRow(form, row);
    if (decimalsRow == 0) return;
    const QString decimalsName = u"小数点在%1"_s.arg(RowName(form, decimalsRow));
    if (const QString reason = manner.whyUnreadable(form, decimalsRow); !reason.isEmpty()) {
        throw BadAnswer(form, row, u"%1，%2，读不到，没有写入"_s.arg(decimalsName, reason));
    }
    Click(form, decimalsRow, column::kSingleRead);
    StartInShortWay(form);
    if (Exchange(line, manner.goodRead) != Answer::Good) {
        throw BadAnswer(form, row, u"%1，没有读到，没有写入。请检查地址和接线"_s.arg(decimalsName));
    }
}

void WriteOnce(LineSession& line, int row, const Text& value) {
    MainForm& form = line.Form();
    Click(form, row, column::kSingleRead);
    Click(form, row, column::kNewValue);
    form.InputText.Set(value);
    line.Dialogs().ReasonOfError = u"--value \"" + value + u"\" 超出此行的范围，没有写入";
    RunEvent(form, [&] { InputText_KeyDown(form, key::kEnter); });
    line.Dialogs().ReasonOfError.clear();
    if (!form.IsRunning()) throw Problem(ExitStatus::BadUsage, {});
    switch (Exchange(line, kWriteTaken)) {
        case Answer::Refused: throw BadAnswer(form, row, u"仪表拒绝写入。请检查数值和仪表的写保护"_s);
        case Answer::None:
            throw BadAnswer(form, row, u"没有收到正确的回答，不知是否写入。请检查地址和接线"_s);
        default: return;
    }
}

// A write in two steps is entered twice.
void Write(LineSession& line, int row, const Text& value) {
    WriteOnce(line, row, value);
    const MainForm& form = line.Form();
    if (form.SecondHalfPending || form.AsciiSecondHalfPending) WriteOnce(line, row, value);
}

bool IsSameNumber(const Text& written, const Text& read, const Text& length) {
    const double precision = WriteFormatOfLength(length) == WriteFormatOfLength(u"4") ? kPrecisionOfFloat : 0;
    return IsMet([&] {
        const double number = ToNumber(written);
        return std::abs(ToNumber(read) - number) <= std::abs(number) * precision;
    });
}

void ReadBack(LineSession& line, Console& console, int row, const Text& value) {
    MainForm& form = line.Form();
    // The answer to the write has moved the row that is read, and a write may leave another way of reading.
    form.CommandCode = command::kReadThisRow;
    Click(form, row, column::kSingleRead);
    if (Exchange(line, MannerOf(form).goodRead) != Answer::Good) {
        throw BadAnswer(form, row, u"已写入 %1，但没有读回。请用 poll 查看"_s.arg(Shown(value)));
    }
    const Text& read = CellOf(form, row, column::kScaledValue);
    const QString both = u"已写入 %1，读回 %2"_s.arg(Shown(value), Shown(read));
    if (!IsSameNumber(value, read, CellOf(form, row, column::kLength))) {
        throw BadAnswer(form, row, both + u"，不一致。请检查数值的小数位和上下限"_s);
    }
    console.Print(RowName(form, row) + u": "_s + both + u"，一致\n"_s);
}

}  // namespace

void WriteParameter(LineSession& line, Console& console, int row, const Text& value) {
    MainForm& form = line.Form();
    RequireWritable(form, row);
    RequireNumber(value);
    form.CommandCode = command::kReadThisRow;
    ReadDecimals(line, row);
    Write(line, row, value);
    const QString reason = MannerOf(form).whyUnreadable(form, row);
    if (reason.isEmpty()) {
        ReadBack(line, console, row, value);
    } else {
        console.Print(u"%1: 已写入 %2。%3，不回读\n"_s.arg(RowName(form, row), Shown(value), reason));
    }
}

}  // namespace commtest
