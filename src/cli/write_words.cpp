#include "cli/write_words.h"

#include "cli/round_trip_words.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString Shown(const Text& text) { return QString::fromStdU16String(text); }

QString WordsOn(Unreadable why) {
    switch (why) {
        case Unreadable::Command: return u"此行是命令"_s;
        case Unreadable::BeforeFirstRow: return u"此行在第一个 RW 行之前"_s;
        case Unreadable::NoReadAttribute: return u"此行没有 R 属性"_s;
        case Unreadable::Fixed: return u"第 1 至 5 行不能单独读取"_s;
        case Unreadable::No: break;
    }
    return {};
}

}  // namespace

TextView KeyOf(WriteOutcome outcome) {
    switch (outcome) {
        case WriteOutcome::Held: return u"held";
        case WriteOutcome::Sent: return u"sent";
        case WriteOutcome::Equal: return u"equal";
        case WriteOutcome::Different: return u"different";
        case WriteOutcome::Refused: return u"refused";
        case WriteOutcome::UnderWay:
        case WriteOutcome::Unconfirmed: break;
    }
    return u"unconfirmed";
}

Text NameOfRow(const MainForm& form, int row) {
    const Grid& grid = form.ParameterGrid();
    return row <= LastRow(grid) ? grid.Cell(row, column::kName) : Text();
}

QString RowName(const MainForm& form, int row) {
    return u"第 %1 行 %2"_s.arg(row).arg(Shown(NameOfRow(form, row))).trimmed();
}

QString WordsOnObjection(const MainForm& form, const ParameterWrite& write) {
    const WriteCheck& check = write.Check();
    const QString value = u"\"%1\""_s.arg(Shown(write.Value()));
    const QString force = u"，没有写入。仍要写入请加 --force"_s;
    switch (*check.objection) {
        case WriteObjection::ProtocolWritesNothing:
            return u"协议 \"%1\" 不能写参数。请换用能写的协议和仪表"_s.arg(
                Shown(form.ConCommTypeList.Value()));
        case WriteObjection::NoSuchRow:
            return u"没有第 %1 行。行号请看 commtest-cli list parameters"_s.arg(write.Row());
        case WriteObjection::NoWriteAttribute:
            return u"注意:参数没有W属性,数据无法修改！ 属性请看 commtest-cli list parameters"_s;
        case WriteObjection::NoNumber: return value + u" 不是数字，没有写入"_s;
        case WriteObjection::Uncodable:
            return u"%1 超出此行的范围，没有写入 (%2)"_s.arg(
                value, Shown(RuntimeError(check.error).StandardMessage()).simplified());
        case WriteObjection::AboveLimit: return u"%1 超出上限 %2"_s.arg(value, Shown(check.limit)) + force;
        case WriteObjection::BelowLimit: return u"%1 低于下限 %2"_s.arg(value, Shown(check.limit)) + force;
        case WriteObjection::DoesNotFit: break;
    }
    const QString why = check.reason ? u"（%1）"_s.arg(Shown(Text(WordsOf(*check.reason)))) : QString();
    return u"%1 此行的代码放不下%2，仪表将收到 %3"_s.arg(value, why, Shown(check.arrives)) + force;
}

QString WordsOnMissingDecimals(const MainForm& form, int decimalsRow, Unreadable why) {
    const QString where = u"小数点在%1，"_s.arg(RowName(form, decimalsRow));
    if (why == Unreadable::No) return where + u"没有读到，没有写入。请检查地址和接线"_s;
    return where + WordsOn(why) + u"，读不到，没有写入"_s;
}

QString WordsOnUnreadable(const MainForm& form, const ParameterWrite& write) {
    const Unreadable why = WhyUnreadable(form, write.Row());
    return why == Unreadable::No ? u"此行显示的是常数，不能比较"_s : WordsOn(why);
}

}  // namespace commtest
