#include "replay/capture.h"

#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "host/clock.h"
#include "host/dialogs.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/wall_clock.h"

namespace commtest {

namespace {

constexpr int kDay = 10;  // characters of "2024-05-06 12:00:00"

// Q220: one row a reply, whatever was asked.
bool IsKnown(MainForm& form) {
    Store& store = form.outside.store;
    const PatienceScope patience(store, Patience::Capture);
    const StoreRows found =
        InstrumentCatalogue(store).RecordedPair(form.InstrumentName(), form.ReplyText, form.CaptureNote);
    return !found.rows.empty();
}

void AskForNote(MainForm& form) {
    if (!form.CaptureNote.empty()) return;
    // Q221: it stays for the run of the program; an empty one is asked for again.
    form.CaptureNote =
        UCase(form.outside.dialogs.AskText(u"数据说明", u"请输入采集数据说明,以便今后区分", {}));
}

RecordedExchange ExchangeOf(const MainForm& form) {
    RecordedExchange exchange;
    exchange.instrument = form.InstrumentName();
    exchange.protocol = Trim(form.ConCommTypeList.Value());
    exchange.note = form.CaptureNote;
    exchange.code = form.MeterCodeText;
    exchange.day = Left(TimeStampText(form.outside.clock.Now()), kDay);
    exchange.row = WholeText(form.CurrentRow);
    exchange.request = form.SendText;
    exchange.reply = form.ReplyText;
    return exchange;
}

void AddPair(MainForm& form) {
    Store& store = form.outside.store;
    const PatienceScope patience(store, Patience::Capture);
    if (form.CapturedCount == 0) BeginWriting(store);
    InstrumentCatalogue(store).AddRecordedExchange(ExchangeOf(form));
}

void CountOneMore(std::int32_t& count) { count = Add32(count, 1); }

}  // namespace

void ConSaveData_Click(MainForm& form) {
    form.SentFrames().Clear();
    form.CapturedCount = 0;
    form.KnownPairCount = 0;
    form.MissedPairCount = 0;
}

void CaptureExchange(MainForm& form) {
    if (form.CaptureWaits) return;
    try {
        if (IsKnown(form)) return CountOneMore(form.KnownPairCount);
        AskForNote(form);
        AddPair(form);
        CountOneMore(form.CapturedCount);
    } catch (const LostStore&) {
        CountOneMore(form.MissedPairCount);
    }
}

}  // namespace commtest
