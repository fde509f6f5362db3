#include "cli/parameter_writes.h"

#include <set>

#include "cli/answer_words.h"
#include "cli/write_words.h"
#include "runtime/number.h"
#include "session/events.h"
#include "session/main_form.h"
#include "session/start_stop.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString Shown(const Text& text) { return QString::fromStdU16String(text); }

bool IsGood(WriteOutcome outcome) { return outcome == WriteOutcome::Equal || outcome == WriteOutcome::Sent; }

}  // namespace

ParameterWrites::ParameterWrites(LineSession& line, std::vector<ParameterWrite> writes, bool isForced,
                                 int retries, Console& console)
    : line_(line), isForced_(isForced), retries_(retries), console_(console) {
    for (ParameterWrite& write : writes) items_.push_back({std::move(write), {}});
}

void ParameterWrites::Run() {
    line_.Form().CommandCode = command::kReadThisRow;
    line_.BeginAtOnce();
    if (ObjectToAny(Look::Rows) || !HasAllDecimals() || ObjectToAny(Look::Values)) return;
    for (Item& item : items_) {
        if (status_ != ExitStatus::Good) {
            item.held = u"没有写入，因为前面的写入没有成功"_s;
            continue;
        }
        Write(item.write);
        if (!IsGood(item.write.State())) status_ = ExitStatus::BadAnswer;
    }
}

// Before the decimals are read, only what does not depend on them counts.
bool ParameterWrites::ObjectToAny(Look look) {
    for (Item& item : items_) {
        item.write.Judge(line_.Form());
        const WriteCheck& check = item.write.Check();
        const bool counts = look == Look::Values || check.ConcernsRow();
        if (!check.objection || !counts || (isForced_ && check.CanLeave())) continue;
        item.held = WordsOnObjection(line_.Form(), item.write);
        status_ = ExitStatus::BadUsage;
    }
    return status_ != ExitStatus::Good;
}

void ParameterWrites::RunExchange(ParameterWrite* write) {
    MainForm& form = line_.Form();
    const int exchangesBefore = line_.Exchanges();
    const auto outcomesBefore = form.Outcomes.Total();
    const auto isDone = [&] { return line_.Exchanges() > exchangesBefore && line_.IsBetweenExchanges(); };
    const LineSession::End end = line_.Run(isDone);
    const auto newOutcomes = static_cast<std::size_t>(form.Outcomes.Total() - outcomesBefore);
    for (std::size_t back = newOutcomes; write != nullptr && back > 0; --back) {
        write->NoteOutcome(form, form.Outcomes.Last(back - 1));
    }
    if (end == LineSession::End::BadRun) throw Problem(ExitStatus::BadAnswer, {});
    if (end == LineSession::End::Refused) return;
    if (end != LineSession::End::Done) throw Problem(ExitStatus::NoAccess, {});
    if (!isDone()) throw Problem(ExitStatus::BadAnswer, u"已中断，不知是否写入。请用 poll 查看"_s);
}

// Each row of decimals is read once, whatever the number of rows that it scales.
bool ParameterWrites::HasAllDecimals() {
    MainForm& form = line_.Form();
    std::set<int> done;
    for (Item& item : items_) {
        const int row = DecimalsRowOf(form, item.write.Row());
        if (row == 0 || !done.insert(row).second) continue;
        const Unreadable why = WhyUnreadable(form, row);
        if (why == Unreadable::No && ReadRow(row, nullptr)) continue;
        item.held = WordsOnMissingDecimals(form, row, why);
        status_ = ExitStatus::BadAnswer;
        return false;
    }
    return true;
}

// The answer to a write has moved the row that is read, and a write may leave another way of reading.
bool ParameterWrites::ReadRow(int row, ParameterWrite* write) {
    MainForm& form = line_.Form();
    for (int turn = 1;; ++turn) {
        RunEvent(form, [&] { ReadRowNext(form, row); });
        StartInShortWay(form);
        RunExchange(write);
        const OutcomePointer outcome = form.Outcomes.Last();
        const bool isRead = outcome != nullptr && outcome->verdict.IsGoodRead() && outcome->rows.Holds(row);
        const bool isRefused = outcome != nullptr && outcome->verdict.answer == Answer::Refused;
        if (isRead || isRefused || turn > retries_) return isRead;
        console_.Tell(RowName(form, row) + u": 没有读到，重复第 %1 次"_s.arg(turn));
    }
}

// A write in two steps is entered once for each. An answer that does not confirm is no end: the row decides.
void ParameterWrites::SendAndReadBack(ParameterWrite& write) {
    MainForm& form = line_.Form();
    do {
        RunEvent(form, [&] { write.Enter(form); });
        if (write.State() == WriteOutcome::Held) throw Problem(ExitStatus::BadUsage, {});
        RunExchange(&write);
    } while (write.HasHalfToCome(form));
    if (write.State() == WriteOutcome::Refused || !write.CanBeReadBack(form)) return;
    ReadRow(write.Row(), &write);
    write.SettleWithoutRead();
}

void ParameterWrites::Write(ParameterWrite& write) {
    MainForm& form = line_.Form();
    const int row = write.Row();
    const bool isKnown = retries_ > 0 && write.CanBeReadBack(form) && ReadRow(row, nullptr);
    const Text before = isKnown ? form.ParameterGrid().Cell(row, column::kScaledValue) : Text();
    SendAndReadBack(write);
    for (int turn = 1; turn <= retries_; ++turn) {
        const bool isOld = write.State() == WriteOutcome::Different && write.ReadBack() == before;
        if (!isKnown || !isOld || write.IsAnswered()) return;
        console_.Tell(RowName(form, row) +
                      u": 没有确认，仍是 %1，重写第 %2 次"_s.arg(Shown(before)).arg(turn));
        write = ParameterWrite(row, write.Value());
        write.Judge(form);
        SendAndReadBack(write);
    }
}

QString ParameterWrites::WordsOnReason(const Item& item) {
    if (item.write.State() == WriteOutcome::Held) return item.held;
    if (item.write.State() == WriteOutcome::Refused) return WordsOnAnswer(line_.Form(), *item.write.Reply());
    return item.write.State() == WriteOutcome::Sent ? WordsOnUnreadable(line_.Form(), item.write) : QString();
}

QString ParameterWrites::WordsOn(const Item& item) {
    const QString written = u"已写入 %1"_s.arg(Shown(item.write.Value()));
    const QString both = u"%1，读回 %2"_s.arg(written, Shown(item.write.ReadBack()));
    switch (item.write.State()) {
        case WriteOutcome::Equal: return both + u"，一致"_s;
        case WriteOutcome::Different: return both + u"，不一致。请检查数值的小数位和上下限"_s;
        case WriteOutcome::Sent: return u"%1。%2，不回读"_s.arg(written, WordsOnReason(item));
        case WriteOutcome::Refused:
            return u"仪表拒绝写入: %1。请检查数值和仪表的写保护"_s.arg(WordsOnReason(item));
        case WriteOutcome::Held: return item.held;
        default: break;
    }
    return item.write.IsAnswered() ? written + u"，但没有读回。请用 poll 查看"_s
                                   : u"没有收到正确的回答，不知是否写入。请检查地址和接线"_s;
}

void ParameterWrites::Tell(Console& console, bool tellsResults) {
    for (const Item& item : items_) {
        const QString words = WordsOn(item);
        if (words.isEmpty()) continue;
        const QString line = RowName(line_.Form(), item.write.Row()) + u": "_s + words;
        if (IsGood(item.write.State())) {
            if (tellsResults) console.Print(line + u'\n');
        } else {
            console.Tell(line);
        }
    }
}

Table ParameterWrites::Results() {
    Table table;
    table.columns = {{u"row", u"序号", CellKind::Number},
                     {u"name", u"参数名称"},
                     {u"outcome", u"结果"},
                     {u"value", u"写入值"},
                     {u"code", u"代码"},
                     {u"arrives", u"仪表将收到"},
                     {u"read", u"读回值"},
                     {u"reason", u"原因"}};
    for (const Item& item : items_) {
        table.rows.push_back({WholeText(item.write.Row()), NameOfRow(line_.Form(), item.write.Row()),
                              Text(KeyOf(item.write.State())), item.write.Value(), item.write.Check().code,
                              item.write.Check().arrives, item.write.ReadBack(),
                              WordsOnReason(item).toStdU16String()});
    }
    return table;
}

}  // namespace commtest
