#include "cli/arguments.h"

#include <QCommandLineOption>
#include <QRegularExpression>
#include <algorithm>

#include "cli/suggestion.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

bool TakesNextWord(QStringView word, const OptionList& options) {
    return std::any_of(options.begin(), options.end(), [word](const Option& option) {
        return !option.value.isEmpty() && option.name == word.mid(2);
    });
}

bool IsNumber(const QString& word) {
    return IsMet([&] {
        ToNumber(word.toStdU16String());
        return true;
    });
}

bool LooksLikeOption(const QString& word) { return word.startsWith(u'-') && !IsNumber(word); }

}  // namespace

Arguments::Arguments(QStringView verb, const QStringList& words, const OptionList& options)
    : verb_(verb.toString()) {
    for (const Option& option : options) {
        parser_.addOption({option.name.toString(), {}, option.value.toString(), option.fallback.toString()});
    }
    // The parser takes the first word for the name of the program.
    if (!parser_.parse(QStringList(verb_) + OptionsInFront(words, options))) throw WrongOption(options);
    RefuseRepeated(options);
}

Problem Arguments::WrongOption(const OptionList& options) const {
    if (!parser_.unknownOptionNames().isEmpty()) {
        const QString word = parser_.unknownOptionNames().constFirst();
        QStringList known;
        for (const Option& option : options) known += option.name.toString();
        return BadUsage(u"没有选项 \"%1\""_s.arg(word) + DidYouMean(word, known));
    }
    return WrongCount(QRegularExpression(u"'(.+)'"_s).match(parser_.errorText()).captured(1));
}

void Arguments::RefuseRepeated(const OptionList& options) const {
    for (const Option& option : options) {
        if (option.mayRepeat || parser_.optionNames().count(option.name.toString()) <= 1) continue;
        throw BadUsage(u"选项 --%1 给出了两次"_s.arg(option.name));
    }
}

// The parser would take the digits of a negative number for options, but for those behind "--".
QStringList Arguments::OptionsInFront(const QStringList& words, const OptionList& options) const {
    QStringList front;
    QStringList positional;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i] == u"--") {
            positional += words.mid(i + 1);
            break;
        }
        if (!words[i].startsWith(u"--")) {
            positional += words[i];
            continue;
        }
        front += words[i];
        if (!TakesNextWord(words[i], options)) continue;
        if (i + 1 == words.size()) throw WrongCount(words[i]);
        front += words[++i];
    }
    return front + QStringList(u"--"_s) + positional;
}

void Arguments::RequireKnownToAction(const QString& action, const QStringList& options) const {
    for (const QString& option : parser_.optionNames()) {
        if (!options.contains(option)) throw BadUsage(u"%1 没有选项 --%2"_s.arg(action, option));
    }
}

bool Arguments::Has(QStringView option) const { return parser_.isSet(option.toString()); }

bool Arguments::Holds(QStringView option) const { return !parser_.value(option.toString()).isEmpty(); }

QString Arguments::Value(QStringView option) const {
    const QString value = parser_.value(option.toString());
    if (value.isEmpty()) throw BadUsage(u"缺少选项 --%1"_s.arg(option));
    return value;
}

QStringList Arguments::Values(QStringView option) const { return parser_.values(option.toString()); }

int Arguments::WholeNumber(QStringView option, int least, int most) const {
    bool isNumber = false;
    const int number = Value(option).toInt(&isNumber);
    if (!isNumber || number < least || number > most) {
        throw BadValue(option, u" %1 到 %2 的整数"_s.arg(least).arg(most));
    }
    return number;
}

QStringList Arguments::Positional(qsizetype count, QStringView meaning) const {
    const QStringList words = parser_.positionalArguments();
    if (words.size() < count) throw BadUsage(u"缺少参数: %1"_s.arg(meaning));
    if (words.size() <= count) return words;
    const auto option = std::find_if(words.begin(), words.end(), LooksLikeOption);
    throw BadUsage(u"多余的参数 \"%1\""_s.arg(option != words.end() ? *option : words[count]));
}

QString Arguments::FirstPositional(QStringView meaning) const {
    const QStringList words = parser_.positionalArguments();
    if (words.isEmpty()) throw BadUsage(u"缺少参数: %1"_s.arg(meaning));
    return words.constFirst();
}

std::optional<QString> Arguments::OnePositionalAtMost() const {
    if (parser_.positionalArguments().isEmpty()) return std::nullopt;
    return Positional(1, {}).constFirst();
}

Problem Arguments::WrongCount(const QString& option) const {
    return BadUsage(u"选项 %1 的值缺少或多余"_s.arg(option));
}

Problem Arguments::BadValue(QStringView option, const QString& expected) const {
    return BadUsage(
        u"选项 --%1 的值 \"%2\" 不对，应为%3"_s.arg(option, parser_.value(option.toString()), expected));
}

Problem Arguments::BadUsage(const QString& line) const {
    const QString end = line.endsWith(u'？') ? u""_s : u"。"_s;
    return {ExitStatus::BadUsage, line + end + u"用法请看 commtest-cli %1 --help"_s.arg(verb_)};
}

}  // namespace commtest
