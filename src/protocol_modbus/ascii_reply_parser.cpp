#include "protocol_modbus/ascii_reply_parser.h"

#include <algorithm>
#include <iterator>

#include "numbers/lrc.h"
#include "protocol_modbus/ascii_reply_rows.h"
#include "protocol_modbus/reply_record.h"
#include "runtime/hex_text.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/records.h"

namespace commtest {

namespace {

constexpr int kLineEndWidth = 2 * 3;
constexpr int kCheckWordAndLineEnd = 2 * 3 + kLineEndWidth;

struct Exception {
    TextView function;
    TextView text;
};
constexpr Exception kExceptions[] = {{u"81", u"指令错误，指令不被识别！"},
                                     {u"82", u"指令错误，指定地址(寄存器)无法执行该指令！"},
                                     {u"83", u"指令错误，读/写数据超出上下限范围！"},
                                     {u"84", u"自诊断错误！"},
                                     {u"85", u"指令错误，读取数据长度为零！"},
                                     {u"86", u"设置错误，写入数据时CLK必须等于 8 ！"},
                                     {u"87", u"指令错误，写入的数据超出该参数的上下限范围！"},
                                     {u"88", u"仪表系统忙！"}};

// The check word is made anew and stands where it stood. A reply too short to hold one is a wrong one.
bool CheckWordIsRight(const HexText& reply, Text (*checkWord)(Text)) {
    Text frame = ReadableOf(Left(reply, Len(reply) - kCheckWordAndLineEnd));
    frame += checkWord(frame);
    return HexTextOfReadable(frame) == Left(reply, Len(reply) - kLineEndWidth);
}

template <Text (*checkWord)(Text)>
bool JudgeFrame(MainForm& form) {
    return NoteCheckWord(form, IsMet([&] { return CheckWordIsRight(form.ReplyText, checkWord); }));
}

void NoteFailure(MainForm& form, const Text& function) {
    const auto* const exception =
        std::find_if(std::begin(kExceptions), std::end(kExceptions),
                     [&](const Exception& known) { return known.function == function; });
    if (exception == std::end(kExceptions)) {
        NoteUnknownReply(form);
    } else {
        form.LogLine += exception->text;
    }
    PassOverError([&] { LogCommError(form); });
}

// Whether the reply carries data: answers to reads and writes do, whatever their check word.
bool JudgeFunction(MainForm& form) {
    Text function = Mid(form.ReplyText, 10, 6);
    PassOverError([&] { ConvertHexText(function, 0); });
    if (function == u"03") {
        NoteDataRead(form);
    } else if (function == u"06") {
        NoteParameterWritten(form);
    } else {
        NoteFailure(form, function);
        return false;
    }
    return true;
}

void Parse(MainForm& form, bool (*judgeFrame)(MainForm&), void (*decodeRows)(MainForm&)) {
    PutReplyIntoLogLine(form);
    const bool isRight = JudgeByCycleStep(form, judgeFrame);
    const bool carriesData = JudgeFunction(form);
    PutRecordOnTop(form);
    if (isRight || carriesData) PassOverError([&] { decodeRows(form); });
    form.ReplyText.clear();
}

}  // namespace

void ParseAsciiReply(MainForm& form) { Parse(form, JudgeFrame<LrcOfPairs>, DecodeAsciiRows); }

void ParseAsciiReplyTwo(MainForm& form) { Parse(form, JudgeFrame<LrcOfChars>, DecodeAsciiRowsTwo); }

}  // namespace commtest
