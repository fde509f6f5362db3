#include "protocol_native/reply_parser.h"

#include "protocol_native/check_words.h"
#include "protocol_native/reply_rows.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/records.h"
#include "session/serial_link.h"

namespace commtest {

namespace {

constexpr TextView kUnknownReply = u"  注意：仪表无应答或返回软件无法识别的数据";

// The line of the record: what has come, as the display mode shows it.
void PutReplyIntoLogLine(MainForm& form) {
    Text shown = form.ReplyText;
    PassOverErrors(
        [&] {
            if (form.ShowMode.IsChosen(0)) ConvertHexText(shown, 0);
        },
        [&] { form.LogLine += Trim(shown) + Text(kLineEnd); });
}

bool CheckWordIsRight(const MainForm& form) {
    return form.ProtocolCode == 12 ? TestCRCWordTqTwo(form.ReplyText) : TestCRCWordTq(form.ReplyText);
}

bool JudgeFrame(MainForm& form) {
    if (IsMet([&] { return CheckWordIsRight(form); })) {
        form.LogLine += u"CRC校验正确  ";
        return true;
    }
    form.LogLine += u"CRC校验错误  ";
    PassOverError([&] { form.CheckErrorCount = Add32(form.CheckErrorCount, 1); });
    return false;
}

void CountFailure(MainForm& form, std::int32_t& counter) {
    PassOverError([&] { counter = Add32(counter, 1); });
    form.ReplyText.clear();
}

// True if the check word was right.
bool JudgeByCycleStep(MainForm& form) {
    switch (form.CycleStep) {
        case 1:
        case 4:
        case 7: return JudgeFrame(form);
        case 2: CountFailure(form, form.NoReplyCount); return false;
        case 3: CountFailure(form, form.IncompleteCount); return false;
        default: return false;
    }
}

void NoteUnknownReply(MainForm& form) {
    if (form.CycleStep == 2) form.LogLine += u"仪表无应答" + Text(kUnknownReply);
    if (form.CycleStep == 3) form.LogLine += u"数据不完整" + Text(kUnknownReply);
    PassOverError([&] { LogCommError(form); });
    form.CycleStep = 1;
}

// Bytes 4 and 5 say what the reply answers.
void NoteReplyWord(MainForm& form) {
    Text word = Mid(form.ReplyText, 10, 6);
    PassOverError([&] { ConvertHexText(word, 0); });
    const Text& address = form.ConMeterAddr.Value();
    if (word == u"RR") {
        form.LogLine += u"     读取 " + address + u"# 仪表的静态数据";
    } else if (word == u"RD") {
        form.LogLine += u"     读取 " + address + u"# 仪表的动态数据";
    } else if (word == u"RE") {
        form.LogLine += u"     读取 " + address + u"# 仪表的指定参数的数值";
    } else if (word == u"**") {
        form.LogLine += u"     注意： " + address + u"# 仪表的通讯出错";
        PassOverError([&] { LogCommError(form); });
    } else if (word == u"##") {
        form.LogLine += u"     修改 " + address + u"# 仪表的参数";
    } else {
        NoteUnknownReply(form);
    }
}

void AskForNextPart(MainForm& form) {
    if (form.CycleStep != 7 || form.ConMyCommDriver.Value()) return;
    form.SendText = u" 0A";
    SendFrame(form);
}

}  // namespace

void ParseTqReply(MainForm& form) {
    PassOverError([&] { form.Timer1[1].SetInterval(ToWhole32(form.ConDelayTime.Value())); });
    PutReplyIntoLogLine(form);
    const bool isRight = JudgeByCycleStep(form);
    NoteReplyWord(form);
    form.ConCommString[1].PutOnTop(form.LogLine + Text(kLineEnd) + Text(kLineEnd));
    if (isRight) {
        // The continue byte leaves before the grid work; the walk below then sees it in SendText.
        AskForNextPart(form);
        PassOverError([&] { DecodeTqReplyRows(form); });
    }
    form.ReplyText.clear();
}

}  // namespace commtest
