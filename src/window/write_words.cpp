#include "window/write_words.h"

#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// What an instrument says where it refuses, without the words on the check word.
QString WordsOnRefusal(const MainForm& form, const Outcome& outcome) {
    Verdict verdict = outcome.verdict;
    verdict.check = CheckWord::NotJudged;
    const Text words = form.ProtocolInUse().words(outcome.exchange, verdict, form.texts);
    QString shown = ToQt(words).simplified();
    if (shown.startsWith(u"注意：")) shown = shown.mid(3).trimmed();
    return shown;
}

// How many decimals the row shows.
qsizetype DecimalsOf(const MainForm& form, int row) {
    Text shown;
    PassOverError([&] { shown = form.ProtocolInUse().rows.withDecimals(form, row, u"0"); });
    return ToQt(shown).section(u'.', 1).size();
}

QString RoomOf(const MainForm& form, int row, const WriteCheck& check) {
    using enum LossReason;
    if (check.reason == FractionRounded || check.reason == FractionFloored) return Words::tr("小数位");
    const Text& length = form.ParameterGrid().Cell(row, column::kLength);
    if (length == u"1") return Words::tr("一字节");
    if (length == u"2") return Words::tr("两字节");
    return length == u"4" ? Words::tr("四字节") : Words::tr("此行");
}

bool IsSilent(const ParameterWrite& write) {
    return write.Reply() == nullptr || write.Reply()->exchange.ending == Ending::Silent;
}

}  // namespace

QString RowName(const MainForm& form, int row) {
    const QString name = ToQt(form.ParameterGrid().Cell(row, column::kName));
    return u"%1 %2"_s.arg(row, 3, 10, QChar(u'0')).arg(name).trimmed();
}

QString WordsOn(const MainForm& form, const ParameterWrite& write) {
    const QString value = ToQt(write.Value());
    switch (write.State()) {
        case WriteOutcome::Held: break;
        case WriteOutcome::UnderWay: return Words::tr("已发送 %1，等待应答").arg(value);
        case WriteOutcome::Sent: return Words::tr("已应答，尚未读回");
        case WriteOutcome::Equal: return Words::tr("已写入 %1，读回一致").arg(value);
        case WriteOutcome::Different: return Words::tr("写入 %1，读回 %2").arg(value, ToQt(write.ReadBack()));
        case WriteOutcome::Refused: return Words::tr("被拒绝：%1").arg(WordsOnRefusal(form, *write.Reply()));
        case WriteOutcome::Unconfirmed:
            return IsSilent(write) ? Words::tr("未确认：仪表无应答，尚未读回")
                                   : Words::tr("未确认：应答不正确，尚未读回");
    }
    return {};
}

QString WordsOnLimits(const MainForm& form, int row) {
    if (form.ProtocolInUse().buildWrite == nullptr) return {};
    if (!KnowsDecimals(form, row)) return Words::tr("小数位尚未读到");
    QStringList parts;
    const ShownLimits limits = LimitsOf(form, row);
    const auto shown = [](const std::optional<Text>& limit) { return limit ? ToQt(*limit) : QString(); };
    if (limits.lower || limits.upper)
        parts += Words::tr("允许 %1 … %2").arg(shown(limits.lower), shown(limits.upper)).simplified();
    if (const qsizetype decimals = DecimalsOf(form, row); decimals > 0)
        parts += Words::tr("小数 %1 位").arg(decimals);
    return parts.join(Words::tr("，"));
}

QString WordsOnObjection(const MainForm& form, int row, const WriteCheck& check) {
    QStringList parts;
    if (check.objection == WriteObjection::NoNumber) parts += Words::tr("不是数值");
    if (check.objection == WriteObjection::Uncodable)
        parts += Words::tr("%1放不下").arg(RoomOf(form, row, check));
    if (check.objection == WriteObjection::AboveLimit) parts += Words::tr("超出上限");
    if (check.objection == WriteObjection::BelowLimit) parts += Words::tr("低于下限");
    if (!check.fits)
        parts += Words::tr("%1放不下，仪表将收到 %2").arg(RoomOf(form, row, check), ToQt(check.arrives));
    return parts.join(Words::tr("；"));
}

WriteLook LookOf(WriteOutcome outcome) {
    using enum WriteLook::Weight;
    switch (outcome) {
        case WriteOutcome::Equal: return {.glyph = Glyph::Tick};
        case WriteOutcome::Different:
            return {.glyph = Glyph::Differs, .weight = Warning, .hasBar = true, .isTinted = true};
        case WriteOutcome::Refused: return {.glyph = Glyph::Refused, .weight = Warning, .hasBar = true};
        case WriteOutcome::Unconfirmed: return {.glyph = Glyph::Unknown, .weight = Warning};
        case WriteOutcome::Sent: return {.weight = Quiet};
        case WriteOutcome::Held:
        case WriteOutcome::UnderWay: break;
    }
    return {};
}

}  // namespace commtest
