#include "protocol_special/hct615d_request.h"

#include "protocol_special/hct615d_checks.h"
#include "session/main_form.h"

namespace commtest {

void BuildHct615dReadRequest(MainForm& form) {
    constexpr int kFirstChecked = 22;
    constexpr int kCheckedLength = 15;
    form.ParameterGrid().Redraw = false;
    form.SendText = u" AA AA AA AA AA AA AA 07 02 " + form.AddressText + u" 01 00";
    form.SendText += Hct615dCheckBytes(Mid(form.SendText, kFirstChecked, kCheckedLength));
    form.ParameterGrid().Redraw = true;
}

}  // namespace commtest
