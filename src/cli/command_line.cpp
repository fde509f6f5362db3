#include "cli/command_line.h"

#include <algorithm>
#include <array>

#include "cli/completion.h"
#include "cli/printable_text.h"
#include "cli/suggestion.h"
#include "cli/verb.h"
#include "host_qt/own_version.h"
#include "host_qt/path_problem.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kStatusHelp =
    uR"(退出状态:
  0  成功
  1  仪表: --strict 下有不完整、校验出错、无应答或拒绝的回答，写入被拒绝、未确认或读回的值不同，仪表的回答
     或运行错误结束了通讯，搜索没有收到应答；参数表: 有问题的行，或代码页 936 中没有的字符；有表格没有写成
  2  用法不对，目录中没有这个名称，数值没有写入，或有不能换算的输入或不能校验的帧
  3  串口、目录或文件打不开，通讯中串口断开，结果写不出去，或标准输入读不出来；
     参数表读不出来，导入或恢复没有进行，目录没有改变
)"_s;

std::array<Verb, 10> Verbs() {
    return {PollVerb(),  SearchVerb(), CaptureVerb(),   ReplayVerb(),  RecordingsVerb(),
            WriteVerb(), ListVerb(),   CatalogueVerb(), ConvertVerb(), CheckVerb()};
}

QString Line(const QString& name, QStringView meaning, int width) {
    const int missing = width - DisplayWidth(name.toStdU16String());
    return u"  %1%2  %3\n"_s.arg(name, QString(std::max(missing, 0), u' '), meaning);
}

QString PurposeOf(const Verb& verb, int width) {
    return Line(u"%1 %2"_s.arg(verb.name, verb.usage), verb.purpose, width);
}

QString WholeHelp() {
    constexpr int kWidth = 36;
    QString help =
        u"用法: commtest-cli 动词 [选项]\n\n在命令行上与仪表通讯，换算数值，计算校验码。\n\n动词:\n"_s;
    for (const Verb& verb : Verbs()) {
        if (verb.actions.empty()) help += PurposeOf(verb, kWidth);
        for (const Verb& action : verb.actions) help += PurposeOf(action, kWidth);
    }
    help += u"\n选项:\n"_s +
            Line(u"--help"_s, u"显示帮助，动词之后为该动词的帮助；与 help [动词] 相同", kWidth) +
            Line(u"--version"_s, u"显示版本、提交、工具库和数据库引擎的版本", kWidth) +
            Line(u"--face english"_s, u"英文的记录和统计 (poll、capture、replay、write)", kWidth);
    return help + u'\n' + kStatusHelp;
}

QString HelpOf(const Verb& verb) {
    constexpr int kWidth = 28;
    QString help = u"用法: commtest-cli %1 %2\n\n%3\n\n"_s.arg(verb.name, verb.usage, verb.purpose);
    if (!verb.actions.empty()) help += u"动作:\n"_s;
    for (const Verb& action : verb.actions) help += PurposeOf(action, kWidth);
    help += verb.actions.empty() ? u"选项:\n"_s : u"\n选项:\n"_s;
    for (const Option& option : verb.options) {
        const QString fallback = option.fallback.isEmpty() ? u""_s : u" (默认 %1)"_s.arg(option.fallback);
        help +=
            Line(u"--%1 %2"_s.arg(option.name, option.value), option.meaning.toString() + fallback, kWidth);
    }
    const bool hasActions = !verb.actions.empty();
    help += Line(u"--help"_s, hasActions ? u"显示本帮助，动作之后为该动作的帮助" : u"显示本帮助", kWidth);
    if (!verb.notes.isEmpty()) help += u'\n' + verb.notes.toString();
    return help + u'\n' + kStatusHelp;
}

bool AsksForHelp(const QStringList& words) {
    const QStringList options = words.mid(0, words.indexOf(u"--"_s));
    return options.contains(u"--help"_s) || options.contains(u"-h"_s);
}

const Verb* ActionNamed(const Verb& verb, const QString& word) {
    const QString name = u"%1 %2"_s.arg(verb.name, word);
    const auto action = std::find_if(verb.actions.begin(), verb.actions.end(),
                                     [&name](const Verb& each) { return each.name == name; });
    return action == verb.actions.end() ? nullptr : &*action;
}

QStringList ActionsOf(const Verb& verb) {
    QStringList actions;
    for (const Verb& action : verb.actions) actions += action.name.mid(verb.name.size() + 1).toString();
    return actions;
}

Problem WrongAction(const Verb& verb, const QString& word) {
    const QStringList actions = ActionsOf(verb);
    const QString what = word.isEmpty() ? u"缺少动作"_s : u"没有动作 \"%1\""_s.arg(word);
    const QString meant = DidYouMean(word, actions);
    const QString known = meant.isEmpty() ? u"，应为 %1。"_s.arg(actions.join(u"、"_s)) : meant;
    return {ExitStatus::BadUsage, u"%1%2用法请看 commtest-cli %3 --help"_s.arg(what, known, verb.name)};
}

ExitStatus RunVerb(const Verb& verb, const QStringList& words, Console& console) {
    if (const Verb* const action = ActionNamed(verb, words.value(0))) {
        return RunVerb(*action, words.mid(1), console);
    }
    if (!verb.actions.empty() && !AsksForHelp(words)) throw WrongAction(verb, words.value(0));
    if (!AsksForHelp(words)) return verb.run(Arguments(verb.name, words, verb.options), console);
    console.Print(HelpOf(verb));
    return ExitStatus::Good;
}

// For the making of the package: the help does not tell it.
ExitStatus PrintCompletion(const QStringList& words, Console& console) {
    const QString shell = words.join(u' ');
    if (shell != u"bash" && shell != u"zsh") {
        throw Problem(ExitStatus::BadUsage, u"没有 shell \"%1\"，应为 bash、zsh"_s.arg(shell));
    }
    console.Print(CompletionScript(shell == u"bash" ? Shell::Bash : Shell::Zsh, Verbs()));
    return ExitStatus::Good;
}

// "help", "help VERB" and "help VERB ACTION" in the words of --help.
QStringList HelpWordsOf(const QStringList& words) {
    constexpr qsizetype kMostWords = 3;
    if (words.size() > kMostWords) {
        throw Problem(ExitStatus::BadUsage,
                      u"多余的参数 \"%1\"。用法请看 commtest-cli --help"_s.arg(words[kMostWords]));
    }
    return words.mid(1) + QStringList(u"--help"_s);
}

// --face may stand in front of the verb; behind it, it is an option like any other.
QStringList WithFaceBehindVerb(const QStringList& words) {
    const bool isOneWord = words.value(0).startsWith(u"--face=");
    const qsizetype width = isOneWord ? 1 : 2;
    if ((!isOneWord && words.value(0) != u"--face") || words.size() <= width) return words;
    const QStringList rest = words.mid(width);
    const qsizetype separator = rest.indexOf(u"--"_s);
    const qsizetype end = separator < 0 ? rest.size() : separator;
    return rest.mid(0, end) + words.mid(0, width) + rest.mid(end);
}

ExitStatus RunWords(const QStringList& given, Console& console) {
    const QStringList words = WithFaceBehindVerb(given);
    const QString first = words.value(0);
    if (first == u"help") return RunWords(HelpWordsOf(words), console);
    QStringList verbs = {u"help"_s};
    for (const Verb& verb : Verbs()) {
        if (verb.name == first) return RunVerb(verb, words.mid(1), console);
        verbs += verb.name.toString();
    }
    if (first == u"completion") return PrintCompletion(words.mid(1), console);
    if (first == u"--version") {
        console.Print(OwnVersionLines("commtest-cli"));
        return ExitStatus::Good;
    }
    if (first.startsWith(u'-') && AsksForHelp(words)) {
        console.Print(WholeHelp());
        return ExitStatus::Good;
    }
    const QString what = first.isEmpty() ? u"缺少动词"_s : u"没有动词 \"%1\""_s.arg(first);
    const QString meant = DidYouMean(first, verbs);
    throw Problem(ExitStatus::BadUsage,
                  what + (meant.isEmpty() ? u"。"_s : meant) + u"用法请看 commtest-cli --help"_s);
}

Problem CannotPrint(const Console& console) {
    const QString reason = WordsOnSystemError(console.SystemError());
    const QString line = reason.isEmpty() ? u"结果写不出去"_s : u"结果写不出去: "_s + reason;
    return {ExitStatus::NoAccess, line + u"，请检查标准输出"_s};
}

ExitStatus RunAndTell(const QStringList& words, Console& console) {
    try {
        const ExitStatus status = RunWords(words, console);
        if (!console.Flush() && console.HasNoReader()) return ExitStatus::NoReader;
        if (!console.Flush()) throw CannotPrint(console);
        return status;
    } catch (const Problem& problem) {
        console.Tell(problem.Line());
        return problem.Status();
    } catch (const RuntimeError& error) {
        console.Tell(error.StandardMessage() + u" 请检查程序文件夹和其中的目录");
        return ExitStatus::NoAccess;
    }
}

}  // namespace

int RunCommandLine(const QStringList& words, Console& console) {
    return static_cast<int>(RunAndTell(words, console));
}

}  // namespace commtest
