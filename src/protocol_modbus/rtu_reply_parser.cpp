#include "protocol_modbus/rtu_reply_parser.h"

#include "protocol_modbus/reply_record.h"
#include "protocol_modbus/rtu_frame.h"
#include "protocol_modbus/rtu_reply_rows.h"
#include "protocol_modbus/rtu_verdicts.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/records.h"

namespace commtest {

namespace {

// A board's exception of five bytes comes without a check word.
bool IsBoardException(const HexText& reply) { return Len(reply) == 15 && Mid(reply, 4, 3) == u" 88"; }

bool JudgeFrame(MainForm& form) {
    if (!IsBoardException(form.ReplyText)) return NoteCheckWord(form, TestRtuCrc(form.ReplyText));
    form.LogLine += u"注意:该数据没有校验码 ";
    return true;
}

// The walk of code 51 alone goes on over a silent instrument.
void StepOverSilentRow(MainForm& form) {
    if (form.CycleStep != 2 || form.ProtocolCode != 51) return;
    PassOverError([&] { form.CurrentRow = Add16(form.CurrentRow, 1); });
}

}  // namespace

void ParseRtuReply(MainForm& form) {
    PutReplyIntoLogLine(form);
    const bool isRight = JudgeByCycleStep(form, JudgeFrame);
    StepOverSilentRow(form);
    const bool decodes = JudgeRtuFunction(form, isRight);
    PutRecordOnTop(form);
    PassOverError([&] { decodes ? DecodeRtuRows(form) : LogCommError(form); });
    form.ReplyText.clear();
}

}  // namespace commtest
