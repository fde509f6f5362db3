#pragma once

#include <string>

#include "runtime/hex_text.h"

namespace commtest {

class MainForm;

// Shows the frame in SendText, begins its record line and puts it on the line; opens a closed port first.
// Goes on only while the session runs or CommandCode is above 1000. Passes over run-time errors.
void SendFrame(MainForm& form);

// Turns a frame into bytes; a missing leading blank does not count. At a pair that is no hexadecimal number
// it tells the user and stops: `bytes` then holds what stood before it, and the result is false.
bool HexTextToBytes(MainForm& form, const HexText& frame, std::string& bytes);

// The receive event: appends what has arrived to ReplyText and judges it.
void MSComm1_OnComm(MainForm& form);

// Judges ReplyText by the end rule of the protocol in use. A complete reply is routed, captured and followed
// by the interval of ConDelayTime; an incomplete one only moves CycleStep to 3.
void FindEndWord(MainForm& form);

}  // namespace commtest
