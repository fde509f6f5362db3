#include "protocol_modbus/rtu_verdicts.h"

#include <algorithm>
#include <array>
#include <optional>

#include "protocol_modbus/reply_record.h"
#include "runtime/number.h"
#include "session/main_form.h"

namespace commtest {

namespace {

enum class Decoding { AsChecked, Always, Never };

struct Verdict {
    TextView function;
    TextView text;
    void (*further)(MainForm&);  // appends its words in front of the text
    Decoding decoding;
};

// Beginnings of function and first data byte, the first match counts.
struct ExceptionDetail {
    TextView beginning;
    TextView text;
};
constexpr std::array<ExceptionDetail, 6> kExceptionDetails = {
    {{u"83 02", u"注意：读写指令中含有非法参数地址/长度超出范围"},
     {u"83 03", u"注意：非法的参数地址！该指令无效"},
     {u"83", u"注意：指令错误！无效指令"},
     {u"86 02", u"注意：写入非法数值！ 该指令无效"},
     {u"86 03", u"注意：非法的参数地址！该指令无效"},
     {u"86", u"注意：指令错误或多路表修改参数时,CLK = 8 "}}};

struct Card {
    int first;
    int last;
    TextView text;
};
constexpr std::array<Card, 4> kCards = {{{0x11, 0x2F, u"  单显表板卡 "},
                                         {0x31, 0x4F, u"  PID板卡 "},
                                         {0x51, 0x6F, u"  流量板卡 "},
                                         {0x71, 0x8F, u"  PV板卡 "}}};

// The session stops by its button alone, CycleStep stays: one more frame is built for a port that is about to
// close. The instruments' users rely on a wrong request ending the polling.
void NoteExceptionAndStop(MainForm& form) {
    const Text functionAndData = Mid(form.ReplyText, 5, 5);
    const auto detail =
        std::find_if(kExceptionDetails.begin(), kExceptionDetails.end(),
                     [&](const ExceptionDetail& row) { return functionAndData.starts_with(row.beginning); });
    if (detail != kExceptionDetails.end()) form.LogLine += detail->text;
    form.SetRunning(false);
}

void NoteBoardType(MainForm& form) {
    form.LogLine += u"成功读取 " + AddressInDecimal(form) + u"# 板卡的类型";
    const auto type = HexParse(Mid(form.ReplyText, 17, 2));
    const auto card = std::find_if(kCards.begin(), kCards.end(),
                                   [&](const Card& row) { return type >= row.first && type <= row.last; });
    if (card != kCards.end()) form.LogLine += card->text;
}

void NoteNothing(MainForm&) {}

// Answers to reads and writes are decoded even where their check word is wrong; those to tests and board type
// never, so that they count as errors in the error file. The instruments' users rely on both.
constexpr std::array<Verdict, 13> kVerdicts = {
    {{u"81", u"指令错误，指令不被识别！", NoteNothing, Decoding::AsChecked},
     {u"82", u"指令错误，指定地址(寄存器)无法执行该指令！", NoteNothing, Decoding::AsChecked},
     {u"83", u"    指令错误！", NoteExceptionAndStop, Decoding::AsChecked},
     {u"84", u"自诊断错误！", NoteNothing, Decoding::AsChecked},
     {u"85", u"指令错误，读取数据长度为零！", NoteNothing, Decoding::AsChecked},
     {u"86", u"", NoteExceptionAndStop, Decoding::AsChecked},
     {u"87", u"指令错误，写入的数据超出该参数的上下限范围！", NoteNothing, Decoding::AsChecked},
     {u"88", u" 板卡返回错误信息！", NoteNothing, Decoding::Never},
     {u"03", u"", NoteDataRead, Decoding::Always},
     {u"06", u"", NoteParameterWritten, Decoding::Always},
     {u"10", u"", NoteParameterWritten, Decoding::Always},
     {u"08", u"通讯测试成功", NoteNothing, Decoding::Never},
     {u"09", u"", NoteBoardType, Decoding::Never}}};

// Function 04 has no row: its answers get no word and are decoded only if their check word is right.
constexpr Verdict kOtherVerdict = {u"", u"", NoteUnknownReply, Decoding::AsChecked};

const Verdict& VerdictOf(const Text& function) {
    const auto found = std::find_if(kVerdicts.begin(), kVerdicts.end(),
                                    [&](const Verdict& row) { return row.function == function; });
    return found != kVerdicts.end() ? *found : kOtherVerdict;
}

}  // namespace

bool JudgeRtuFunction(MainForm& form, bool mayDecode) {
    const Verdict& verdict = VerdictOf(Mid(form.ReplyText, 5, 2));
    verdict.further(form);
    form.LogLine += verdict.text;
    return verdict.decoding == Decoding::AsChecked ? mayDecode : verdict.decoding == Decoding::Always;
}

}  // namespace commtest
