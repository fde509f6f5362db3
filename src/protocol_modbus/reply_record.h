#pragma once

#include "runtime/text.h"

namespace commtest {

class MainForm;

// What the Modbus reply parsers of both framings share, in the order in which they use it. None of these
// raises a run-time error.

// The time to the next exchange goes into Timer1(1), from ConDelayTime, and the reply into LogLine, as the
// display mode shows it, with a line end.
void PutReplyIntoLogLine(MainForm& form);

// By CycleStep: a complete reply (1, 4) is judged by `judgeFrame`, whose result comes back; a silent
// instrument (2) and a reply without an end (3) move their counters and leave ReplyText empty. True thus
// means that the reply may be decoded.
bool JudgeByCycleStep(MainForm& form, bool (*judgeFrame)(MainForm&));

// The word on the check word in LogLine; a wrong one moves CheckErrorCount. Gives `isRight` back.
bool NoteCheckWord(MainForm& form, bool isRight);

// The words on a good answer; the address is AddressText in decimal.
void NoteDataRead(MainForm& form);
void NoteParameterWritten(MainForm& form);
Text AddressInDecimal(const MainForm& form);

// The words on a function that is not known, by CycleStep, which becomes 1.
void NoteUnknownReply(MainForm& form);

// LogLine becomes the newest block of the record.
void PutRecordOnTop(MainForm& form);

}  // namespace commtest
