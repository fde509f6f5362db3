#include "protocol_modbus/reply_record.h"

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr TextView kUnknownReply = u"  注意：仪表无应答或返回软件无法识别的数据";

void AddOne(std::int32_t& counter) {
    PassOverError([&] { counter = Add32(counter, 1); });
}

}  // namespace

void PutReplyIntoLogLine(MainForm& form) {
    Text shown = form.ReplyText;
    PassOverErrors([&] { form.Timer1[1].SetInterval(ToWhole32(form.ConDelayTime.Value())); },
                   [&] {
                       if (form.ShowMode.IsChosen(0)) ConvertHexText(shown, 0);
                   });
    form.LogLine += Trim(shown) + Text(kLineEnd);
}

bool JudgeByCycleStep(MainForm& form, bool (*judgeFrame)(MainForm&)) {
    switch (form.CycleStep) {
        case 1:
        case 4: return judgeFrame(form);
        case 2: AddOne(form.NoReplyCount); break;
        case 3: AddOne(form.IncompleteCount); break;
        default: return false;
    }
    form.ReplyText.clear();
    return false;
}

bool NoteCheckWord(MainForm& form, bool isRight) {
    form.LogLine += isRight ? u"CRC校验正确  " : u"CRC校验错误  ";
    if (!isRight) AddOne(form.CheckErrorCount);
    return isRight;
}

void NoteDataRead(MainForm& form) {
    form.LogLine += u"成功读取 " + AddressInDecimal(form) + u"# 仪表的静态/动态数据";
}

void NoteParameterWritten(MainForm& form) {
    form.LogLine += u"成功修改 " + AddressInDecimal(form) + u"# 仪表的参数";
}

Text AddressInDecimal(const MainForm& form) { return WholeText(HexParse(form.AddressText)); }

void NoteUnknownReply(MainForm& form) {
    if (form.CycleStep == 2) form.LogLine += u"仪表无应答" + Text(kUnknownReply);
    if (form.CycleStep == 3) form.LogLine += u"数据不完整" + Text(kUnknownReply);
    form.CycleStep = 1;
}

void PutRecordOnTop(MainForm& form) {
    form.ConCommString[1].PutOnTop(form.LogLine + Text(kLineEnd) + Text(kLineEnd));
}

}  // namespace commtest
