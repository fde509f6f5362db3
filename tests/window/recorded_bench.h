#pragma once

#include "catalogue/instrument_catalogue.h"
#include "support/native_instrument.h"

namespace commtest::testing {

// An exchange of the native instrument in the catalogue of recordings; its frames are hexadecimal pairs.
inline void AddRecorded(BenchSession& session, const Text& note, const std::string& request,
                        const std::string& reply) {
    RecordedExchange exchange;
    exchange.instrument = u"仪表甲";
    exchange.protocol = kNativeProtocol;
    exchange.note = note;
    exchange.code = u"1101";
    exchange.day = u"2024-05-06";
    exchange.row = u"6";
    exchange.request = FromUtf8(" " + request);
    exchange.reply = FromUtf8(" " + reply);
    InstrumentCatalogue(*session.store).AddRecordedExchange(exchange);
}

}  // namespace commtest::testing
