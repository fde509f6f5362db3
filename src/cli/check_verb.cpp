#include "cli/check_families.h"
#include "cli/check_key.h"
#include "cli/line_answers.h"
#include "cli/verb.h"
#include "runtime/runtime_error.h"
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

const CheckFamily& FamilyOf(const Arguments& arguments) {
    if (const CheckFamily* family = CheckFamilyNamed(arguments.Value(u"family"))) return *family;
    QStringList names;
    for (const CheckFamily& family : CheckFamilies()) names += family.name.toString();
    throw arguments.BadValue(u"family", u" "_s + names.join(u"、"_s));
}

// An empty frame has no check word, as in the window of the tool.
LineAnswer CheckWordOfTool(const Text& frame, int protocolCode) {
    if (frame.empty()) return {};
    const ToolAnswer answer = kToolModes[kCheckWordMode].answer(frame, protocolCode);
    return {answer.result.value_or(Text()), Text(answer.message), {}, {}};
}

Text Quoted(const Text& frame, const Text& reason) {
    Text problem = u"\"";
    problem += frame;
    problem += u"\" ";
    return problem + reason;
}

template <typename Answer>
LineAnswer AnswerOrRefusal(const Text& frame, const Answer& answer) {
    try {
        return answer();
    } catch (const FrameRefusal& refusal) {
        return {{}, Quoted(frame, refusal.reason), {}, {}};
    } catch (const RuntimeError&) {
        return {{}, Quoted(frame, u"太长，校验和超出 16 位"), {}, {}};
    }
}

LineAnswer CheckWordOf(const Text& frame, const CheckFamily& family) {
    if (frame.empty()) return {};
    return AnswerOrRefusal(frame, [&]() -> LineAnswer { return {family.wordOf(frame), {}, {}, {}}; });
}

Text WordsOn(const CheckFinding& finding) {
    if (finding.IsRight()) return u"正确";
    Text words = u"错误，帧中为 ";
    words += finding.found;
    words += u"，应为 ";
    return words + finding.expected;
}

LineAnswer VerdictOn(const Text& frame, const CheckFamily& family) {
    return AnswerOrRefusal(frame, [&]() -> LineAnswer {
        const CheckFinding finding = family.findingIn(frame);
        const Text key(KeyOf(finding.IsRight() ? CheckWord::Right : CheckWord::Wrong));
        return {WordsOn(finding), {}, {}, {}, {key, finding.found, finding.expected}};
    });
}

constexpr QStringView kExpected = u"每行输入一帧，Ctrl-D 结束";

ExitStatus Verify(const Arguments& arguments, const CheckFamily& family, Console& console) {
    bool isAnyWrong = false;
    const AnswerForm form = {FormatOf(arguments), false, {u"check", u"found", u"expected"}};
    const ExitStatus status = AnswerTexts(
        arguments.OnePositionalAtMost(), kExpected.toString(), form, console, [&](const Text& frame) {
            LineAnswer answer = VerdictOn(frame, family);
            if (answer.problem.empty()) isAnyWrong = isAnyWrong || answer.members[1] != answer.members[2];
            return answer;
        });
    return status == ExitStatus::Good && isAnyWrong ? ExitStatus::BadAnswer : status;
}

AnswerOf WordsOfTool(const Arguments& arguments) {
    const int protocolCode = ProtocolOf(arguments);
    return [protocolCode](const Text& frame) { return CheckWordOfTool(frame, protocolCode); };
}

ExitStatus Check(const Arguments& arguments, Console& console) {
    if (arguments.Has(u"family") && arguments.Has(u"protocol")) {
        throw arguments.BadUsage(u"选项 --family 和 --protocol 只能用一个"_s);
    }
    if (arguments.Has(u"verify")) return Verify(arguments, FamilyOf(arguments), console);
    const AnswerOf answerOf =
        arguments.Has(u"family")
            ? [&family = FamilyOf(arguments)](const Text& frame) { return CheckWordOf(frame, family); }
            : WordsOfTool(arguments);
    return AnswerTexts(arguments.OnePositionalAtMost(), kExpected.toString(), {FormatOf(arguments), false},
                       console, answerOf);
}

constexpr QStringView kNotes =
    uR"(不给出帧时从标准输入逐行读取。
以 -- 开头的帧写在单独的 -- 之后。

--family 的名称，校验码按它在线路上的次序给出:
  native            异或，两个字符 (协议 11)
  native-sum        累加和的低字节，两个字符 (12)
  native-fill       同 native；--verify 时认得填充的 0 (13)
  modbus-ascii      LRC，两个字符 (21)
  modbus-ascii-bcd  字符累加和的补码，两个字符 (22)
  modbus-rtu        CRC-16，两个字节，低字节在前 (31 至 35、51)
  novax             16 位累加和，低字节在前 (41)
  hct615d           累加和与异或，各一个字节 (42)
字符的帧以 "@" 或 ":" 开头，可以带行结束符，也可写成 \0D、\0A；字节的帧写成十六进制数字，空格可有可无。

--protocol 的代码，结果与校验码工具的相同:
  2   输入原样，前两个字符后加空格
  3   十六进制数据的双字节校验，如 " 01 03"
  11  首字符改为 @，末尾加异或校验和 CR
  21  ModBus-ASCII 的 LRC

例:
  $ commtest-cli check --family modbus-rtu "01 03 00 10 00 01"
  85 CF
)";

}  // namespace

Verb CheckVerb() {
    return {u"check",
            u"--family 名称 | --protocol 2|3|11|21 [帧]",
            u"计算一帧或标准输入中每行的校验码，或用 --verify 检验整帧",
            {{u"family", u"名称", u"校验码的种类"},
             {u"verify", {}, u"检验带校验码的整帧，错误时给出应有的校验码，退出状态为 1"},
             {u"protocol", u"2|3|11|21", u"校验码工具的协议代码"},
             kFormatOption},
            Check,
            kNotes};
}

}  // namespace commtest
