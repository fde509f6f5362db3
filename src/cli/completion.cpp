#include "cli/completion.h"

#include <QRegularExpression>
#include <QStringList>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kFile = u"文件";
constexpr QStringView kFolder = u"文件夹";

// "text|csv|json" is one of three words; what the user has to think of is none.
QStringList WordsOf(QStringView value) {
    static const QRegularExpression kFewWords(u"^[a-z0-9-]+(\\|[a-z0-9-]+)+$"_s);
    if (!kFewWords.match(value.toString()).hasMatch()) return {};
    return value.toString().split(u'|');
}

// The words of which one stands behind the verb: its actions, else the words that its usage begins with.
QStringList TopicsOf(const Verb& verb) {
    QStringList topics;
    for (const Verb& action : verb.actions) topics += action.name.mid(verb.name.size() + 1).toString();
    static const QRegularExpression kTopic(u"^[a-z]+(?=[| ])"_s);
    if (!topics.isEmpty() || !kTopic.match(verb.usage.toString()).hasMatch()) return topics;
    for (const QString& part : verb.usage.toString().split(u'|')) topics += part.section(u' ', 0, 0);
    return topics;
}

bool TakesFiles(const Verb& verb) { return verb.usage.contains(kFile); }

QStringList OptionsOf(const Verb& verb) {
    QStringList options;
    for (const Option& option : verb.options) options += u"--%1"_s.arg(option.name);
    return options += u"--help"_s;
}

QString Quoted(QString text) { return u'\'' + text.replace(u'\'', u"'\\''"_s) + u'\''; }

// Bash: the verb, with its action where it has some, chooses the options; it and the option in front of the
// word choose what stands behind that.

QString BashValue(QStringView value) {
    if (value.contains(kFolder)) return u"_commtest_cli_paths -d; "_s;
    if (value.contains(kFile)) return u"_commtest_cli_paths -f; "_s;
    const QStringList words = WordsOf(value);
    return words.isEmpty() ? u""_s : u"words=%1; "_s.arg(Quoted(words.join(u' ')));
}

QString BashValuesOf(const Verb& verb) {
    QString lines;
    for (const Option& option : verb.options) {
        if (option.value.isEmpty()) continue;
        lines += u"        '%1 --%2') %3return ;;\n"_s.arg(verb.name, option.name, BashValue(option.value));
    }
    return lines;
}

QString BashWordsOf(const Verb& verb) {
    const QStringList topics = TopicsOf(verb);
    const QStringList words =
        verb.actions.empty() ? topics + OptionsOf(verb) : topics + QStringList(u"--help"_s);
    QString line = u"        %1) words=%2"_s.arg(Quoted(verb.name.toString()), Quoted(words.join(u' ')));
    if (TakesFiles(verb)) line += u"; _commtest_cli_paths -f"_s;
    return line + u" ;;\n"_s;
}

QString BashScript(std::span<const Verb> verbs) {
    QStringList first;
    QString withActions;
    QString values;
    QString words;
    const auto add = [&](const Verb& verb) {
        values += BashValuesOf(verb);
        words += BashWordsOf(verb);
    };
    for (const Verb& verb : verbs) {
        first += verb.name.toString();
        add(verb);
        for (const Verb& action : verb.actions) add(action);
        if (!verb.actions.empty()) withActions += u"|%1"_s.arg(verb.name);
    }
    return uR"(# Made by commtest-cli from the tables of its help.
_commtest_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb words=
    local -a line=("${COMP_WORDS[@]:1:COMP_CWORD-1}")
    COMPREPLY=()
    if [ "${line[0]}" = --face ]; then line=("${line[@]:2}"); fi
    verb=${line[0]}
    case $verb in %1) if [ -n "${line[1]}" ]; then verb+=" ${line[1]}"; fi ;; esac
    _commtest_cli_words
    if [ -n "$words" ]; then mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$words" -- "$word"); fi
}

_commtest_cli_paths() {
    mapfile -t COMPREPLY < <(compgen "$1" -- "$word")
    compopt -o filenames 2>/dev/null
}

_commtest_cli_words() {
    case "$verb $before" in
        *' --face') words='chinese english'; return ;;
%2    esac
    case $verb in
        '') words=%3 ;;
%4    esac
}

complete -F _commtest_cli commtest-cli
)"_s.arg(withActions.mid(1), values, Quoted(first.join(u' ') + u" help --help --version --face"_s), words);
}

// Zsh: each verb and action hands its options, with what they mean, to _arguments.

QString ZshText(QStringView text) {
    QString escaped = text.toString();
    return escaped.replace(QRegularExpression(u"([\\\\:\\[\\]])"_s), u"\\\\1"_s);
}

QString ZshValue(QStringView value) {
    if (value.isEmpty()) return {};
    const QString name = u':' + ZshText(value) + u':';
    if (value.contains(kFolder)) return name + u"_files -/"_s;
    if (value.contains(kFile)) return name + u"_files"_s;
    const QStringList words = WordsOf(value);
    return words.isEmpty() ? name : name + u'(' + words.join(u' ') + u')';
}

QString ZshArgumentsOf(const Verb& verb) {
    QStringList words;
    for (const Option& option : verb.options) {
        const QString repeats = option.mayRepeat ? u"*"_s : u""_s;
        words += Quoted(
            u"%1--%2[%3]%4"_s.arg(repeats, option.name, ZshText(option.meaning), ZshValue(option.value)));
    }
    words += Quoted(u"--help[显示本帮助]"_s);
    const QStringList topics = TopicsOf(verb);
    if (!topics.isEmpty()) words += Quoted(u"1:动作:(%1)"_s.arg(topics.join(u' ')));
    if (TakesFiles(verb)) words += Quoted(u"*:文件:_files"_s);
    return u"_arguments "_s + words.join(u" \\\n                "_s);
}

QString ZshChoice(const QString& tag, std::span<const Verb> verbs, qsizetype nameBegins) {
    QString lines = u"local -a %1=(\n"_s.arg(tag);
    for (const Verb& verb : verbs) {
        lines +=
            u"        %1\n"_s.arg(Quoted(ZshText(verb.name.mid(nameBegins)) + u':' + ZshText(verb.purpose)));
    }
    return lines + u"    )\n"_s;
}

QString ZshFunctionName(QStringView verb) {
    return u"_commtest_cli_"_s + verb.toString().replace(u' ', u'_');
}

// A function that completes what stands behind a word that is one of the verbs.
QString ZshChooser(const QString& name, std::span<const Verb> verbs, qsizetype nameBegins) {
    QString lines = name + u"() {\n    "_s + ZshChoice(u"choices"_s, verbs, nameBegins);
    lines +=
        u"    if (( CURRENT == 2 )); then _describe -t verbs 动词 choices; return; fi\n"
        u"    shift words; (( CURRENT-- ))\n    case $words[1] in\n"_s;
    for (const Verb& verb : verbs) {
        const QString what = verb.actions.empty() ? ZshArgumentsOf(verb) : ZshFunctionName(verb.name);
        lines += u"        %1) %2 ;;\n"_s.arg(verb.name.mid(nameBegins), what);
    }
    return lines + u"    esac\n}\n\n"_s;
}

QString ZshScript(std::span<const Verb> verbs) {
    QString script = u"#compdef commtest-cli\n# Made by commtest-cli from the tables of its help.\n\n"_s;
    for (const Verb& verb : verbs) {
        if (verb.actions.empty()) continue;
        script += ZshChooser(ZshFunctionName(verb.name), verb.actions, verb.name.size() + 1);
    }
    script += ZshChooser(u"_commtest_cli"_s, verbs, 0);
    return script +
           u"if [[ $words[2] == --face ]]; then words=($words[1] $words[4,-1]); (( CURRENT -= 2 )); fi\n"
           u"_commtest_cli\n"_s;
}

}  // namespace

QString CompletionScript(Shell shell, std::span<const Verb> verbs) {
    return shell == Shell::Bash ? BashScript(verbs) : ZshScript(verbs);
}

}  // namespace commtest
