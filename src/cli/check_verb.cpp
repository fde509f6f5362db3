#include "cli/line_answers.h"
#include "cli/verb.h"
#include "tools/tool_modes.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

namespace protocol = tool_protocol;

int ProtocolOf(const Arguments& arguments) {
    const QString code = arguments.Value(u"protocol");
    for (const int known :
         {protocol::kCrcOfBytes, protocol::kCrcOfHexText, protocol::kNative, protocol::kModbusAscii}) {
        if (code == QString::number(known)) return known;
    }
    throw arguments.BadValue(u"protocol", u" 2、3、11 或 21"_s);
}

// An empty frame has no check word, as in the window of the tool.
LineAnswer CheckWordOf(const Text& frame, int protocolCode) {
    if (frame.empty()) return {};
    const ToolAnswer answer = kToolModes[kCheckWordMode].answer(frame, protocolCode);
    return {answer.result.value_or(Text()), Text(answer.message), {}, {}};
}

ExitStatus Check(const Arguments& arguments, Console& console) {
    const int protocolCode = ProtocolOf(arguments);
    return AnswerTexts(arguments.OnePositionalAtMost(), u"每行输入一帧，Ctrl-D 结束"_s,
                       {FormatOf(arguments), false}, console,
                       [protocolCode](const Text& frame) { return CheckWordOf(frame, protocolCode); });
}

constexpr QStringView kNotes =
    uR"(不给出帧时从标准输入逐行读取。
以 -- 开头的帧写在单独的 -- 之后。

校验码:
  2   输入原样，前两个字符后加空格
  3   十六进制数据的双字节校验，如 " 01 03"
  11  首字符改为 @，末尾加异或校验和 CR
  21  ModBus-ASCII 的 LRC
)";

}  // namespace

Verb CheckVerb() {
    return {u"check",
            u"--protocol 2|3|11|21 [帧]",
            u"计算一帧或标准输入中每行的校验码，与校验码工具的结果相同",
            {{u"protocol", u"2|3|11|21", u"校验码工具的协议代码"}, kFormatOption},
            Check,
            kNotes};
}

}  // namespace commtest
