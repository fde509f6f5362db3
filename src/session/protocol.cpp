#include "session/protocol.h"

#include "host/dialogs.h"
#include "session/main_form.h"

namespace commtest {

const Protocol& ProtocolTable::Of(int code) const {
    for (const Protocol& row : rows) {
        if (row.code == code) return row;
    }
    return defaultRow;
}

void MakeCRCWord(MainForm& form, HexText& frame) {
    EnsureLeadingBlank(frame);
    const Protocol& protocol = form.protocols.Of(form.ProtocolCode);
    if (protocol.appendCheckWord != nullptr) protocol.appendCheckWord(frame);
    if (protocol.checkWordIsThatOfAWrite) protocol.buildWrite(form, form.outside.dialogs);  // Q73
}

}  // namespace commtest
