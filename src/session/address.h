#pragma once

#include "runtime/hex_text.h"

namespace commtest {

class MainForm;

// The change routine of the address field: the list of sent frames begins anew, and AddressText is composed
// in the form of the protocol in use. Error 13 if the address is no number.
void ConMeterAddr_Change(MainForm& form);

// Forms of AddressText.
void ComposeAsciiAddress(MainForm& form);  // " 30 31": the digits of the number in hexadecimal, as characters
void ComposeTwoDigitAddress(MainForm& form);  // "0A": without a blank; an address above 255 is not cut
void ComposeDoubledAddress(MainForm& form);   // " 81 81": address plus 128, twice

// The way back, for replay: the address of a recorded frame goes into ConMeterAddr.
void ShowAsciiFrameAddress(MainForm& form, const HexText& frame);  // bytes 2 and 3 are its two digits
void ShowByteFrameAddress(MainForm& form, const HexText& frame);   // byte 1

}  // namespace commtest
