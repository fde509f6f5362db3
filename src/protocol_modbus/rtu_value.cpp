#include "protocol_modbus/rtu_value.h"

#include "numbers/register_codecs.h"
#include "session/conversation.h"
#include "session/instrument_codec.h"

namespace commtest {

void EncodeRtuValue(const InstrumentInUse& instrument, Text& value) {
    ValueToCommCode(value, FormatOfInstrument(instrument));
}

bool ShowsConstant(const InstrumentInUse& instrument, const Text& code) {
    return Len(code) == 8 && Contains(instrument.InstrumentName(), u"相");
}

void DecodeRtuValue(const InstrumentInUse& instrument, Text& value) {
    // Q139: a constant stands for the received code.
    if (ShowsConstant(instrument, value)) {
        value = u"42460000";
        CommCodeToValue(value, register_format::kIeeeSingle);
    } else {
        CommCodeToValue(value, FormatOfInstrument(instrument));
    }
}

}  // namespace commtest
