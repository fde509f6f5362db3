#include "protocol_modbus/rtu_value.h"

#include "numbers/register_codecs.h"
#include "session/conversation.h"
#include "session/instrument_codec.h"

namespace commtest {

void EncodeRtuValue(const InstrumentInUse& instrument, Text& value) {
    ValueToCommCode(value, FormatOfInstrument(instrument));
}

bool ShowsConstant(const Conversation& talk, const Text& code) {
    return talk.switches.instrumentTypeHandling && Len(code) == 8 && Contains(talk.InstrumentName(), u"相");
}

void RtuValueReader::Decode(Text& value) const {
    // Q139: a constant stands for the received code.
    if (ShowsConstant(talk_, value)) {
        value = u"42460000";
        CommCodeToValue(value, register_format::kIeeeSingle);
    } else {
        if (!format_) format_ = FormatOfInstrument(talk_);
        CommCodeToValue(value, *format_);
    }
}

void DecodeRtuValue(const Conversation& talk, Text& value) { RtuValueReader(talk).Decode(value); }

}  // namespace commtest
