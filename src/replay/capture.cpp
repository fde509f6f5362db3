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

}  // namespace

void ConSaveData_Click(MainForm& form) {
    form.SentFrames().Clear();
    form.CapturedCount = 0;
    form.KnownPairCount = 0;
}

void CaptureExchange(MainForm& form) {
    if (form.CaptureWaits) return;
    InstrumentCatalogue catalogue(form.outside.store);
    const Text name = form.InstrumentName();
    // Q220: one row a reply, whatever was asked.
    if (!catalogue.RecordedPair(name, form.ReplyText, form.CaptureNote).rows.empty()) {
        form.KnownPairCount = Add32(form.KnownPairCount, 1);
        return;
    }
    if (form.CaptureNote.empty()) {
        // Q221: it stays for the run of the program; an empty one is asked for again.
        form.CaptureNote =
            UCase(form.outside.dialogs.AskText(u"数据说明", u"请输入采集数据说明,以便今后区分", {}));
    }
    RecordedExchange exchange;
    exchange.instrument = name;
    exchange.protocol = Trim(form.ConCommTypeList.Value());
    exchange.note = form.CaptureNote;
    exchange.code = form.MeterCodeText;
    exchange.day = Left(TimeStampText(form.outside.clock.Now()), kDay);
    exchange.row = WholeText(form.CurrentRow);
    exchange.request = form.SendText;
    exchange.reply = form.ReplyText;
    if (form.CapturedCount == 0) MakeMissingIndexes(form.outside.store);
    catalogue.AddRecordedExchange(exchange);
    form.CapturedCount = Add32(form.CapturedCount, 1);
}

}  // namespace commtest
