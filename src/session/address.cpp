#include "session/address.h"

#include <cmath>

#include "runtime/number.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kAddressOffset = 128;

// A recorded frame may stand as plain characters.
HexText AsHexText(const HexText& frame) { return Contains(frame, u" ") ? frame : HexTextOfReadable(frame); }

}  // namespace

void ConMeterAddr_Change(MainForm& form) {
    form.SentFrames().Clear();
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.composeAddress != nullptr) protocol.composeAddress(form);  // Q71: else the old one stays
}

void ComposeAsciiAddress(Conversation& talk) {
    Text digits = HexOf(talk.ConMeterAddr.Value());
    if (Len(digits) == 1) FitTextWidth(digits, 2);  // Q70: longer ones are not cut
    talk.AddressText = HexTextOfReadable(digits);
}

void ComposeTwoDigitAddress(Conversation& talk) {
    Text digits = HexOf(talk.ConMeterAddr.Value());
    if (Len(digits) < 2) FitTextWidth(digits, 2);  // Q70: longer ones are not cut
    talk.AddressText = digits;
}

void ComposeDoubledAddress(Conversation& talk) {
    const double sum = std::floor(ToNumber(talk.ConMeterAddr.Value())) + kAddressOffset;
    const Text digits = HexOf(sum);
    // Q72: setting the field runs this routine once more; this outer run then leaves its own sum.
    if (sum > 255) talk.ConMeterAddr.Set(u"1");
    talk.AddressText = u" " + digits + u" " + digits;
}

std::optional<int> AddressOfAsciiFrame(const HexText& frame) {
    const auto high = HexPairValue(Mid(AsHexText(frame), 5, 2));
    const auto low = HexPairValue(Mid(AsHexText(frame), 8, 2));
    if (!high || !low) return std::nullopt;
    const char16_t digits[] = {static_cast<char16_t>(*high), static_cast<char16_t>(*low)};
    return HexPairValue(TextView(digits, 2));
}

std::optional<int> AddressOfByteFrame(const HexText& frame) {
    return HexPairValue(Mid(AsHexText(frame), 2, 2));
}

void ShowAsciiFrameAddress(Conversation& talk, const HexText& frame) {
    const HexText digits = Mid(AsHexText(frame), 4, 6);
    talk.ConMeterAddr.Set(WholeText(HexParse(ReadableOf(digits))));
}

void ShowByteFrameAddress(Conversation& talk, const HexText& frame) {
    talk.ConMeterAddr.Set(WholeText(HexParse(Mid(AsHexText(frame), 2, 2))));
}

void ShowZeroAddress(Conversation& talk, const HexText&) { talk.ConMeterAddr.Set(u"0"); }

}  // namespace commtest
