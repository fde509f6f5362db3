#include "protocol_special/hct615d_request.h"

#include "protocol_special/hct615d_checks.h"
#include "session/conversation.h"

namespace commtest {

void BuildHct615dReadRequest(Conversation& talk, Clock&) {
    constexpr int kFirstChecked = 22;
    constexpr int kCheckedLength = 15;
    talk.ParameterGrid().Redraw = false;
    talk.SendText = u" AA AA AA AA AA AA AA 07 02 " + talk.AddressText + u" 01 00";
    talk.SendText += Hct615dCheckBytes(Mid(talk.SendText, kFirstChecked, kCheckedLength));
    talk.ParameterGrid().Redraw = true;
}

}  // namespace commtest
