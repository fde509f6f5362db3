#include "session/receive_reply.h"

#include <utility>

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/cycle_step.h"
#include "session/main_form.h"
#include "session/records.h"
#include "session/serial_link.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

Ending EndingOf(const MainForm& form, const Protocol& protocol) {
    switch (form.CycleStep) {
        case cycle_step::kReady:
        case cycle_step::kResume: return Ending::Complete;
        case cycle_step::kNextPart:
            return protocol.continuesOnLineFeed ? Ending::Continued : Ending::Unjudged;
        case cycle_step::kWaiting: return Ending::Silent;
        case cycle_step::kReceiving: return Ending::Incomplete;
        default: return Ending::Unjudged;
    }
}

Exchange TakeExchange(MainForm& form, const Protocol& protocol) {
    Exchange exchange = std::exchange(form.UnderWay, {});
    exchange.reply = std::exchange(form.ReplyText, {});
    exchange.ending = EndingOf(form, protocol);
    exchange.address = form.ConMeterAddr.Value();
    exchange.addressText = form.AddressText;
    return exchange;
}

// The line of the record: what has come, as the display mode shows it.
void PutReplyIntoLogLine(MainForm& form, const HexText& reply) {
    Text readable;
    TextView shown = reply;
    PassOverError([&] {
        if (!form.ShowMode.IsChosen(0)) return;
        readable = ReadableOf(reply);
        shown = readable;
    });
    form.LogParts.replyAt = form.LogLine.size();
    form.LogLine += Trimmed(shown);
    form.LogLine += kLineEnd;
    form.LogParts.wordsAt = form.LogLine.size();
}

void PutLogLineIntoRecord(MainForm& form, const OutcomePointer& outcome) {
    RecordBlock block;
    block.text.reserve(form.LogLine.size() + 2 * kLineEnd.size());
    block.text = form.LogLine;
    block.text += kLineEnd;
    block.text += kLineEnd;
    block.parts = form.LogParts;
    block.outcome = outcome;
    form.Record().PutOnTop(std::move(block));
}

void AddOne(std::int32_t& counter) {
    PassOverError([&] { counter = Add32(counter, 1); });
}

void Count(MainForm& form, const Outcome& outcome, const Protocol& protocol) {
    if (outcome.exchange.ending == Ending::Silent) AddOne(form.NoReplyCount);
    if (outcome.exchange.ending == Ending::Incomplete) AddOne(form.IncompleteCount);
    const bool isWrong = outcome.verdict.check == CheckWord::Wrong;
    if (isWrong && protocol.countsWrongCheckWords) AddOne(form.CheckErrorCount);
}

void StepOverSilentRow(MainForm& form, const Exchange& exchange, const Protocol& protocol) {
    if (exchange.ending != Ending::Silent || !protocol.stepsOverSilentRows) return;
    PassOverError([&] { form.CurrentRow = Add16(form.CurrentRow, 1); });
}

// Q107: the continue byte leaves before the grid work, which then sees it in SendText.
void AskForNextPart(MainForm& form, const Verdict& verdict) {
    if (verdict.check != CheckWord::Right || form.CycleStep != cycle_step::kNextPart) return;
    if (form.ConMyCommDriver.Value()) return;
    form.SendText = u" 0A";
    SendFrame(form);
}

void Decode(MainForm& form, Outcome& outcome, const Protocol& protocol) {
    form.FilledRows = {};
    const HexText nothing;
    PassOverError(
        [&] { protocol.decode(form, outcome.verdict.dropsReply ? nothing : outcome.exchange.reply); });
    outcome.rows = std::exchange(form.FilledRows, {});
}

}  // namespace

void ReceiveReply(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    PassOverError([&] { form.PollTimer().SetInterval(ToWhole32(form.ConDelayTime.Value())); });
    const auto outcome = std::make_shared<Outcome>();
    outcome->exchange = TakeExchange(form, protocol);
    Verdict& verdict = outcome->verdict;
    PutReplyIntoLogLine(form, outcome->exchange.reply);
    verdict = protocol.judge(outcome->exchange);
    Count(form, *outcome, protocol);
    StepOverSilentRow(form, outcome->exchange, protocol);
    form.LogLine += protocol.words(outcome->exchange, verdict, form.texts);
    if (verdict.logsError) PassOverError([&] { LogCommError(form); });
    if (verdict.makesReady) form.CycleStep = cycle_step::kReady;
    if (verdict.stopsSession) StopByException(form, outcome);
    PutLogLineIntoRecord(form, outcome);
    AskForNextPart(form, verdict);
    if (verdict.decodes) Decode(form, *outcome, protocol);
    form.Outcomes.Add(outcome);
}

}  // namespace commtest
