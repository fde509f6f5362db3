#include "protocol_special/hct615d_request.h"

#include "runtime/number.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kFirstCheckedByte = 8;
constexpr int kLastCheckedByte = 12;

void AppendLowByte(HexText& frame, int value) { AppendHexByte(frame, value & 0xFF); }

}  // namespace

void BuildHct615dReadRequest(MainForm& form) {
    form.ParameterGrid().Redraw = false;
    form.SendText = u" AA AA AA AA AA AA AA 07 02 " + form.AddressText + u" 01 00";
    int sum = 0;
    int exclusiveOr = 0;
    for (int byte = kFirstCheckedByte; byte <= kLastCheckedByte; ++byte) {
        const int value = HexParse(Mid(form.SendText, 3 * byte - 1, 2));
        sum += value;
        exclusiveOr ^= value;
    }
    AppendLowByte(form.SendText, sum);
    AppendLowByte(form.SendText, exclusiveOr);
    form.ParameterGrid().Redraw = true;
}

}  // namespace commtest
