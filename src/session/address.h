#pragma once

#include <optional>

#include "runtime/hex_text.h"

namespace commtest {

class MainForm;
struct Conversation;

// The change routine of the address field: the list of sent frames begins anew, and AddressText is composed
// in the form of the protocol in use. Error 13 if the address is no number.
void ConMeterAddr_Change(MainForm& form);

// Forms of AddressText.
void ComposeAsciiAddress(
    Conversation& talk);  // " 30 31": the digits of the number in hexadecimal, as characters
void ComposeTwoDigitAddress(Conversation& talk);  // "0A": without a blank; an address above 255 is not cut
void ComposeDoubledAddress(Conversation& talk);   // " 81 81": address plus 128, twice

// The address that stands in a frame; none where it is too short or has no digits there.
std::optional<int> AddressOfAsciiFrame(const HexText& frame);  // bytes 2 and 3 are its two digits
std::optional<int> AddressOfByteFrame(const HexText& frame);   // byte 1

// The way back, for replay: the address of a recorded frame goes into ConMeterAddr.
void ShowAsciiFrameAddress(Conversation& talk, const HexText& frame);  // bytes 2 and 3 are its two digits
void ShowByteFrameAddress(Conversation& talk, const HexText& frame);   // byte 1
void ShowZeroAddress(Conversation& talk, const HexText&);  // no way back from the doubled address: 0 (Q203)

}  // namespace commtest
